#include "VantrelCore/windows/LoneMoveEvidence.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using namespace std::chrono_literals;

TEST(LoneMove, IsAProgramsIfTheWindowStoodStillLongAndMovesAloneAndNotByUs) {
    struct Case {
        const char* what;
        std::chrono::milliseconds at;
        std::optional<std::chrono::milliseconds> other;
        std::chrono::milliseconds ours;
        bool isPrograms;
    };
    const Case cases[] = {
        {"a script", 2s, {}, 0s, true},
        {"a late window manager", 1999ms, {}, 0s, false},
        {"with another just before", 5s, 4700ms, 0s, false},
        {"with another just after", 5s, 5300ms, 0s, false},
        {"another at another time", 5s, 5301ms, 0s, true},
        {"we moved it", 5s, {}, 4s, false},
    };
    for (const auto& [what, at, other, ours, isPrograms] : cases) {
        const LoneMoveEvidence::Time start{};
        LoneMoveEvidence evidence(start);
        if (other && *other < at) {
            evidence.noteOther(start + *other);
        }
        evidence.noteMove(start + at, start + ours);
        EXPECT_FALSE(evidence.isSeen(start + at + 300ms)) << "another window may follow";
        if (other && *other > at) {
            evidence.noteOther(start + *other);
        }
        EXPECT_EQ(evidence.isSeen(start + at + 400ms), isPrograms) << what;
        evidence.noteMove(start + at + 1s, start + ours);
        EXPECT_EQ(evidence.isSeen(start + 1h), isPrograms) << what;
    }
}

} // namespace
} // namespace vantrel
