#include "ui/raporcu/raporcu_window.h"

#include "report/answer_report.h"
#include "ui/kit/vek_top_bar.h"
#include "ui/qt/text.h"
#include "ui/raporcu/caught.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace havuz {

RaporcuWindow::RaporcuWindow(RaporcuServices services) : services_(std::move(services)) {
    setObjectName(QStringLiteral("RAPORCU"));
    setWindowTitle(QStringLiteral("RAPORCU"));
    layOut();
    resize(1180, 760);
}

RaporcuWindow::~RaporcuWindow() {
    if (thread_.joinable())
        thread_.join();
}

void RaporcuWindow::layOutTop(VekTopBar *top) {
    top->put(bag::kCaption, QStringLiteral("HAVUZ  RAPORCU^sonuçlar, kontroller ve hesap raporu"));
    source_ = new QComboBox;
    source_->setObjectName(QStringLiteral("source"));
    source_->addItem(QStringLiteral("tutarlı hesap"));
    source_->addItem(QStringLiteral(".SON dosyası"));
    edit_ = new QPushButton(QStringLiteral("HAVUZ'da aç"));
    edit_->setObjectName(QStringLiteral("edit"));
    anew_ = new QPushButton(QStringLiteral("yeniden analiz et"));
    anew_->setObjectName(QStringLiteral("analyseAnew"));
    anew_->hide();
    auto *open = new QPushButton(QStringLiteral("proje aç..."));
    open->setObjectName(QStringLiteral("openProject"));
    top->add(new QLabel(QStringLiteral("kaynak:")));
    top->add(source_);
    top->add(anew_);
    top->add(open);
    top->add(edit_);
    connect(open, &QPushButton::clicked, this, [this] { openProject(); });
    connect(source_, &QComboBox::currentIndexChanged, this, [this](int at) { takeSource(at == 1); });
    connect(edit_, &QPushButton::clicked, this, [this] {
        if (!services_.edit(stem_))
            tell("HAVUZ BASLATILAMADI");
    });
    connect(anew_, &QPushButton::clicked, this, [this] { analyseAnew(); });
}

void RaporcuWindow::layOut() {
    auto *top = new VekTopBar(this);
    tabs_ = new QTabWidget;
    tabs_->setObjectName(QStringLiteral("tabs"));
    tabs_->addTab(summary_ = new SummaryPage, QStringLiteral("Özet"));
    tabs_->addTab(picture_ = new PicturePage, QStringLiteral("Resim"));
    tabs_->addTab(tables_ = new TablesPage, QStringLiteral("Tablolar"));
    tabs_->addTab(combinations_ = new CombinationPage, QStringLiteral("Kombinasyonlar"));
    tabs_->addTab(steel_ = new SteelPage, QStringLiteral("Donatı"));
    tabs_->addTab(report_ = new ReportPage, QStringLiteral("Rapor"));
    tabs_->addTab(sweep_ = new SweepPage, QStringLiteral("Varyantlar"));
    sweep_->setProgram(services_.cli);
    layOutTop(top);
    state_ = new QLabel;
    state_->setObjectName(QStringLiteral("state"));
    state_->setWordWrap(true);
    status_ = new QLabel;
    status_->setObjectName(QStringLiteral("status"));
    progress_ = new QProgressBar;
    progress_->setRange(0, 0);
    progress_->setFixedWidth(160);
    progress_->hide();
    auto *foot = new QHBoxLayout;
    foot->addWidget(status_, 1);
    foot->addWidget(progress_);
    auto *column = new QVBoxLayout(this);
    column->addWidget(top);
    column->addWidget(state_);
    column->addWidget(tabs_, 1);
    column->addLayout(foot);
    tabs_->setEnabled(false);
    connect(tabs_, &QTabWidget::currentChanged, this, [this] { showStale(tabs_->currentWidget()); });
    for (Page *page : {static_cast<Page *>(tables_), static_cast<Page *>(steel_)})
        page->showPlace = [this](const ShownPlace &place) { showPlace(place); };
    picture_->tell = tables_->tell = report_->tell = sweep_->tell = [this](const std::string &words) { tell(words); };
    combinations_->changed = [this](const std::vector<design::DesignCombination> &c) { takeCombinations(c); };
}

void RaporcuWindow::tell(const std::string &words) { status_->setText(ToQt(words)); }

void RaporcuWindow::failed(const QString &words) {
    tabs_->setEnabled(false);
    state_->setText(QStringLiteral("<b>%1</b>").arg(words.toHtmlEscaped()));
    status_->clear();
}

void RaporcuWindow::loadNothing(const std::string &why) {
    edit_->setEnabled(false);
    failed(ToQt(why));
}

void RaporcuWindow::load(const std::string &stem) {
    stem_ = stem;
    setWindowTitle(QFileInfo(ToQt(stem)).fileName() + QStringLiteral(" - RAPORCU"));
    try {
        start(std::make_shared<TankAnswer>(ReadAnswer(stem, services_.open)));
    } catch (const std::exception &) {
        failed(ToQt(CaughtInTurkish()));
    }
}

// The analysis works on the answer alone: the window stays free. Buttons that read or write the model wait for its end.
void RaporcuWindow::start(std::shared_ptr<TankAnswer> answer) {
    begin([this, answer](int round) { work(answer, round); });
}

void RaporcuWindow::begin(std::function<void(int round)> work) {
    if (thread_.joinable())
        thread_.join();
    progress_->show();
    edit_->setEnabled(false);
    anew_->setEnabled(false);
    ++round_;
    thread_ = std::thread([work = std::move(work), round = round_] { work(round); });
}

