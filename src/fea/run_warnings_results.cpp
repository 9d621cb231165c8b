// Warnings of the results of a run, and the sentences of all warnings.
#include "fea/record_file.h"
#include "fea/result_summary.h"
#include "fea/run_residual.h"
#include "fea/run_warnings_work.h"
#include "model/arithmetic.h"
#include "model/springs.h"
#include "model/store.h"
#include "model/supports.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace havuz {

// Sentences

SaidAmount Number(double value, int decimals) {
    std::array<char, 400> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    const std::string english(text.data(), end.ptr);
    std::string turkish = english;
    std::replace(turkish.begin(), turkish.end(), '.', ',');
    return {english, turkish};
}

SaidAmount Count(int value) { return Names(std::to_string(value)); }

static std::string WithoutZeros(std::string text) {
    text.erase(text.find_last_not_of('0') + 1);
    return text.back() == '.' || text.back() == ',' ? text.substr(0, text.size() - 1) : text;
}

SaidAmount Level(double z) {
    const SaidAmount number = Number(z, 3);
    return {WithoutZeros(number.english), WithoutZeros(number.turkish)};
}

SaidAmount Names(const std::string &names) { return {names, names}; }

SaidAmount ColumnName(std::size_t c, int code) {
    const std::string number = std::to_string(c + 1);
    return {number + " (" + LoadCodeWords(code) + ")", number + " (" + LoadCodeInTurkish(code) + ")"};
}

SaidAmount List(const std::vector<SaidAmount> &parts) {
    SaidAmount all;
    for (const SaidAmount &part : parts) {
        all.english += (all.english.empty() ? "" : ", ") + part.english;
        all.turkish += (all.turkish.empty() ? "" : ", ") + part.turkish;
    }
    return all;
}

SaidAmount ColumnsOf(Pressure pressure, const std::vector<RunColumn> &columns) {
    std::vector<SaidAmount> names;
    for (std::size_t c = 1; c < columns.size(); ++c)
        if (TakesPressure(columns[c].code, pressure))
            names.push_back(ColumnName(c, columns[c].code));
    return List(names);
}

static std::string Filled(std::string_view pattern, const std::vector<SaidAmount> &amounts,
                          std::string SaidAmount::*language) {
    std::string text;
    for (std::size_t at = 0; at < pattern.size(); ++at)
        if (pattern[at] == '{') { // {0}..{9}
            text += amounts.at(static_cast<std::size_t>(pattern[at + 1] - '0')).*language;
            at += 2;
        } else {
            text += pattern[at];
        }
    return text;
}

Warning Say(const char *code, const char *english, const char *turkish, const std::vector<SaidAmount> &amounts) {
    return {code, Filled(english, amounts, &SaidAmount::english), Filled(turkish, amounts, &SaidAmount::turkish)};
}

