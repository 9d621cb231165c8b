// A window without a platform: the state and its rules, with answers for what a platform would be asked. Tests and the
// script player work it; nothing is painted but SCR, on the surface given.
#pragma once

#include "ui/window/window_state.h"

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace havuz {

class HeadlessWindow : public WindowState {
public:
    struct Started {
        std::string program, argument;
        bool operator==(const Started &) const = default;
    };

    explicit HeadlessWindow(Surface &scr) : scr_(scr) {}

    bool Do(const Act &act) override; // the pointer lies where it hovers

    // What it was asked for, and what it answers.
    std::deque<std::string> saveNames; // answers of the file dialog; none left: cancelled
    std::vector<SaveQuestion> questions;
    std::vector<Started> started;
    std::vector<OfferedProject> offered;
    std::vector<std::string> helps, errors, remembered;
    PointerShape pointerShape = PointerShape::Default;
    bool confined = false;
    Place pointer;        // where the pointer is on the screen
    Element underPointer; // what lies under it
    int screenWidth = 1024, screenHeight = 768;
    bool otherInstance = false;
    bool programsStart = true;               // false: none can be started
    int surfaceWidth = 0, surfaceHeight = 0; // last size asked for SCR
    int copies = 0;                          // pictures copied
    int served = 0;                          // times that pending events were let through

    double FormWidth(std::string_view form) override;
    Surface &Canvas(Element picture) override;
    void ResizeSurface(int width, int height) override;
    void CopyPicture(Element /*from*/, Element /*to*/) override { ++copies; }

    void SetPointerShape(PointerShape shape) override { pointerShape = shape; }
    void ConfinePointer(bool on) override { confined = on; }
    Place PointerPosition() override { return pointer; }
    Element ElementAt(Place /*position*/) override { return underPointer; }

    int ScreenWidth() override { return screenWidth; }
    int ScreenHeight() override { return screenHeight; }
    double TwipsPerPixel() override { return 15.0; }
    bool AnotherInstanceRuns() override { return otherInstance; }
    std::string AskSaveName(const SaveQuestion &question) override;
    void StartProgram(const std::string &program, const std::string &argument) override;
    void OfferProjects(const std::vector<OfferedProject> &projects) override { offered = projects; }
    void RememberProject(const std::string &path) override { remembered.push_back(path); }
    void OpenHelp(const std::string &path) override { helps.push_back(path); }
    void ServeEvents() override { ++served; }
    void ReportError(const std::string &line) override { errors.push_back(line); }
    [[noreturn]] void EndProgram(int status) override;

private:
    Surface &scr_;
    std::map<Element, std::unique_ptr<Surface>> canvases_;
};

} // namespace havuz
