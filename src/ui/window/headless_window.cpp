#include "ui/window/headless_window.h"

#include "model/failure.h"
#include "view/blank_surface.h"

namespace havuz {

namespace {

constexpr double kFormWidth = 3000.0; // twips: every form is as wide
constexpr int kProgressWidth = 200, kProgressHeight = 20;

} // namespace

double HeadlessWindow::FormWidth(std::string_view form) {
    formState(form);
    return kFormWidth;
}

Surface &HeadlessWindow::Canvas(Element picture) {
    if (picture == kScr)
        return scr_;
    const Element name = own(picture);
    std::unique_ptr<Surface> &canvas = canvases_[name];
    const bool outgrown = picture == kOverviewPicture && canvas != nullptr &&
                          (canvas->width() != scr_.width() / 5 || canvas->height() != scr_.height() / 5);
    if (canvas == nullptr || outgrown)
        canvas = picture == kOverviewPicture ? std::make_unique<BlankSurface>(scr_.width() / 5, scr_.height() / 5)
                                             : std::make_unique<BlankSurface>(kProgressWidth, kProgressHeight);
    return *canvas;
}

void HeadlessWindow::ResizeSurface(int width, int height) {
    surfaceWidth = width;
    surfaceHeight = height;
}

std::string HeadlessWindow::AskSaveName(const SaveQuestion &question) {
    questions.push_back(question);
    std::string name;
    if (!saveNames.empty()) {
        name = saveNames.front();
        saveNames.pop_front();
    }
    Do({.kind = Act::Answer, .text = name});
    return name;
}

void HeadlessWindow::StartProgram(const std::string &program, const std::string &argument) {
    if (programsStart)
        started.push_back({program, argument});
    else
        ReportError("havuz: " + program + ": cannot be started");
}

void HeadlessWindow::EndProgram(int status) { throw ProgramEnd{status}; }

// Hovering is all that places the pointer here.
bool HeadlessWindow::Do(const Act &act) {
    if (act.kind == Act::Hover && reachable(act.element))
        underPointer = own(act.element);
    return WindowState::Do(act);
}

} // namespace havuz
