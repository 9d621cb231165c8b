// The working directory of an installed program: the program directory is shared and read only there, so that
// WORKING.DIR names a directory in the user's home, which the first start makes.
#pragma once

#include <string>

namespace havuz {

// Comes before the start sequence. Where WORKING.DIR of the program directory names a directory by "~", the directory
// is made when it is not there, and "WORKING" in it when that is not there: a copy of the one in VEK9DATA of the
// program directory, or one text. Any other WORKING.DIR, or none, and a system without a home: nothing happens.
// executable: path of the program. A directory or file that cannot be made is File.
void PrepareWorkingDirectory(const std::string &executable);

} // namespace havuz
