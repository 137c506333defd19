#include "Vantrel/platform/x11/UserMoveEvidence.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using namespace std::chrono_literals;
using Focus = UserMoveEvidence::Focus;
using Mover = UserMoveEvidence::Mover;

constexpr Rect home{{100, 100}, {400, 300}};
constexpr Rect moved{{150, 100}, {400, 300}};
constexpr Rect resized{{150, 100}, {420, 300}};

struct UserMove : testing::Test {
    UserMoveEvidence evidence{home};
    UserMoveEvidence::Time start{};
};

TEST_F(UserMove, IsOneThatHappensDuringAKeyboardGrab) {
    EXPECT_EQ(evidence.noteArea(moved, start), Mover::unknown);
    evidence.noteFocus(Focus::grabbed, start);
    // Raised, as a click does it.
    EXPECT_EQ(evidence.noteArea(moved, start), Mover::nobody);
    EXPECT_FALSE(evidence.isUsers());
    EXPECT_EQ(evidence.noteArea(resized, start + 60s), Mover::user);
    evidence.noteFocus(Focus::other, start + 61s);
    EXPECT_EQ(evidence.noteArea(home, start + 99s), Mover::user) << "it stays the user's";
}

TEST_F(UserMove, MayComeJustAfterTheGrabButNotLater) {
    evidence.noteFocus(Focus::other, start);
    EXPECT_EQ(evidence.noteArea(moved, start + 1ms), Mover::unknown) << "nothing was grabbed";
    evidence.noteFocus(Focus::grabbed, start);
    evidence.noteFocus(Focus::other, start + 2s);
    EXPECT_EQ(evidence.noteArea(resized, start + 2251ms), Mover::unknown);
    EXPECT_FALSE(evidence.isUsers());
    EXPECT_EQ(evidence.noteArea(home, start + 2250ms), Mover::user);
}

TEST_F(UserMove, IsOneWithAPressedButtonOverTheWindow) {
    EXPECT_EQ(evidence.noteArea(moved, start), Mover::unknown);
    evidence.notePressedOver();
    EXPECT_TRUE(evidence.isUsers());
}

} // namespace
} // namespace vantrel
