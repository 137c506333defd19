#include "Vantrel/platform/x11/WindowMarks.h"

#include <set>

namespace vantrel {

WindowMarks::Turn WindowMarks::now() const {
    const std::lock_guard lock(m_mutex);
    return m_last;
}

std::optional<WindowMarks::Mark> WindowMarks::known(xcb_window_t window, bool isMarked, Turn asked) const {
    const auto found = m_marks.find(window);
    // A mark assigned after `asked` comes from another capture, made while our query was in flight.
    return found != m_marks.end() && (isMarked || found->second.assigned > asked)
               ? std::optional(found->second.mark)
               : std::nullopt;
}

std::optional<WindowMarks::Mark> WindowMarks::find(xcb_window_t window, bool isMarked, Turn asked) const {
    const std::lock_guard lock(m_mutex);
    return known(window, isMarked, asked);
}

WindowMarks::Assigned WindowMarks::assign(xcb_window_t window, bool isMarked, Turn asked,
                                          std::optional<Mark> lasting) {
    const std::lock_guard lock(m_mutex);
    if (const auto mark = known(window, isMarked, asked)) {
        return {.mark = *mark, .mustSelect = false, .mustWrite = false};
    }
    const Mark mark = lasting.value_or(std::uniform_int_distribution<Mark>(1)(m_random));
    m_marks[window] = {.mark = mark, .assigned = ++m_last};
    return {.mark = mark, .mustSelect = !isMarked, .mustWrite = !lasting};
}

bool WindowMarks::isSame(xcb_window_t window, bool isMarked, Mark mark) const {
    const std::lock_guard lock(m_mutex);
    const auto found = m_marks.find(window);
    return isMarked && found != m_marks.end() && found->second.mark == mark;
}

void WindowMarks::keepOnly(const std::vector<xcb_window_t>& windows, Turn asked) {
    const std::set<xcb_window_t> kept(windows.begin(), windows.end());
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_marks, [&](const auto& entry) {
        return entry.second.assigned <= asked && !kept.contains(entry.first);
    });
}

} // namespace vantrel
