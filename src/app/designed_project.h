// The model in the store with its consistent analysis and its checks, as the commands read it.
#pragma once

#include "report/tank_answer.h"

namespace havuz {

// stem: path of the project without extension. What is wrong with the settings beside it is a line on standard error. A
// model that cannot be analysed is an AnalysisFailure.
TankAnswer DesignModel(const std::string &stem);

} // namespace havuz
