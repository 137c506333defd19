#include "VantrelCore/windows/StrayPlaces.h"

#include <utility>

namespace vantrel {

namespace {

// In points. Window managers may still shift a window by its border.
constexpr double tolerance = 2;

} // namespace

bool StrayPlaces::Stray::isLeft(const Rect& frame) const {
    return approxEqual(frame, left, tolerance);
}

void StrayPlaces::note(const Layout& layout, const RestoreReport& report,
                       const std::vector<Unreached>& unreached) {
    auto& strays = m_strays[layout.configID];
    for (const RestoreReport::Item& item : report.items) {
        if (!item.saved || !item.move) {
            continue;
        }
        if (item.outcome.kind == RestoreReport::Kind::failed) {
            // A window that rejected the move has stayed.
            strays.insert_or_assign(item.move->window, Stray{layout.windows[*item.saved],
                                                             item.move->achieved.value_or(item.move->from)});
        } else {
            strays.erase(item.move->window);
        }
    }
    for (const auto& [saved, window, frame] : unreached) {
        strays.insert_or_assign(window, Stray{layout.windows[saved], frame});
    }
}

std::map<WindowID, StrayPlaces::Stray> StrayPlaces::of(const std::string& configID) const {
    const auto found = m_strays.find(configID);
    return found == m_strays.end() ? std::map<WindowID, Stray>() : found->second;
}

void StrayPlaces::settle(const std::string& configID, const std::vector<WindowID>& windows) {
    for (const WindowID window : windows) {
        m_strays[configID].erase(window);
    }
}

void StrayPlaces::moveDesk(const std::string& from, const std::string& to,
                           const std::map<std::string, std::string>& displays) {
    for (auto& [window, stray] : std::exchange(m_strays[from], {})) {
        const auto display = displays.find(stray.saved.displayUUID);
        if (display != displays.end()) {
            stray.saved.displayUUID = display->second;
        }
        m_strays[to].insert_or_assign(window, stray);
    }
    m_strays.erase(from);
}

void StrayPlaces::keepIn(SessionNotes& notes) const {
    notes.strays.clear();
    for (const auto& [configID, strays] : m_strays) {
        for (const auto& [window, stray] : strays) {
            notes.strays.push_back(
                {.configID = configID, .window = window, .saved = stray.saved, .left = stray.left});
        }
    }
}

void StrayPlaces::adopt(const SessionNotes& notes) {
    m_strays.clear();
    for (const SessionNotes::Stray& stray : notes.strays) {
        m_strays[stray.configID].insert_or_assign(stray.window, Stray{stray.saved, stray.left});
    }
}

std::vector<LiveWindow> StrayPlaces::corrected(const std::string& configID, std::vector<LiveWindow> windows) {
    const auto desk = m_strays.find(configID);
    if (desk == m_strays.end()) {
        return windows;
    }
    std::map<WindowID, Stray> remaining;
    for (LiveWindow& window : windows) {
        const auto found = desk->second.find(window.id);
        if (found == desk->second.end()) {
            continue;
        }
        auto& [saved, left] = found->second;
        WindowRecord& record = window.record;
        if (!window.isVisible && !record.states.isMinimized && !record.states.isFullscreen) {
            left = record.frame;
        }
        if (found->second.isLeft(record.frame)) {
            record.frame = saved.frame;
            record.displayUUID = saved.displayUUID;
            record.states = saved.states;
            record.desktop = saved.desktop;
            record.normalFrame = saved.normalFrame;
            remaining.insert(*found);
        }
    }
    desk->second = std::move(remaining);
    return windows;
}

} // namespace vantrel
