#include "ui/window/window_title.h"

#include <filesystem>

namespace havuz {

static std::string Directory(const std::string &path, const std::string &home) {
    const std::string directory = std::filesystem::path(path).parent_path().generic_string();
    const bool below = !home.empty() && directory.rfind(home, 0) == 0 &&
                       (directory.size() == home.size() || directory[home.size()] == '/');
    return below ? "~" + directory.substr(home.size()) : directory;
}

std::string WindowTitle(const std::string &path, bool changed, const std::string &home) {
    const std::string mark = changed ? "*" : "";
    if (path.empty())
        return changed ? "adsız* - HAVUZ" : "HAVUZ";
    const std::string directory = Directory(path, home);
    return std::filesystem::path(path).filename().generic_string() + mark +
           (directory.empty() ? "" : " - " + directory) + " - HAVUZ";
}

} // namespace havuz
