// What a person can choose to see of an answer: combinations, those solved anew without tension in the ground, load
// cases, and the envelopes over the combinations; and the picture of each. Works on values.
#pragma once

#include "report/result_picture.h"
#include "report/tank_answer.h"

namespace havuz {

struct PictureResult {
    enum Kind { Combination, WithoutTension, Envelope, LoadCase };
    Kind kind = Combination;
    std::string key; // "test", "test/free", "envelope-most", "envelope-least-u", "L"
    std::string turkish;
    bool factored = false, greatest = true; // of an envelope: over which combinations, and which side
};

// Combinations first, then those without tension where springs pulled, the envelopes (in service, and factored where
// there are such), and the cases that load something.
std::vector<PictureResult> PictureResults(const TankAnswer &answer);

// The one result behind a choice; nullptr for an envelope.
const consistent::CaseResult *CaseOf(const TankAnswer &answer, const PictureResult &shown);

// The combinations that an envelope is over.
std::vector<const consistent::CaseResult *> EnvelopeMembers(const TankAnswer &answer, bool factored);

// The picture; of an envelope the greatest or the least of its members at each corner, without deformation.
ResultScene SceneOf(const TankAnswer &answer, const PictureResult &shown, const Quantity &quantity,
                    const PictureChoice &choice);

} // namespace havuz
