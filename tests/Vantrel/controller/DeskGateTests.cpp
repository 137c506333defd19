#include "Vantrel/controller/DeskGate.h"
#include "tests/simulated/SimulatedTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

namespace vantrel::simulated {
namespace {

using ::testing::ElementsAre;

struct OfADesk : ::testing::Test {
    SimulatedTime time;
    std::vector<std::string> lines;
    DeskGate gate{time, time, [this](const std::string& line) { lines.push_back(line); }};
};

using Step = void (*)(DeskGate& gate);

constexpr Step change = [](DeskGate& gate) { gate.displaysBeganChanging(); };
constexpr Step settle = [](DeskGate& gate) { gate.displaysSettled(); };
constexpr Step sleep = [](DeskGate& gate) { gate.fallAsleep(); };
constexpr Step wake = [](DeskGate& gate) { gate.wakeUp(); };
constexpr Step lock = [](DeskGate& gate) { gate.lockSession(); };
constexpr Step unlock = [](DeskGate& gate) { gate.unlockSession(); };
constexpr Step resume = [](DeskGate& gate) { gate.resumeLearningAfter(0); };
constexpr Step resumeLater = [](DeskGate& gate) { gate.resumeLearningAfter(10); };
constexpr Step beginRestore = [](DeskGate& gate) { gate.beginRestore(); };
constexpr Step moved = [](DeskGate& gate) { gate.noteWindowsMoved(); };
constexpr Step endRestore = [](DeskGate& gate) { gate.endRestore(); };
constexpr Step beginPass = [](DeskGate& gate) { gate.beginPass(); };
constexpr Step edit = [](DeskGate& gate) { gate.noteEdit(); };

TEST(DeskGate, OnlyAPromiseThatStillHoldsResumesLearning) {
    const std::tuple<std::vector<Step>, double, bool> cases[] = {
        {{}, 0, true},
        {{change, settle}, 60, false},
        {{change, settle, resumeLater}, 9, false},
        {{change, settle, resumeLater}, 10, true},
        // The longer of two promises holds.
        {{change, settle, resumeLater, resume}, 9, false},
        {{change, settle, resumeLater, resume}, 10, true},
        // A newer disturbance needs a newer promise.
        {{change, settle, resumeLater, change, settle}, 60, false},
        {{change, settle, resumeLater, wake}, 60, false},
        {{change, wake, resume}, 60, false},
        // Nobody learns while the user is away.
        {{sleep, resume}, 60, false},
        {{lock, resume}, 60, false},
        {{sleep, lock, wake, resume}, 60, false},
        {{change, settle, resumeLater, lock}, 60, false},
        {{sleep, lock, wake, unlock, resume}, 0, true},
        {{beginPass}, 0, false},
        {{beginRestore, moved}, 0, false},
        {{beginRestore, moved, endRestore}, 0, true},
    };
    for (int row = 0; const auto& [steps, seconds, mayCapture] : cases) {
        ++row;
        SimulatedTime time;
        DeskGate gate(time, time, {});
        for (const Step step : steps) {
            step(gate);
        }
        time.runFor(seconds);
        EXPECT_EQ(gate.mayCapture(), mayCapture) << "row " << row;
    }
}

TEST_F(OfADesk, AMomentKnowsWhatHasHappenedSince) {
    // Undisturbed, same desk, unmoved, unedited.
    const std::tuple<Step, bool, bool, bool, bool> cases[] = {
        {change, false, false, true, true},      {settle, true, true, true, true},
        {sleep, true, true, true, true},         {wake, false, false, true, true},
        {lock, true, true, true, true},          {unlock, false, true, true, true},
        {beginRestore, true, true, false, true}, {moved, true, true, false, true},
        {endRestore, true, true, true, true},    {edit, true, true, true, false},
    };
    for (int row = 0; const auto& [step, isUndisturbed, isSameDesk, isUnmoved, isUnedited] : cases) {
        ++row;
        const auto since = gate.now();
        step(gate);
        EXPECT_EQ(std::tuple(gate.isUndisturbed(since), gate.isSameDesk(since), gate.isUnmoved(since),
                             gate.isUnedited(since)),
                  std::tuple(isUndisturbed, isSameDesk, isUnmoved, isUnedited))
            << "row " << row;
    }
}

TEST_F(OfADesk, WaitingWorkRunsOnceAfterThePassEvenWhenSomeOfItThrows) {
    std::vector<std::string> done;
    gate.onPassEnded = [&] { done.emplace_back(gate.isPassUnderWay() ? "still under way" : "ended"); };
    gate.beginPass();
    gate.afterPass([] { throw std::runtime_error("no luck"); });
    gate.afterPass([&] {
        done.emplace_back("first");
        gate.afterPass([&] { done.emplace_back("second"); });
    });
    gate.endPass();
    EXPECT_THAT(done, ElementsAre("ended", "first"));
    EXPECT_THAT(lines, ElementsAre(::testing::HasSubstr("no luck")));
    gate.endPass();
    EXPECT_THAT(done, ElementsAre("ended", "first", "ended", "second"));
}

} // namespace
} // namespace vantrel::simulated
