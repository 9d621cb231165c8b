// Forms and elements: made once, shown as the state says.
#include "ui/qt/qt_window.h"

#include "ui/kit/button.h"
#include "ui/kit/vek_form.h"
#include "ui/qt/settings.h"
#include "ui/qt/text.h"
#include "ui/window/sound_switch.h"

#include <QApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QScreen>
#include <algorithm>

static void LoadPictures() { Q_INIT_RESOURCE(icons); }

namespace havuz {

static constexpr double kTwips = 15.0;             // to a device-independent pixel
static constexpr int kTimer = 100, kFitDelay = 30; // ms
static constexpr int kProgressWidth = 200, kProgressHeight = 20;

QtWindow::QtWindow() {
    LoadPictures();
    qApp->installEventFilter(this);
    connect(&timer_, &QTimer::timeout, this, [this] { handle([this] { Tick(); }); });
    fit_.setSingleShot(true);
    fit_.setInterval(kFitDelay);
    connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationInactive && leavesBehind())
            handle([this] { Leave(); });
    });
    connect(&fit_, &QTimer::timeout, this, [this] { handle([this] { fitSurface(); }); });
}

QtWindow::~QtWindow() {
    qApp->removeEventFilter(this);
    if (main_ != nullptr)
        RememberPlace(main_->saveGeometry());
}

// Popup and overview, which hide when the program is left.
bool QtWindow::leavesBehind() const {
    const auto shown = [](const auto &form) { return form.second->isVisible() && form.second->leavesWithActivation; };
    return started_ && std::any_of(forms_.begin(), forms_.end(), shown);
}

void QtWindow::begin() {
    started_ = true;
    timer_.start(kTimer);
    fit_.start();
    views_[kScr]->setFocus();
}

int QtWindow::run() {
    if (!ended_) {
        begin();
        running_ = true;
        QApplication::exec();
    }
    return status_;
}

// Making

static Qt::WindowFlags FlagsOf(FormKind kind) {
    constexpr auto titled = Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
    switch (kind) {
    case FormKind::Main:
        return Qt::Window;
    case FormKind::Popup:
        return Qt::Tool | Qt::FramelessWindowHint;
    case FormKind::Overview:
    case FormKind::Palette:
        return Qt::Tool | titled;
    default:
        return Qt::Dialog | titled;
    }
}

void QtWindow::MakeForm(const FormFields &form) {
    WindowState::MakeForm(form);
    if (form.kind == FormKind::Hidden)
        return;
    auto *window = new VekForm(ToQt(form.name), main_.get(), FlagsOf(form.kind));
    if (form.kind == FormKind::Main)
        main_.reset(window);
    window->leavesWithActivation = form.kind == FormKind::Popup || form.kind == FormKind::Overview;
    if (form.kind == FormKind::Palette)
        window->setAttribute(Qt::WA_ShowWithoutActivating);
    forms_[form.name] = window;
    window->setWindowTitle(form.caption.empty() ? QStringLiteral("HAVUZ") : ToQt(form.caption));
    const std::string_view name = forms_.find(form.name)->first;
    window->closeAsked = [this, name] { handle([&] { CloseForm(name); }); };
    window->activated = [this, name] { handle([&] { activate(name); }); };
    window->restored = [this, name] { handle([&] { Restore(name); }); };
    std::vector<PlacedField> fields;
    SurfaceView *view = nullptr;
    for (const Field &field : form.fields) {
        const Element element = own({form.name, field.name, field.index});
        fields.push_back({field, element, MakeWidget(field, element, window, *this)});
        made_[element] = fields.back();
        if (field.kind == FieldKind::Picture)
            view = field.look == FieldLook::Progress ? view : makeView(element, window);
    }
    if (form.kind == FormKind::Main) {
        makeMainExtras(*window);
        LayOutMain(*window, fields, *view, *views_[own(kVekProgBar)], *recent_);
    } else {
        LayOutForm(form.kind, *window, fields, view);
    }
    for (const PlacedField &placed : fields)
        show(placed.element);
    if (form.kind == FormKind::Main && RememberedSound())
        SetChecked(own(kSoundSwitch), true);
}

SurfaceView *QtWindow::makeView(Element picture, QWidget *form) {
    auto *view = new SurfaceView(form);
    views_[picture] = view;
    made_[picture].made.widget = view;
    takePointer(picture, *view);
    return view;
}

void QtWindow::makeMainExtras(VekForm &main) {
    SurfaceView *progress = makeView(own(kVekProgBar), &main);
    progress->pointer = {};
    progress->takeSize(kProgressWidth, kProgressHeight);
    progress->setFixedSize(kProgressWidth, kProgressHeight);
    recent_ = new Button(&main);
    recent_->put(bag::kPicture, QStringLiteral("topbar-recent"));
    recent_->put(bag::kSize, QSize(22, 22));
    recent_->put(bag::kCaption, QStringLiteral("Son projeler"));
    recent_->setToolTip(QStringLiteral("son açılan projeler"));
    connect(recent_, &QAbstractButton::clicked, this, [this] { showRecent(); });
    main.dropped = [this](const QString &path) { handle([&] { OpenFile(FromQt(path)); }); };
}

QWidget *QtWindow::widget(Element element) const {
    const auto made = made_.find(element);
    return made == made_.end() ? nullptr : made->second.made.widget;
}

QWidget *QtWindow::formWidget(std::string_view form) const {
    const auto made = forms_.find(form);
    return made == forms_.end() ? nullptr : made->second;
}

QWidget *QtWindow::recentButton() const { return recent_; }

// Showing

