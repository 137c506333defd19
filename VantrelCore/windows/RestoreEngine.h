// Puts the windows of a saved layout back: pairs them with live windows, moves each, verifies its position,
// retries, raises, and reports the outcome for every saved window. Stateless.
#pragma once

#include "VantrelCore/model/Layout.h"
#include "VantrelCore/ports/Background.h"
#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/windows/CurrentWindow.h"
#include "VantrelCore/windows/RestoreReport.h"
#include "VantrelCore/windows/WindowMatcher.h"

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace vantrel::RestoreEngine {

// A coordinate or size is reached when it differs from the target by at most this many points.
inline constexpr double tolerance = 2.0;

// How long the `settle` attempt waits, in seconds.
inline constexpr double settleSeconds = 0.08;

// The reason when a window accepted the move but did not stay in place.
inline constexpr const char* driftedReason = "window drifted after move";

// The reason when a saved window has no live one and is skipped.
inline constexpr const char* goneReason = "window no longer exists";

// The note added to that reason when the window is expected to open.
inline constexpr const char* openingNote = "its application is being started";

enum class Attempt : std::uint8_t { place, settle, placeSizeFirst };

enum class Sizes : std::uint8_t { restore, leave };
enum class Raising : std::uint8_t { raise, leave };

struct Options {
    Sizes sizes = Sizes::restore;
    Raising raising = Raising::leave;
    // Applications that have failed often: they get a pause instead of an immediate second move.
    std::set<std::string> stubbornBundleIDs{};
    // Applications that are restored after all others.
    std::set<std::string> restoreLast{};
};

// The result of placing a window in a designed slot.
struct DesignedPlacement {
    enum class Kind : std::uint8_t { placed, placedClampedSize, failed };

    Kind kind = Kind::failed;
    // Where the window is now. Its size differs from the slot's when the application clamped it; empty on
    // failure.
    Rect rect;

    [[nodiscard]] static DesignedPlacement placed(const Rect& rect) { return {Kind::placed, rect}; }
    [[nodiscard]] static DesignedPlacement placedClampedSize(const Rect& rect) {
        return {Kind::placedClampedSize, rect};
    }
    [[nodiscard]] static DesignedPlacement failed() { return {}; }

    bool operator==(const DesignedPlacement&) const = default;
};

[[nodiscard]] std::vector<Attempt> attemptPlan(bool isStubborn);

// Pairs saved windows with live ones.
[[nodiscard]] MatchResult match(const std::vector<WindowRecord>& saved,
                                const std::vector<CurrentWindow>& current);

// Whether a window at `frame` has reached `target`; false when the frame is unreadable.
[[nodiscard]] bool isReached(const std::optional<Rect>& frame, const Rect& target, Sizes sizes);

// Whether a restore would have nothing to do: every paired window is in place and, if windows are raised,
// stacked as saved, in front of all others.
[[nodiscard]] bool isInPlace(const Layout& layout, const std::vector<CurrentWindow>& current,
                             const MatchResult& matched, const Options& options);

// Blocks until every window is done: applications of one wave in parallel, windows of one application in
// turn. `matched` pairs the layout's windows with `current`.
[[nodiscard]] RestoreReport restore(const Layout& layout, const std::vector<CurrentWindow>& current,
                                    const MatchResult& matched, const Options& options, Clock& clock,
                                    Background& background);

// Uses the pairs from match().
[[nodiscard]] RestoreReport restore(const Layout& layout, const std::vector<CurrentWindow>& current,
                                    const Options& options, Clock& clock, Background& background);

// Moves once, position first; true when the platform accepted it.
bool place(const Rect& target, const AXWindowHandle& handle, Sizes sizes);

// Puts a window into a designed slot. `settle` waits the given number of seconds.
[[nodiscard]] DesignedPlacement placeDesigned(const Rect& placement, const AXWindowHandle& handle,
                                              const Rect& usableBounds,
                                              const std::function<void(double)>& settle);

} // namespace vantrel::RestoreEngine
