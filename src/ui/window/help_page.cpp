#include "ui/window/help_page.h"

#include "model/files.h"

#include <filesystem>

namespace havuz {

static std::string FirstLine(const std::string &text) {
    const std::string line = text.substr(0, text.find_first_of("\r\n"));
    return line.substr(0, line.find_last_not_of(" \t") + 1);
}

std::string HelpPage(const std::string &helpFile) {
    const std::string page = FirstLine(ReadWholeFile(helpFile));
    if (page.empty())
        return "";
    const std::string path = (std::filesystem::path(helpFile).parent_path() / LocalPath(page)).generic_string();
    return FileExists(path) ? FindFile(path) : "";
}

} // namespace havuz
