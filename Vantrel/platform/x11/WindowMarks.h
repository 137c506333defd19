// Tells a window from a later one with the same id. The X server hands ids out again, also within the same
// process, so neither the id nor its owner proves that a window is the one that was captured.
//
// The proof is a mark that dies with the window: at its first capture we select an event on it that
// practically never occurs. A window whose event selection of ours is gone is another window.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <vector>
#include <xcb/xcb.h>

namespace vantrel {

// May be used from any thread.
class WindowMarks {
public:
    static constexpr std::uint32_t eventMask = XCB_EVENT_MASK_COLOR_MAP_CHANGE;

    // One life of one window id; never used twice.
    using Mark = std::uint64_t;

    // To be taken before the windows are asked whether they bear the mark.
    [[nodiscard]] Mark now() const;

    struct Assigned {
        Mark mark = 0;
        // The caller must select eventMask on the window now.
        bool mustSelect = false;
    };

    // The mark of a window that was asked after `asked` and answered `isMarked`. Two captures at the same
    // time give the same window the same mark.
    [[nodiscard]] Assigned assign(xcb_window_t window, bool isMarked, Mark asked);

    // Whether a window that just answered `isMarked` is still the one that was given `mark`.
    [[nodiscard]] bool isSame(xcb_window_t window, bool isMarked, Mark mark) const;

    // Forgets all windows but these and those given a mark after `asked`.
    void keepOnly(const std::vector<xcb_window_t>& windows, Mark asked);

private:
    mutable std::mutex m_mutex;
    Mark m_last = 0;
    std::map<xcb_window_t, Mark> m_marks;
};

} // namespace vantrel
