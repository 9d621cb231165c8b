// Every test begins with the program as a fresh start leaves it, by this listener and not by a line of its own.
#include "support.h"

#include <gtest/gtest.h>

namespace havuz {

namespace {

class FreshStart : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo & /*test*/) override { ResetAll(); }
};

const bool kListening = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new FreshStart); // which deletes it
    return true;
}();

} // namespace

} // namespace havuz
