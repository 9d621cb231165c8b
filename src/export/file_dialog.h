// The file dialog that asks where an export goes.
#pragma once

#include <string>

namespace havuz {

class FileDialog {
public:
    virtual ~FileDialog() = default;
    // Runs as a save dialog: the chosen path, or "" when it was cancelled. It adds no extension.
    virtual std::string AskSaveName(const std::string &title, const std::string &directory,
                                    const std::string &name) = 0;
};

} // namespace havuz