void QtWindow::show(Element element) {
    const auto made = made_.find(element);
    if (made == made_.end())
        return;
    const ElementState &now = state(element);
    const ElementWidget &shown = made->second.made;
    if (now.kind == FieldKind::Line)
        return showLines(element.form);
    if (shown.widget == nullptr)
        return;
    if (shown.show && !(element == typing_))
        shown.show(now);
    shown.widget->setEnabled(now.enabled);
    shown.widget->setVisible(now.shown);
    if (shown.beside != nullptr)
        shown.beside->setVisible(now.shown);
    if (busy_ && now.look == FieldLook::Floating)
        shown.widget->repaint(); // also in a job that lets no events through
}

void QtWindow::showLines(std::string_view form) {
    const auto view = std::find_if(views_.begin(), views_.end(), [&](const auto &made) {
        return made.first.form == form && state(made.first).look != FieldLook::Progress;
    });
    if (view == views_.end())
        return;
    std::vector<ElementState> lines;
    for (const auto &[element, placed] : made_)
        if (element.form == form && placed.field.kind == FieldKind::Line && state(element).shown)
            lines.push_back(state(element));
    view->second->showLines(std::move(lines));
}

// The options that it excludes change with it.
void QtWindow::changed(Element element) {
    if (state(element).kind != FieldKind::Option)
        return show(element);
    for (const auto &[other, placed] : made_)
        if (other.form == element.form && placed.field.kind == FieldKind::Option)
            show(other);
}

// Cells stand where the layout puts them; the row marker follows them.
void QtWindow::Move(Element element, double left, double top) {
    WindowState::Move(element, left, top);
    if (const auto made = made_.find(element); made != made_.end() && made->second.field.look == FieldLook::Marker)
        placeMarker(element);
    else
        show(element);
}

// Beside the cell with the greatest told top above its own.
void QtWindow::placeMarker(Element marker) {
    QWidget *beside = nullptr;
    double top = 0.0;
    for (const auto &[element, placed] : made_)
        if (element.form == marker.form && placed.field.kind == FieldKind::TextBox && state(element).top > top &&
            state(element).top <= state(marker).top) {
            top = state(element).top;
            beside = placed.made.widget;
        }
    QWidget *shown = widget(marker);
    if (beside == nullptr || shown == nullptr)
        return;
    shown->window()->layout()->activate();
    shown->adjustSize();
    shown->move(6, beside->y() + (beside->height() - shown->height()) / 2);
    shown->raise();
}

// Forms

static QRect ScreenOf(const QWidget *main) {
    const QScreen *screen = main != nullptr ? main->screen() : QGuiApplication::primaryScreen();
    return screen->geometry();
}

// Twips of the screen, moved so that the whole form is in sight. The popup opens beside what was clicked.
void QtWindow::placeForm(VekForm &form, Place place) {
    form.layout()->activate();
    form.adjustSize();
    QPoint at = ScreenOf(main_.get()).topLeft() + QPoint(qRound(place.left / kTwips), qRound(place.top / kTwips));
    if (form.windowFlags().testFlag(Qt::FramelessWindowHint) && lastClicked_ != nullptr)
        at = lastClicked_->mapToGlobal(QPoint(lastClicked_->width(), 0));
    const QRect free = main_->screen()->availableGeometry();
    const QSize size = form.frameSize();
    form.move(std::clamp(at.x(), free.left(), std::max(free.left(), free.right() + 1 - size.width())),
              std::clamp(at.y(), free.top(), std::max(free.top(), free.bottom() + 1 - size.height())));
}

static void ShowMain(VekForm &main) {
    const QByteArray place = RememberedPlace();
    const QRect free = main.screen()->availableGeometry();
    main.resize(free.size());
    main.move(free.topLeft());
    if (place.isEmpty() || !main.restoreGeometry(place))
        main.setWindowState(Qt::WindowMaximized);
    main.show();
    main.activateWindow();
}

void QtWindow::ShowForm(std::string_view form, Place place, Modality modality, bool onTop) {
    WindowState::ShowForm(form, place, modality, onTop);
    const auto found = forms_.find(form);
    if (found == forms_.end())
        return;
    VekForm &window = *found->second;
    if (&window == main_.get())
        return ShowMain(window);
    window.setWindowModality(modality == Modality::Modal ? Qt::ApplicationModal : Qt::NonModal);
    placeForm(window, place);
    window.show();
    placeForm(window, place); // its frame counts too now
    window.raise();
    if (!window.testAttribute(Qt::WA_ShowWithoutActivating))
        window.activateWindow();
}

void QtWindow::HideForm(std::string_view form) {
    WindowState::HideForm(form);
    QWidget *window = formWidget(form);
    if (window == nullptr)
        return;
    const bool active = window->isActiveWindow();
    window->hide();
    if (QWidget *next = formWidget(front()); active && next != nullptr)
        next->activateWindow(); // also where no window manager does
}

Place QtWindow::FormPlace(std::string_view form) {
    const QWidget *window = formWidget(form);
    if (window == nullptr || !window->isVisible())
        return WindowState::FormPlace(form);
    const QPoint at = window->pos() - ScreenOf(main_.get()).topLeft();
    return {at.x() * kTwips, at.y() * kTwips};
}

double QtWindow::FormWidth(std::string_view form) {
    QWidget *window = formWidget(form);
    return window == nullptr ? 0.0 : window->sizeHint().width() * kTwips;
}

void QtWindow::SetCaption(std::string_view form, const std::string &caption) {
    WindowState::SetCaption(form, caption);
    if (QWidget *window = formWidget(form))
        window->setWindowTitle(ToQt(caption));
}

void QtWindow::Minimise(std::string_view form) {
    WindowState::Minimise(form);
    if (QWidget *window = formWidget(form))
        window->showMinimized();
}

} // namespace havuz
