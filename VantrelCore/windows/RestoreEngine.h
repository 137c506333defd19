// Puts the windows of a saved layout back: pairs them with live windows, moves each, verifies its position,
// retries, raises, and reports the outcome for every saved window. Stateless.
#pragma once

#include "VantrelCore/model/Layout.h"
#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/ports/Desk.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/windows/LiveWindow.h"
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
inline constexpr const char* driftedReason = marked("window drifted after move");

// The reason when a saved window has no live one and is skipped.
inline constexpr const char* goneReason = marked("window no longer exists");

// The reason when the system arranges a window itself, as tiling window managers do, and it is skipped.
inline constexpr const char* tiledReason = marked("the window manager tiles it");

// The note added to the reason of a window that is gone when the window is expected to open.
inline constexpr const char* openingNote = marked("its application is being started");

enum class Attempt : std::uint8_t { place, settle, placeSizeFirst };

enum class Sizes : std::uint8_t { restore, leave };
enum class Raising : std::uint8_t {
    // Every window, so that the saved front-most one ends on top.
    raise,
    leave,
    // Only puts the windows that were moved into their saved order, behind the front-most window.
    amongMoved,
};

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

// Whether a window at `frame` has reached `target`; false when the frame is unreadable.
[[nodiscard]] bool isReached(const std::optional<Rect>& frame, const Rect& target, Sizes sizes);

// Whether a restore would have nothing to do: every paired window is in place and, if windows are raised,
// stacked as saved, in front of all others.
[[nodiscard]] bool isInPlace(const Layout& layout, const std::vector<LiveWindow>& current,
                             const MatchResult& matched, const Options& options);

// Blocks until every window is done: the windows of one wave together, so that several that must settle cost
// one pause. `matched` pairs the layout's windows with `current`.
[[nodiscard]] RestoreReport restore(const Layout& layout, const std::vector<LiveWindow>& current,
                                    const MatchResult& matched, const Options& options, Desk& desk,
                                    const MovePermit& permit, Clock& clock);

// The order that moves a window to `target` once, position first.
[[nodiscard]] WindowOrder place(WindowID window, const Rect& target, Sizes sizes);

// A designed slot and the window that is to fill it.
struct DesignedSlot {
    WindowID window{};
    Rect placement;
    // Of the slot's display.
    Rect usableBounds;
};

// Puts windows into designed slots, all at once; one result per slot. `settle` waits the given number of
// seconds.
[[nodiscard]] std::vector<DesignedPlacement> placeDesigned(const std::vector<DesignedSlot>& slots, Desk& desk,
                                                           const MovePermit& permit,
                                                           const std::function<void(double)>& settle);

} // namespace vantrel::RestoreEngine

namespace vantrel::RestoreOrder {

// First the applications that are not in `restoreLast`, then those that are, each in the given order. No
// identifiers give no waves, and an empty wave is left out.
[[nodiscard]] std::vector<std::vector<std::string>> waves(const std::vector<std::string>& bundleIDs,
                                                          const std::set<std::string>& restoreLast);

} // namespace vantrel::RestoreOrder

namespace vantrel::SlotAnchor {

// The window's size, placed inside `slot`: centred where the slot is larger, at the slot's left or top edge
// where it is smaller, so that the title bar stays in reach.
[[nodiscard]] Rect anchor(Size windowSize, const Rect& slot);

} // namespace vantrel::SlotAnchor