namespace {

// Results

SaidAmount InColumn(std::size_t c, int code, const char *english, const char *turkish,
                    std::vector<SaidAmount> amounts) {
    amounts.insert(amounts.begin(), ColumnName(c, code));
    const Warning said = Say("", english, turkish, amounts);
    return {said.english, said.turkish};
}

void WarnOfResiduals(const std::string &project, const std::vector<RunColumn> &columns,
                     std::vector<Warning> &warnings) {
    const std::vector<double> residuals = RunResiduals(project, columns);
    std::vector<SaidAmount> bad;
    for (std::size_t c = 0; c < columns.size(); ++c)
        if (!(residuals[c] <= kGreatestResidual))
            bad.push_back(InColumn(c, columns[c].code, "{0} {1} %", "{0} %{1}", {Number(100.0 * residuals[c], 2)}));
    if (!bad.empty())
        warnings.push_back(
            Say("residual",
                "the residual |f - K u|/|f| is above 0.2 %: the moments of a column are not to be trusted "
                "there: {0}; 32-bit numbers do not carry this mesh: make it coarser (mesh --mesh-width), or "
                "take the values of havuz-cli check",
                "|f - K u|/|f| kalanı %0,2'den büyük: böyle bir kolonun momentlerine güvenilmez: {0}; 32 "
                "bitlik sayılar bu meshi taşımıyor: daha seyrek meshleyin ya da havuz-cli check değerlerini "
                "alın",
                {List(bad)}));
}

// Displacements of every node in one column.
class Column {
public:
    Column(const RecordFile &dep, std::size_t column) {
        DepRecord record{};
        for (int i = 1; i <= NoktaCount; ++i) {
            dep.GetRecord(record, i);
            u_.push_back({record.at(6 * column), record.at(6 * column + 1), record.at(6 * column + 2)});
        }
    }
    const std::array<double, 3> &at(int node) const { return u_[static_cast<std::size_t>(node - 1)]; }

private:
    std::vector<std::array<double, 3>> u_;
};

// A pull of less than 1 kg/m2 is the rounding of 32 bits.
constexpr double kLeastPull = 0.001;

struct Pull {
    int nodes = 0, springs = 0, at = 0;
    double greatest = 0.0, tons = 0.0; // t/m2, t
};

Pull PullOf(const Column &u, const std::vector<Float32> &springs) {
    Pull pull;
    for (int i = 1; i <= NoktaCount; ++i) {
        const double spring = springs[static_cast<std::size_t>(i)];
        if (spring == 0.0)
            continue;
        ++pull.springs;
        const double stress = ZeminKo * u.at(i)[2];
        if (stress < kLeastPull)
            continue;
        ++pull.nodes;
        pull.tons += spring * u.at(i)[2];
        if (stress > pull.greatest) {
            pull.greatest = stress;
            pull.at = i;
        }
    }
    return pull;
}

// The longest side of the box around the active nodes.
double ModelSize(const std::vector<char> &free) {
    std::array<double, 3> low{}, high{};
    bool empty = true;
    for (int i = 1; i <= NoktaCount; ++i) {
        if (free[FreedomAt(i, 1)] == 0 && !HoldsTranslation(NoktaTable[i].Mesnet))
            continue;
        const std::array<double, 3> at = {NoktaTable[i].X, NoktaTable[i].Y, NoktaTable[i].Z};
        for (std::size_t k = 0; k < 3; ++k) {
            low[k] = empty ? at[k] : std::min(low[k], at[k]);
            high[k] = empty ? at[k] : std::max(high[k], at[k]);
        }
        empty = false;
    }
    return std::max({high[0] - low[0], high[1] - low[1], high[2] - low[2]});
}

void WarnOfMovements(const std::string &project, const std::vector<RunColumn> &columns,
                     std::vector<Warning> &warnings) {
    const RecordFile dep(project + ".DEP", sizeof(DepRecord), RecordFile::ReadOnly);
    const std::vector<Float32> springs = FoundationSprings();
    const double size = ModelSize(FreeFreedoms());
    std::vector<SaidAmount> pulls, movements;
    for (std::size_t c = 0; c < columns.size(); ++c) {
        const Column u(dep, c);
        if (const Pull pull = PullOf(u, springs); pull.nodes > 0)
            pulls.push_back(InColumn(c, columns[c].code, "{0} at {1} of {2} nodes, at most {3} t/m2 at node {4}, {5} t",
                                     "{0} {2} noktanın {1} tanesinde, en çok {4} noktasında {3} t/m², {5} t",
                                     {Count(pull.nodes), Count(pull.springs), Number(pull.greatest, 3), Count(pull.at),
                                      Number(pull.tons, 2)}));
        double farthest = 0.0;
        int node = 0;
        for (int i = 1; i <= NoktaCount; ++i)
            if (const double moved = Distance3(u.at(i)[0], u.at(i)[1], u.at(i)[2]); moved > farthest) {
                farthest = moved;
                node = i;
            }
        if (farthest > size)
            movements.push_back(InColumn(c, columns[c].code, "{0} node {1} by {2} m", "{0} {1} noktası {2} m",
                                         {Count(node), Number(farthest, 2)}));
    }
    if (!pulls.empty())
        warnings.push_back(
            Say("springs-pull",
                "springs pull, as soil cannot, in load column {0}; read such a column only together with "
                "the weight, or let such springs go with havuz-cli check --no-tension",
                "yaylar çekiyor, zemin çekemez: {0}; böyle bir kolonu yalnız ağırlıkla birlikte okuyun ya "
                "da bu yayları havuz-cli check --no-tension ile bırakın",
                {List(pulls)}));
    if (!movements.empty())
        warnings.push_back(
            Say("large-movement",
                "the model moves farther than its size, {0} m, in load column {1}: it is not held, or its "
                "loads are not in t and m; check Ko, supports, thicknesses and loads",
                "model kendi boyundan, {0} m, çok yer değiştiriyor: {1}; tutulmuyor ya da yükleri t ve m "
                "değil; Ko, mesnet, kalınlık ve yüklere bakın",
                {Level(size), List(movements)}));
}

} // namespace

std::vector<Warning> RunWarnings(const std::string &project) {
    const std::vector<RunColumn> columns = RunColumns();
    std::vector<Warning> warnings;
    WarnOfResiduals(project, columns, warnings);
    for (Warning &warning : ModelWarnings())
        warnings.push_back(std::move(warning));
    WarnOfMovements(project, columns, warnings);
    return warnings;
}

} // namespace havuz
