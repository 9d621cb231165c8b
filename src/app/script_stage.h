// What a script plays on: the whole program on a window without a platform, drawn as a picture. Elements of its forms
// are found from words.
#pragma once

#include "app/script_lines.h"
#include "ui/headless_window.h"
#include "ui/main_window.h"
#include "ui/qt/raster_surface.h"
#include "ui/recorder.h"

#include <stdexcept>
#include <string>

namespace havuz {

// An action that cannot be done or an expectation that does not hold: ends the script with status 1.
class ScriptFailure : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Stage {
    explicit Stage(const std::string &executable) : main(window, executable) {}

    RasterSurface scr{1010, 600}; // pixels, on a screen of 1024 x 768
    HeadlessWindow window{scr};
    MainWindow main;
    Recorder *recorder = nullptr; // where one listens
};

// [FORM] NAME [INDEX]: without a form the main one. NAME is the element's name, or what stands on or beside it, or its
// tooltip. A name that several elements share takes the index, and one that belongs to one element takes none. Of tools
// with the same tooltip, the one in sight. Nothing or more than one found is UsageError.
Element TakeElement(const Stage &stage, Words &words);

bool IsForm(const Stage &stage, const std::string &word);
std::string TakeForm(const Stage &stage, Words &words);

// Whether a person can reach the element: also the panel of a tool is in sight.
bool Reachable(const Stage &stage, Element element);

// The form's only element of a kind. None or several is UsageError.
Element OnlyElement(const Stage &stage, const std::string &form, FieldKind kind);

// "FORM NAME INDEX" for messages.
std::string Named(Element element);

// A path as a script means it: from the working directory.
std::string ScriptPath(const std::string &path);

} // namespace havuz
