// Port: the windows of the live desk, captured as one value and changed by one batch of orders.
//
// Coordinates are those of DeskSnapshot. Every failure of the platform is an absent value or an order that
// was not taken, never an exception. A window or application that does not respond is given up after 1.0
// second. May be used from any thread.
#pragma once

#include "VantrelCore/model/DeskSnapshot.h"
#include "VantrelCore/model/PlaceTarget.h"
#include "VantrelCore/ports/MovePermit.h"
#include "VantrelCore/ports/UserMoveWatch.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace vantrel {

// Which applications' windows a capture includes. On some platforms (a Mac) each application must be queried,
// so those left out cost nothing.
struct CaptureFilter {
    // This program itself.
    std::optional<std::string> excludedBundleID = std::nullopt;
    std::set<std::string> ignoredBundleIDs{};
    // Only these, even if nothing of them is on screen.
    std::optional<std::set<std::string>> onlyBundleIDs = std::nullopt;

    [[nodiscard]] bool includes(const std::string& bundleID) const {
        return bundleID != excludedBundleID && !ignoredBundleIDs.contains(bundleID) &&
               (!onlyBundleIDs || onlyBundleIDs->contains(bundleID));
    }
};

// Where a window shall be; an absent half stays as it is.
struct FrameTarget {
    std::optional<Point> position = std::nullopt;
    std::optional<Size> size = std::nullopt;

    bool operator==(const FrameTarget&) const = default;
};

struct WindowOrder {
    // Which half an application gets first where the platform sets them one after the other.
    enum class Sequence : std::uint8_t {
        positionFirst,
        // For windows that refuse a position which would push them off their display at their old size.
        sizeFirst,
    };

    WindowID window{};
    FrameTarget target{};
    Sequence sequence = Sequence::positionFirst;
    // None leaves its states and its desktop, but a maximised window may have to become ordinary to reach its
    // target. Only together with a target.
    std::optional<PlaceTarget> place = std::nullopt;
    // Bring it to the front of the stack, without the focus where the platform can.
    bool raises = false;
    // Put it directly in front of this window, without the focus. Not taken where the platform cannot.
    std::optional<WindowID> inFrontOf = std::nullopt;
};

struct WindowOutcome {
    // False when the platform reported an error, the window is gone or the permit was revoked.
    bool isTaken = false;
    // The system tiles the window, so it was not asked.
    bool isTiled = false;
    // Where the window is after the order; none when it was not taken or the frame cannot be read.
    std::optional<Rect> frame = std::nullopt;
    // Has the states and the desktop of the order's place; true when it names none.
    bool hasPlace = true;

    bool operator==(const WindowOutcome&) const = default;
};

// A window as the system shows it to every program.
struct WindowOutline {
    std::int32_t pid = 0;
    Rect frame;

    bool operator==(const WindowOutline&) const = default;
};

class Desk {
public:
    Desk() = default;
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;
    virtual ~Desk() = default;

    // Whether this process may read and move other applications' windows.
    [[nodiscard]] virtual bool isTrusted() = 0;

    // Names the session in which windows keep their WindowID even when this program is restarted, and no
    // later window gets it; a new log-in has another name. None where identities end with the program. Does
    // not wait for the platform.
    [[nodiscard]] virtual std::optional<std::string> session() const { return std::nullopt; }

    // Shows the system's permission dialog when not trusted, and returns the state the system reports.
    virtual bool prompt() = 0;

    [[nodiscard]] virtual DeskSnapshot capture(const CaptureFilter& filter) = 0;

    // The visible ordinary windows, also without the permission. Empty where the platform does not show them
    // then (X11 without a window manager).
    [[nodiscard]] virtual std::vector<WindowOutline> outlines() { return {}; }

    // Reads these windows again. One result per window; none for one that is gone or does not respond.
    [[nodiscard]] virtual std::vector<std::optional<DeskWindow>> look(std::span<const WindowID> windows) = 0;

    // Carries out a whole wave: places every window, then raises and restacks in the order of the orders.
    // Returns one outcome per order when the platform has processed all of them or timed out. A target that
    // is not finite is not taken.
    [[nodiscard]] virtual std::vector<WindowOutcome> arrange(std::span<const WindowOrder> orders,
                                                             const MovePermit& permit) = 0;

    // Blocks until the window system has processed everything requested before this call (X11: including the
    // window manager's own reaction to a display change), for 1.0 second at most. False on timeout.
    virtual bool awaitQuiet() = 0;

    // Watches from now on for moves of these windows by the user. One result per window; null when the
    // platform cannot detect them or the window is gone.
    [[nodiscard]] virtual std::vector<std::unique_ptr<UserMoveWatch>>
    watchUserMoves(std::span<const WindowID> windows) = 0;
};

} // namespace vantrel
