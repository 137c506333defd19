#include "Vantrel/controller/MoveScheduler.h"
#include "tests/simulated/SimulatedTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace vantrel::simulated {
namespace {

using ::testing::ElementsAre;

struct Moves : ::testing::Test {
    void restore(const std::string& name) {
        moves.request({.start =
                           [this, name] {
                               begin(name);
                               gate.beginRestore();
                           },
                       .replaced = [this, name] { ++ends[name + " replaced"]; }});
    }
    void pass(const std::string& name) {
        turns.push_back(moves.inTurn([this, name] {
            begin(name);
            gate.beginPass();
        }));
    }
    void begin(const std::string& name) {
        EXPECT_TRUE(gate.isIdle()) << "one move at a time: " << name;
        begun.push_back(name);
        ++ends[name + " began"];
        permit = moves.newPermit();
        EXPECT_FALSE(permit->isRevoked()) << name;
    }
    void endRunning() {
        if (gate.isRestoring()) {
            gate.endRestore();
            moves.startNext();
        } else if (gate.isPassUnderWay()) {
            gate.endPass();
        }
    }

    SimulatedTime time;
    std::vector<std::string> lines;
    DeskGate gate{time, time, {}};
    MoveScheduler moves{gate, [this](const std::string& line) { lines.push_back(line); }};
    std::vector<std::string> begun;
    // How often each move began or was replaced.
    std::map<std::string, int> ends;
    std::vector<std::unique_ptr<ScheduledWork>> turns;
    std::shared_ptr<const MovePermit> permit;
};

TEST_F(Moves, TheNewestRestoreGoesFirstThenTheOthersInOrder) {
    pass("launch");
    pass("settlement");
    pass("withdrawn");
    pass("follow-up");
    restore("first");
    restore("second");
    turns[2].reset();
    for (int ended = 0; ended < 5; ++ended) {
        endRunning();
    }
    EXPECT_THAT(begun, ElementsAre("launch", "second", "settlement", "follow-up"));
    EXPECT_EQ(ends["first replaced"], 1);
    EXPECT_EQ(ends["second replaced"], 0);
}

TEST_F(Moves, ARestoreAbandonsASmallerMoveButNoOtherRestore) {
    int abandoned = 0;
    moves.onAbandoned = [&] { ++abandoned; };
    pass("follow-up");
    restore("first");
    EXPECT_TRUE(permit->isRevoked());
    endRunning();
    restore("second");
    EXPECT_FALSE(permit->isRevoked());
    EXPECT_EQ(abandoned, 1);
    moves.abandon();
    EXPECT_TRUE(permit->isRevoked()) << "the displays change";
    EXPECT_EQ(abandoned, 2);
}

TEST_F(Moves, AnErrorInAWaitingMoveHoldsUpNoOther) {
    gate.beginPass();
    moves.request({.start = [] { throw std::runtime_error("no luck"); }, .replaced = [] {}});
    pass("launch");
    gate.endPass();
    EXPECT_THAT(begun, ElementsAre("launch"));
    EXPECT_THAT(lines, ElementsAre(::testing::HasSubstr("no luck")));
}

TEST_F(Moves, WhateverComesWhenEachMoveBeginsOnceOrIsReplacedOrWithdrawn) {
    std::mt19937_64 random(1);
    std::size_t withdrawn = 0;
    int passes = 0;
    int restores = 0;
    for (int step = 0; step < 5000; ++step) {
        switch (random() % 5) {
        case 0:
            restore("restore " + std::to_string(++restores));
            break;
        case 1:
            pass("pass " + std::to_string(++passes));
            break;
        case 2:
            if (turns.size() > 1 && turns.back()) {
                const auto before = begun.size();
                turns.pop_back();
                ++withdrawn;
                EXPECT_EQ(begun.size(), before);
            }
            break;
        default:
            endRunning();
        }
    }
    while (!gate.isIdle()) {
        endRunning();
    }
    int ended = 0;
    for (const auto& [move, times] : ends) {
        EXPECT_EQ(times, 1) << move;
        ended += times;
    }
    EXPECT_GE(ended + static_cast<int>(withdrawn), passes + restores) << "none is forgotten";
}

} // namespace
} // namespace vantrel::simulated
