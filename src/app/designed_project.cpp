#include "app/designed_project.h"

#include <iostream>

namespace havuz {

TankAnswer DesignModel(const std::string &stem) {
    TankAnswer answer = AnswerOfModel(stem);
    if (!answer.settings.english.empty())
        std::cerr << answer.settings.english << "\n";
    AnalyseAnswer(answer);
    return answer;
}

} // namespace havuz
