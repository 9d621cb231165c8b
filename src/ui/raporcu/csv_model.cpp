#include "ui/raporcu/csv_model.h"

#include "ui/qt/text.h"

#include <array>
#include <utility>

namespace havuz {

namespace {

constexpr std::pair<const char *, const char *> kTurkish[] = {{"kind", "tür"},
                                                              {"zone", "bölge"},
                                                              {"face", "yüz"},
                                                              {"direction", "doğrultu"},
                                                              {"case", "durum"},
                                                              {"envelope", "zarf"},
                                                              {"combination", "kombinasyon"},
                                                              {"result", "sonuç"},
                                                              {"unit", "birim"},
                                                              {"least", "en küçük"},
                                                              {"mesh_least", "mesh"},
                                                              {"case_least", "kombinasyon"},
                                                              {"greatest", "en büyük"},
                                                              {"mesh_greatest", "mesh"},
                                                              {"case_greatest", "kombinasyon"},
                                                              {"node", "nokta"},
                                                              {"corner", "köşe"},
                                                              {"x", "x (m)"},
                                                              {"y", "y (m)"},
                                                              {"z", "z (m)"},
                                                              {"ux", "ux (m)"},
                                                              {"uy", "uy (m)"},
                                                              {"uz", "uz (m)"},
                                                              {"rx", "rx (rad)"},
                                                              {"ry", "ry (rad)"},
                                                              {"rz", "rz (rad)"},
                                                              {"soil", "zemin (t/m²)"},
                                                              {"reaction", "tepki (t)"},
                                                              {"N11", "N11 (t/m)"},
                                                              {"N22", "N22 (t/m)"},
                                                              {"N12", "N12 (t/m)"},
                                                              {"M11", "M11 (t.m/m)"},
                                                              {"M22", "M22 (t.m/m)"},
                                                              {"M12", "M12 (t.m/m)"},
                                                              {"Q1", "Q1 (t/m)"},
                                                              {"Q2", "Q2 (t/m)"},
                                                              {"length", "boy (m)"},
                                                              {"height", "yükseklik (m)"},
                                                              {"F", "F (t)"},
                                                              {"component", "bileşen"},
                                                              {"load", "yük (t, t.m)"},
                                                              {"spring", "yay (t, t.m)"},
                                                              {"sum", "toplam (t, t.m)"},
                                                              {"residual", "artık"},
                                                              {"factor", "katsayı"},
                                                              {"h", "h (cm)"},
                                                              {"d", "d (cm)"},
                                                              {"N", "N* (t/m)"},
                                                              {"As", "As (cm²/m)"},
                                                              {"AsMin", "As,min (cm²/m)"},
                                                              {"diameter", "çap (mm)"},
                                                              {"spacing", "aralık (cm)"},
                                                              {"AsProv", "seçilen As (cm²/m)"},
                                                              {"wk", "wk (mm)"},
                                                              {"wkLimit", "wk sınırı (mm)"},
                                                              {"V", "V (t/m)"},
                                                              {"VRd", "VRd (t/m)"},
                                                              {"verdict", "sonuç"},
                                                              {"check", "kontrol"},
                                                              {"value", "değer"},
                                                              {"limit", "sınır"}};

QString TurkishHead(const QString &name, const QStringList &all) {
    if (name == QLatin1String("M")) // of the walls a moment about the foot, of the steel that of the place
        return all.contains(QLatin1String("F")) ? QStringLiteral("M (t.m)") : QStringLiteral("M* (t.m/m)");
    if (name == QLatin1String("reaction") && all.contains(QLatin1String("component")))
        return QStringLiteral("tepki (t, t.m)");
    for (const auto &[english, turkish] : kTurkish)
        if (name == QLatin1String(english))
            return QString::fromUtf8(turkish);
    return name;
}

QString KindWord(int kind) {
    return kind == 1 ? QStringLiteral("duvar") : kind == 2 ? QStringLiteral("konsol") : QStringLiteral("taban");
}

constexpr int kShownDigits = 6;

} // namespace

void CsvModel::fill(std::string text) {
    beginResetModel();
    text_ = std::move(text);
    cells_.clear();
    const std::size_t head = std::min(text_.find('\n'), text_.size());
    names_ = ToQt(text_.substr(0, head)).split(QLatin1Char(','));
    for (std::size_t i = head + 1; i < text_.size(); ++i)
        if (text_[i - 1] == '\n' || text_[i - 1] == ',')
            cells_.push_back(i);
    cells_.push_back(text_.size());
    endResetModel();
}

int CsvModel::rowCount(const QModelIndex &parent) const {
    if (parent.isValid() || names_.isEmpty() || cells_.empty())
        return 0;
    return static_cast<int>(cells_.size() - 1) / static_cast<int>(names_.size());
}

int CsvModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(names_.size());
}

QString CsvModel::field(int row, int column) const {
    const auto cell =
        static_cast<std::size_t>(row) * static_cast<std::size_t>(names_.size()) + static_cast<std::size_t>(column);
    const std::size_t from = cells_[cell], to = std::max(cells_[cell + 1], from + 1) - 1; // less the comma
    return ToQt(text_.substr(from, to - from));
}

QString CsvModel::field(int row, const char *column) const {
    const auto at = names_.indexOf(QLatin1String(column));
    return at < 0 ? QString() : field(row, static_cast<int>(at));
}

QVariant CsvModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::UserRole && role != Qt::TextAlignmentRole))
        return {};
    const QString text = field(index.row(), index.column());
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    if (role == Qt::DisplayRole && isNumber && names_[index.column()] == QLatin1String("kind"))
        return KindWord(static_cast<int>(value));
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>((isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (role == Qt::UserRole)
        return isNumber ? QVariant(value) : QVariant(text);
    return isNumber ? QString::number(value, 'g', kShownDigits).replace(QLatin1Char('.'), QLatin1Char(',')) : text;
}

QVariant CsvModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= names_.size())
        return {};
    return TurkishHead(names_[section], names_);
}

} // namespace havuz
