#include "Vantrel/platform/x11/WindowMarks.h"

#include <set>

namespace vantrel {

WindowMarks::Mark WindowMarks::now() const {
    const std::lock_guard lock(m_mutex);
    return m_last;
}

WindowMarks::Assigned WindowMarks::assign(xcb_window_t window, bool isMarked, Mark asked) {
    const std::lock_guard lock(m_mutex);
    const auto known = m_marks.find(window);
    // A mark assigned after `asked` comes from another capture, made while our query was in flight.
    if (known != m_marks.end() && (isMarked || known->second > asked)) {
        return {.mark = known->second, .mustSelect = false};
    }
    m_marks[window] = ++m_last;
    return {.mark = m_last, .mustSelect = !isMarked};
}

bool WindowMarks::isSame(xcb_window_t window, bool isMarked, Mark mark) const {
    const std::lock_guard lock(m_mutex);
    const auto known = m_marks.find(window);
    return isMarked && known != m_marks.end() && known->second == mark;
}

void WindowMarks::keepOnly(const std::vector<xcb_window_t>& windows, Mark asked) {
    const std::set<xcb_window_t> kept(windows.begin(), windows.end());
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_marks,
                  [&](const auto& entry) { return entry.second <= asked && !kept.contains(entry.first); });
}

} // namespace vantrel
