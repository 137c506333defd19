// Measures several ways to move the same windows in turns on the same desk, so that other load on the machine
// affects all of them equally.
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
    // Returns once every window is in place.
    proven,
    // Returns without knowing; the windows are checked once the window manager is done.
    hoped,
};

struct Contestant {
    std::string name;
    Promise promise = Promise::proven;
    // Moves every window; false if it reports failure. Only this is measured.
    std::function<bool(std::size_t arrangement)> move;
    // Slow contestants run in the first rounds only.
    std::size_t rounds = SIZE_MAX;
};

struct Standing {
    std::string name;
    Promise promise = Promise::proven;
    // One per round, in seconds.
    std::vector<double> times;
    // Rounds reported as failed.
    std::size_t failedRounds = 0;
    // Rounds not reported as failed although a window was out of place.
    std::size_t wrongRounds = 0;

    [[nodiscard]] double minimum() const;
    [[nodiscard]] double median() const;
};

// Contestants move the windows from one arrangement to the other and back, in turn; their order rotates every
// round, so that each moves in both directions. A warm-up round is not counted.
[[nodiscard]] std::vector<Standing> race(CrowdedDesk& desk, XcbFloor& floor,
                                         const std::vector<Contestant>& contestants, std::size_t rounds);

} // namespace vantrel::bench
