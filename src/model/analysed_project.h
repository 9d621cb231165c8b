// The project as it was analysed, ".HSP" beside the result files: by it results are told from those of an older model.
#pragma once

#include <string>

namespace havuz {

// The model in the store as the bytes of a project file with springs that fit it. The model stays as it is. A mesh
// that names a node outside its table is Subscript.
std::string AnalysedText();

// Whether project.SON (path without extension) is there, and is of the model in the store: only then project.HSP is
// its text to the byte.
enum class ResultState { None, Older, Current };
ResultState ResultsBeside(const std::string &project);

} // namespace havuz
