// The window on a desktop: the state and its rules, shown by Qt widgets and worked by a person's hands. Whatever a
// person does becomes an act of the state; whatever the state becomes is shown. Needs a QApplication.
#pragma once

#include "ui/qt/form_layout.h"
#include "ui/window/window_state.h"

#include <QLockFile>
#include <QObject>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace havuz {

class Button;
class VekForm;

class QtWindow : public QObject, public WindowState, private PersonInput {
public:
    QtWindow();
    ~QtWindow() override;

    // The window is ready for a person, once the program has started.
    void begin();
    // Lets a person work until the program ends; its status.
    int run();
    // Does what throws ProgramEnd when the program ends; the window takes note of it. False when it has ended.
    bool handle(const std::function<void()> &job);

    bool ended() const { return ended_; }
    int status() const { return status_; }

    QWidget *widget(Element element) const; // none: nullptr
    QWidget *formWidget(std::string_view form) const;
    QWidget *recentButton() const; // opens the menu of the recent projects

    // Window
    void MakeForm(const FormFields &form) override;
    void ShowForm(std::string_view form, Place place, Modality modality, bool onTop) override;
    void HideForm(std::string_view form) override;
    Place FormPlace(std::string_view form) override;
    double FormWidth(std::string_view form) override;
    void SetCaption(std::string_view form, const std::string &caption) override;
    void Minimise(std::string_view form) override;
    void Move(Element element, double left, double top) override;
    void Focus(Element element) override;
    void SelectText(Element box, int start, int length) override;
    Surface &Canvas(Element picture) override;
    void ResizeSurface(int width, int height) override;
    void CopyPicture(Element from, Element to) override;
    void SetPointerShape(PointerShape shape) override;
    void ConfinePointer(bool confined) override;
    Place PointerPosition() override;
    Element ElementAt(Place position) override;
    int ScreenWidth() override;
    int ScreenHeight() override;
    double TwipsPerPixel() override;
    bool AnotherInstanceRuns() override;
    std::string AskSaveName(const SaveQuestion &question) override;
    void StartProgram(const std::string &program, const std::string &argument) override;
    void OpenHelp(const std::string &path) override;
    void RememberProject(const std::string &path) override;
    void SetChecked(Element element, bool checked) override; // remembers the switch of the top bar
    void ServeEvents() override;
    void ReportError(const std::string &line) override;
    [[noreturn]] void EndProgram(int status) override;

private:
    // PersonInput
    void clicked(Element element) override;
    void hovered(Element element) override;
    void typed(Element box, const std::string &text) override;
    void chosen(Element list, int item) override;
    void confirmed(Element list, int item) override;
    void scrolled(Element bar, int value) override;

    void changed(Element element) override;
    bool eventFilter(QObject *object, QEvent *event) override;
    bool keyPressed(Element element, int key, bool plain);
    void focusTaken(Element element);
    void pressed(const QWidget &at);
    Element elementOf(const QWidget *widget) const; // no name: none of ours

    void show(Element element);
    void showLines(std::string_view form);
    void placeMarker(Element marker);
    void followFocus();
    void fitSurface();
    void settle();

    SurfaceView *makeView(Element picture, QWidget *form);
    void takePointer(Element picture, SurfaceView &view);
    void makeMainExtras(VekForm &main);
    void placeForm(VekForm &form, Place place);
    void showRecent();

    std::map<std::string, VekForm *, std::less<>> forms_;
    std::map<Element, PlacedField> made_;
    std::map<Element, SurfaceView *> views_;
    std::unique_ptr<QWidget> main_; // owns all forms
    Button *recent_ = nullptr;
    QWidget *lastClicked_ = nullptr;
    QTimer timer_;
    QTimer fit_; // a while after the last change of size
    std::unique_ptr<QLockFile> instance_;
    Element typing_; // the box that a person is typing into
    bool busy_ = false, following_ = false, ended_ = false, started_ = false, running_ = false;
    int status_ = 0;
};

} // namespace havuz
