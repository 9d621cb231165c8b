// The help file: one line of text, the path of the help's first page from the file's own directory.
#pragma once

#include <string>

namespace havuz {

// Path of the first page that the help file names, "" when it names none that is there. A help file that cannot be read
// is File.
std::string HelpPage(const std::string &helpFile);

} // namespace havuz
