// What loading and saving a project ask of the main window. The base does nothing, for programs without one.
#pragma once

#include <optional>
#include <string>

namespace havuz {

class ProjectWindow {
public:
    virtual ~ProjectWindow() = default;
    virtual void EnableAnalysis() {}                     // "FEA analizi"
    virtual void EnableResults(bool /*enabled*/) {}      // "analiz sonuclari"
    virtual void ShowViewPicture(int /*gorunusModu*/) {} // picture of "plak/mesh": 1 plate, 2 mesh
    // the file just saved gives its title back as another one, or cannot be read again (nothing)
    virtual void TellTitle(const std::optional<std::string> & /*asRead*/) {}
};

} // namespace havuz
