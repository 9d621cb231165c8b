// Paths and whole files. Paths of the program's own world ("C:\VEK9V12", "\WORKING.DIR") map to the local system here;
// files are read whole (write_file.h writes them).
#pragma once

#include <string>
#include <string_view>

namespace havuz {

// "\" becomes "/", a drive is dropped, a leading "~" is the user's home.
std::string LocalPath(std::string_view path);

// The path itself when it exists, else the entry of its directory whose name is the same but for the case of its
// letters, else the path as given.
std::string FindFile(const std::string &path);

bool FileExists(const std::string &path);
bool DirectoryExists(const std::string &path);

// The path up to the first "." in it: a "." in a directory name cuts there too, and that is wanted.
std::string UpToFirstDot(const std::string &path);

// The bytes of the file. A file that cannot be read, or is larger than any file of this program can be, is File.
std::string ReadWholeFile(const std::string &path);

} // namespace havuz
