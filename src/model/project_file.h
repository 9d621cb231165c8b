// The project file ".POL": the whole persistent state of a model as one text file of comma-separated fields, lines
// ended by CR LF, in Windows-1254. Which field of which record is kept is said in project_file.cpp, once, for reading
// and writing alike.
#pragma once

#include "model/project_window.h"

#include <optional>
#include <string>

namespace havuz {

// Reads the file into the model, which has been cleared before. A file that ends after a whole line leaves the rest of
// the model as it was. A file that cannot be opened, or ends inside a line, is File; a field that is no number is
// BadNumber; a number that its field cannot hold is Overflow; a count or number that leaves its table is Subscript:
// each names path, line and field. Sets ProjeYolu, GorunusModu and the window's commands.
void LoadProject(const std::string &path, ProjectWindow &window);

// The same of a file's text; path is its name in failures.
void LoadProjectText(const std::string &path, const std::string &text, ProjectWindow &window);

// Rebuilds the springs and writes the file, replacing one that exists, which becomes PATH~ unless it is the same; a
// failing write leaves the old file whole. Sets ProjeYolu.
void SaveProject(const std::string &path, ProjectWindow &window);

// The title as the file gives it back: nothing when it breaks the reading of the whole file, as a comma does.
std::optional<std::string> TitleAsRead();

// ProjeYolu of a file: its directory and its name up to the first "." in the name.
std::string ProjectPath(const std::string &file);

// The same bytes as text, for a comparison without a file.
std::string ProjectText();

} // namespace havuz
