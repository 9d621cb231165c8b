// Where a failure was met, for the procedures that cannot know it: a field refuses a number wherever it stands.
#pragma once

#include "model/failure.h"

namespace havuz {

// From a handler of the failure: it once more, with this place where it names none of its own and is none of a file.
[[noreturn]] void FailAt(const RuntimeFailure &failure, const Spot &where);

template <class Job>
void AtPlace(const Spot &where, Job job) {
    try {
        job();
    } catch (const RuntimeFailure &failure) {
        FailAt(failure, where);
    }
}

} // namespace havuz
