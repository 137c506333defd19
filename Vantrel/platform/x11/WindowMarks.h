// Tells a window from a later one with the same id. The X server reuses ids, even within one process, so
// neither the id nor the owner proves that a window is the captured one.
//
// The proof is a mark that dies with the window: at the first capture we select an event on it that
// practically never occurs. If our selection is gone, it is another window.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <vector>
#include <xcb/xcb.h>

namespace vantrel {

// Thread-safe.
class WindowMarks {
public:
    static constexpr std::uint32_t eventMask = XCB_EVENT_MASK_COLOR_MAP_CHANGE;

    // Identifies one lifetime of a window id. Never reused.
    using Mark = std::uint64_t;

    // Call before querying whether windows bear the mark.
    [[nodiscard]] Mark now() const;

    struct Assigned {
        Mark mark = 0;
        // The caller must select eventMask on the window now.
        bool mustSelect = false;
    };

    // Returns the mark of a window that was queried after `asked` and reported `isMarked`. Concurrent
    // captures give a window the same mark.
    [[nodiscard]] Assigned assign(xcb_window_t window, bool isMarked, Mark asked);

    // Whether a window that just reported `isMarked` is still the one that was assigned `mark`.
    [[nodiscard]] bool isSame(xcb_window_t window, bool isMarked, Mark mark) const;

    // Forgets all windows except these and those marked after `asked`.
    void keepOnly(const std::vector<xcb_window_t>& windows, Mark asked);

private:
    mutable std::mutex m_mutex;
    Mark m_last = 0;
    std::map<xcb_window_t, Mark> m_marks;
};

} // namespace vantrel
