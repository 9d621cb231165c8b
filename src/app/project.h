// A project on the command line: the program started without a window, the file opened and stored, its paths.
#pragma once

#include "model/project_window.h"

#include <string>

namespace havuz {

// Path of the running program itself.
std::string OwnProgram();

// A fresh program, as its start leaves it.
void BeginProgram();

// A fresh program with the project in it. CalismaDizini becomes the directory of the file, ProjeYolu its full path
// without the extension, ProjeAdi its name up to the first ".".
void OpenProject(const std::string &path);

// CalismaDizini, ProjeYolu and ProjeAdi of a project file.
void TakeProjectPaths(const std::string &path);

// Saves as the save dialog does: springs rebuilt, an old file replaced whole. The window is told of what is enabled.
void StoreProject(const std::string &path);
void StoreProject(const std::string &path, ProjectWindow &window);

// Where a command that changes a project saves it: out as it is written, else the file that was read, found whatever
// the case of its name.
std::string SaveTarget(const std::string &file, const std::string &out);

// A picture or an export over the project that it shows is File; also by a link.
void RefuseProjectAsTarget(const std::string &project, const std::string &out);

// Full path of a project file without its extension: a "." in a directory name does no harm here.
std::string ProjectStem(const std::string &path);

} // namespace havuz
