// The title of the main window: the project, its directory, and whether the model differs from its file.
#pragma once

#include <string>

namespace havuz {

// "Gebze 12x6* - ~/Havuz - HAVUZ". path: of the project up to its extension, "" for a model without a name. home: the
// user's, told as "~".
std::string WindowTitle(const std::string &path, bool changed, const std::string &home);

} // namespace havuz
