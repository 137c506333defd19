// Tells a window from a later one with the same id. The X server reuses ids, even within one process, so
// neither the id nor the owner proves that a window is the captured one.
//
// The proof is a mark that dies with the window: at the first capture we select an event on it that
// practically never occurs. If our selection is gone, it is another window. The selection ends with our
// connection, so the number of the mark is also kept as a property of the window (LastingMarks), which a
// later run of this program reads at its own first capture.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <random>
#include <vector>
#include <xcb/xcb.h>

namespace vantrel {

// Thread-safe.
class WindowMarks {
public:
    static constexpr std::uint32_t eventMask = XCB_EVENT_MASK_COLOR_MAP_CHANGE;

    // Identifies one lifetime of a window id. Random, so that no run gives it to a later window with that id.
    using Mark = std::uint32_t;
    // Orders captures and assignments.
    using Turn = std::uint64_t;

    // Call before querying whether windows bear the mark.
    [[nodiscard]] Turn now() const;

    // The mark of a window that was queried after `asked` and reported `isMarked`, unless it must be
    // assigned.
    [[nodiscard]] std::optional<Mark> find(xcb_window_t window, bool isMarked, Turn asked) const;

    struct Assigned {
        Mark mark = 0;
        // The caller must select eventMask on the window now.
        bool mustSelect = false;
        // The caller must make the mark lasting.
        bool mustWrite = false;
    };

    // Like find(), but gives the window a mark if it has none: `lasting` if a former run has left one.
    // Concurrent captures give a window the same mark.
    [[nodiscard]] Assigned assign(xcb_window_t window, bool isMarked, Turn asked,
                                  std::optional<Mark> lasting = std::nullopt);

    // Whether a window that just reported `isMarked` is still the one that was assigned `mark`.
    [[nodiscard]] bool isSame(xcb_window_t window, bool isMarked, Mark mark) const;

    // Forgets all windows except these and those marked after `asked`.
    void keepOnly(const std::vector<xcb_window_t>& windows, Turn asked);

private:
    struct Known {
        Mark mark = 0;
        Turn assigned = 0;
    };

    [[nodiscard]] std::optional<Mark> known(xcb_window_t window, bool isMarked, Turn asked) const;

    mutable std::mutex m_mutex;
    std::random_device m_random;
    Turn m_last = 0;
    std::map<xcb_window_t, Known> m_marks;
};

} // namespace vantrel
