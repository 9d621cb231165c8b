// The platform around the forms: drawing surfaces, the pointer, the screen, files, programs, the end.
#include "model/failure.h"
#include "model/files.h"
#include "ui/kit/vek_form.h"
#include "ui/qt/programs.h"
#include "ui/qt/qt_window.h"
#include "ui/qt/settings.h"
#include "ui/qt/text.h"
#include "ui/window/help_page.h"
#include "ui/window/sound_switch.h"

#include <QApplication>
#include <QCursor>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QScreen>
#include <QStandardPaths>
#include <QUrl>
#include <cstdio>

namespace havuz {

static constexpr int kOverviewPart = 5; // the overview's picture is one fifth of the surface

// Surfaces

Surface &QtWindow::Canvas(Element picture) {
    const auto view = views_.find(own(picture));
    if (view == views_.end())
        throw RuntimeFailure(
            {.fault = Fault::Unknown, .thing = Thing::WindowElement, .text = std::string(picture.name)});
    return view->second->surface();
}

void QtWindow::ResizeSurface(int width, int height) { views_[kScr]->takeSize(width, height); }

void QtWindow::CopyPicture(Element from, Element to) {
    SurfaceView &source = *views_[own(from)], &target = *views_[own(to)];
    target.takeSize(std::max(1, source.surface().width() / kOverviewPart),
                    std::max(1, source.surface().height() / kOverviewPart));
    target.surface().drawScaled(source.surface().image());
    target.setFixedSize(target.surface().width(), target.surface().height());
}

// Pointer

void QtWindow::SetPointerShape(PointerShape shape) {
    SurfaceView &scr = *views_[kScr];
    switch (shape) {
    case PointerShape::Default:
        return scr.unsetCursor();
    case PointerShape::NorthSouth:
        return scr.setCursor(Qt::SizeVerCursor);
    case PointerShape::WestEast:
        return scr.setCursor(Qt::SizeHorCursor);
    case PointerShape::FourWay:
        return scr.setCursor(Qt::SizeAllCursor);
    }
}

// A button that is held keeps the pointer's events at the surface by itself.
void QtWindow::ConfinePointer(bool /*confined*/) {}

Place QtWindow::PointerPosition() {
    const QPoint at = QCursor::pos();
    return {static_cast<double>(at.x()), static_cast<double>(at.y())};
}

Element QtWindow::ElementAt(Place position) {
    return elementOf(QApplication::widgetAt(qRound(position.left), qRound(position.top)));
}

// Screen

int QtWindow::ScreenWidth() { return main_->screen()->size().width(); }
int QtWindow::ScreenHeight() { return main_->screen()->size().height(); }
double QtWindow::TwipsPerPixel() { return 15.0; }

// Programs, files, the end

bool QtWindow::AnotherInstanceRuns() {
    QString directory = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (directory.isEmpty())
        directory = QDir::tempPath();
    instance_ = std::make_unique<QLockFile>(QDir(directory).filePath(QStringLiteral("havuz.lock")));
    instance_->setStaleLockTime(0);
    return !instance_->tryLock(0) && instance_->error() == QLockFile::LockFailedError;
}

std::string QtWindow::AskSaveName(const SaveQuestion &question) {
    const QString name = QDir(ToQt(question.directory)).filePath(ToQt(question.name));
    std::string answer = FromQt(QFileDialog::getSaveFileName(main_.get(), ToQt(question.title), name));
    Do({.kind = Act::Answer, .text = answer});
    return answer;
}

// A name of the older platform stands for the file of that name where there is one, else for our own output program.
static std::string ProgramOf(const std::string &program) {
    const std::string found = FindFile(program);
    if (FileExists(found) || !ToQt(program).endsWith(QLatin1String("RAPORCU.EXE"), Qt::CaseInsensitive))
        return found;
    return FromQt(QCoreApplication::applicationDirPath()) + "/havuz-raporcu";
}

void QtWindow::StartProgram(const std::string &program, const std::string &argument) {
    const std::string own = ProgramOf(program);
    if (!StartDetached(own, {argument}))
        ReportError("havuz: " + own + ": cannot be started");
}

void QtWindow::OpenHelp(const std::string &path) {
    const std::string page = HelpPage(path);
    if (!page.empty())
        QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(page)));
}

void QtWindow::SetChecked(Element element, bool checked) {
    WindowState::SetChecked(element, checked);
    if (state(element).look == FieldLook::Remembered)
        RememberSound(checked);
}

void QtWindow::RememberProject(const std::string &path) { RememberRecentProject(ToQt(path)); }

void QtWindow::ServeEvents() {
    views_[kScr]->update();
    views_[kVekProgBar]->update();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtWindow::ReportError(const std::string &line) { std::fprintf(stderr, "%s\n", line.c_str()); }

void QtWindow::EndProgram(int status) { throw ProgramEnd{status}; }

} // namespace havuz