// What a round that was overtaken still has to say is not heard.
void RaporcuWindow::later(int round, std::function<void()> act) {
    QMetaObject::invokeMethod(
        this,
        [this, round, act = std::move(act)] {
            if (round == round_)
                act();
        },
        Qt::QueuedConnection);
}

// Beside the window: the analysis, which the pages show at once, then the words of the summary, which look again at the
// run's files.
void RaporcuWindow::work(const std::shared_ptr<TankAnswer> &answer, int round) {
    QString failure;
    const auto later = [&](std::function<void()> act) { this->later(round, std::move(act)); };
    try {
        AnalyseAnswer(*answer, [&](const std::string &words) { later([this, text = ToQt(words)] { step(text); }); });
        later([this, answer] { take(answer); });
        later([this] { step(QStringLiteral("özet yazılıyor")); });
        const QString summary = ToQt(SummaryHtml(*answer));
        later([this, summary] { summary_->showWords(summary); });
    } catch (const std::exception &) {
        failure = ToQt(CaughtInTurkish());
    }
    later([this, failure] { finish(failure); });
}

void RaporcuWindow::step(const QString &words) { status_->setText(words + QStringLiteral(" ...")); }

void RaporcuWindow::take(const Answer &answer) {
    answer_ = answer;
    tabs_->setEnabled(true);
    stale_ = {picture_, tables_, combinations_, steel_, report_, sweep_};
    source_->setEnabled(answer_->hasFiles);
    if (!answer_->hasFiles)
        source_->setCurrentIndex(0);
    showStale(tabs_->currentWidget());
    tellState();
}

void RaporcuWindow::finish(const QString &failure) {
    thread_.join();
    progress_->hide();
    edit_->setEnabled(true);
    anew_->setEnabled(true);
    if (!failure.isEmpty())
        failed(failure);
    else if (answer_)
        tellSize();
}

void RaporcuWindow::showStale(QWidget *page) {
    if (stale_.erase(page) != 0)
        static_cast<Page *>(page)->show(answer_);
}

// Tables and steel are of the consistent analysis.
void RaporcuWindow::showPlace(const ShownPlace &place) {
    source_->setCurrentIndex(0);
    showStale(picture_);
    picture_->showAt(place);
    tabs_->setCurrentWidget(picture_);
}

void RaporcuWindow::takeSource(bool files) {
    picture_->takeSource(files);
    tables_->takeSource(files);
    if (answer_)
        tellState();
}

// Where the model comes from, and what is missing or old.
void RaporcuWindow::tellState() {
    QStringList words;
    words << (answer_->origin == ModelOrigin::Analysed ? QStringLiteral("Model: analiz edildiği hali (.HSP)")
                                                       : QStringLiteral("Model: projenin kendisi; .HSP yok"));
    if (answer_->changed)
        words << QStringLiteral("<b>Model bu analizden sonra değişti</b>");
    if (!answer_->hasFiles)
        words << ToQt(answer_->noFiles);
    words << (source_->currentIndex() == 0
                  ? QStringLiteral("Gösterilen: tutarlı hesap")
                  : QStringLiteral("Gösterilen: Resim ve uç değerler .SON dosyası, ötekiler tutarlı hesap"));
    if (!answer_->settings.turkish.empty())
        words << ToQt(answer_->settings.turkish).toHtmlEscaped();
    state_->setText(words.join(QStringLiteral("   |   ")));
    anew_->setVisible(answer_->changed || !answer_->hasFiles);
}

void RaporcuWindow::tellSize() {
    status_->setText(QStringLiteral("%1 nokta, %2 mesh, %3 denklem")
                         .arg(answer_->tank.nodes.size() - 1)
                         .arg(answer_->tank.meshes.size())
                         .arg(answer_->analysis->facts().equations));
}

// Kept beside the project; where that cannot be written the calculation goes on with them all the same.
void RaporcuWindow::takeCombinations(const std::vector<design::DesignCombination> &combinations) {
    if (!answer_)
        return;
    auto next = std::make_shared<TankAnswer>(*answer_);
    next->settings.settings.combinations = combinations;
    try {
        next->basis = design::MakeBasis(next->settings.settings);
    } catch (const std::exception &) { // combinations that cannot serve: what was stays
        tell(CaughtInTurkish());
        return;
    }
    try {
        design::WriteSettings(stem_ + ".RAP", next->settings.settings);
        next->settings = design::ReadSettings(stem_ + ".RAP");
    } catch (const std::exception &) {
        next->settings.turkish = ".RAP yazılamadı, katsayılar bu pencerede geçerli: " + CaughtInTurkish();
    }
    start(next);
}

void RaporcuWindow::openProject() {
    const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Proje aç"), QFileInfo(ToQt(stem_)).path(),
                                                      QStringLiteral("Projeler (*.POL *.pol)"));
    if (path.isEmpty())
        return;
    if (thread_.joinable())
        thread_.join(); // it reads the model in the store
    const QFileInfo file(path);
    load(FromQt(file.path() + QLatin1Char('/') + file.completeBaseName()));
}

void RaporcuWindow::analyseAnew() {
    step(QStringLiteral("analiz ediliyor"));
    begin([this](int round) {
        const std::string words = services_.analyse(stem_);
        later(round, [this, words] {
            finish({});
            if (words.empty())
                load(stem_);
            else
                tell(words);
        });
    });
}

} // namespace havuz
