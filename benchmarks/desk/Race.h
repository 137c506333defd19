// Several ways to move the same windows, measured in turns on the same desk, so that whatever else the
// machine does hits all of them alike.
#pragma once

#include "benchmarks/desk/CrowdedDesk.h"
#include "benchmarks/desk/XcbFloor.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vantrel::bench {

enum class Promise : std::uint8_t {
    // Every window stands there when it returns.
    proven,
    // It hopes so; the windows are looked at once the window manager is done.
    hoped,
};

struct Contestant {
    std::string name;
    Promise promise = Promise::proven;
    // Moves every window; false when it says itself that it failed. Only this is measured.
    std::function<bool(std::size_t arrangement)> move;
    // One that takes long runs in the first rounds only.
    std::size_t rounds = SIZE_MAX;
};

struct Standing {
    std::string name;
    Promise promise = Promise::proven;
    // One per round, in seconds.
    std::vector<double> times;
    // Rounds that it called failed itself.
    std::size_t failedRounds = 0;
    // Rounds that it did not call failed, and yet not every window stood where it should.
    std::size_t wrongRounds = 0;

    [[nodiscard]] double minimum() const;
    [[nodiscard]] double median() const;
};

// From arrangement to arrangement and back, one after the other; the order of the contestants turns every
// round, so that each goes both ways. One round before the first is not counted.
[[nodiscard]] std::vector<Standing> race(CrowdedDesk& desk, XcbFloor& floor,
                                         const std::vector<Contestant>& contestants, std::size_t rounds);

} // namespace vantrel::bench
