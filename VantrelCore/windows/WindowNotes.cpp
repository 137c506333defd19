#include "VantrelCore/windows/WindowNotes.h"

#include <algorithm>
#include <iterator>
#include <ranges>

namespace vantrel {

// Files keep whole seconds.
Date WindowNotes::capturedAt(const Layout& layout) {
    return std::chrono::floor<std::chrono::seconds>(layout.savedAt);
}

bool WindowNotes::use(const Layout& layout) {
    const auto known = std::ranges::find(m_notes, capturedAt(layout), &Note::capturedAt);
    if (known != m_notes.end()) {
        m_notes.splice(m_notes.begin(), m_notes, known);
    }
    return known != m_notes.end();
}

std::map<std::int64_t, WindowID>& WindowNotes::noteFor(const Layout& layout) {
    if (!use(layout)) {
        m_notes.push_front({.capturedAt = capturedAt(layout), .windowByOrder = {}});
        m_notes.resize(std::min(m_notes.size(), capacity));
    }
    return m_notes.front().windowByOrder;
}

void WindowNotes::note(const Layout& layout, const std::vector<LiveWindow>& windows) {
    const Layout all = layout.withOtherWindows();
    const auto standing = WindowPairing::inPlace(all.windows, find(all), windows);
    auto& windowByOrder = noteFor(layout);
    for (std::size_t i = 0; i < standing.size(); ++i) {
        if (standing[i]) {
            windowByOrder[all.windows[i].zOrder] = *standing[i];
        }
    }
}

void WindowNotes::note(const Layout& layout, const RestoreReport& report) {
    auto& windowByOrder = noteFor(layout);
    for (const RestoreReport::Item& item : report.items) {
        if (item.saved && *item.saved < layout.windows.size() && item.move) {
            windowByOrder[layout.windows[*item.saved].zOrder] = item.move->window;
        }
    }
}

WindowPairing::Known WindowNotes::find(const Layout& layout) {
    WindowPairing::Known known(layout.windows.size());
    if (use(layout)) {
        const auto& windowByOrder = m_notes.front().windowByOrder;
        for (std::size_t i = 0; i < known.size(); ++i) {
            const auto found = windowByOrder.find(layout.windows[i].zOrder);
            if (found != windowByOrder.end()) {
                known[i] = found->second;
            }
        }
    }
    return known;
}

void WindowNotes::keepIn(SessionNotes& notes) const {
    notes.arrangements.clear();
    std::ranges::copy(m_notes | std::views::take(keptForNextRun), std::back_inserter(notes.arrangements));
}

void WindowNotes::adopt(const SessionNotes& notes) {
    m_notes.assign(notes.arrangements.begin(), notes.arrangements.end());
    m_notes.resize(std::min(m_notes.size(), capacity));
}

} // namespace vantrel
