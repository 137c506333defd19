#include "VantrelCore/windows/NormalFrames.h"

#include <utility>

namespace vantrel {

void NormalFrames::remember(const std::vector<LiveWindow>& windows) {
    std::map<WindowID, Rect> frames;
    m_stretched.clear();
    for (const LiveWindow& window : windows) {
        const auto known = m_frames.find(window.id);
        if (!window.record.states.isStretched()) {
            frames.emplace(window.id, window.record.frame);
        } else if (known != m_frames.end()) {
            frames.insert(*known);
            m_stretched.insert(window.id);
        }
    }
    m_frames = std::move(frames);
}

void NormalFrames::remember(const Layout& layout, const RestoreReport& report) {
    using enum RestoreReport::Kind;
    for (const auto& [appName, bundleID, title, outcome, saved, move] : report.items) {
        if (!saved || !move || (outcome.kind != restored && outcome.kind != retried)) {
            continue;
        }
        const WindowRecord& record = layout.windows[*saved];
        if (!record.states.isStretched()) {
            m_frames.insert_or_assign(move->window, record.frame);
        } else if (record.normalFrame) {
            m_frames.insert_or_assign(move->window, *record.normalFrame);
        }
    }
}

WindowRecord NormalFrames::recordOf(const LiveWindow& window) const {
    WindowRecord record = window.record;
    const auto known = m_frames.find(window.id);
    if (known != m_frames.end() && record.states.isStretched()) {
        record.normalFrame = known->second;
    }
    return record;
}

void NormalFrames::keepIn(SessionNotes& notes) const {
    notes.normalFrames.clear();
    for (const WindowID window : m_stretched) {
        notes.normalFrames.emplace(window, m_frames.at(window));
    }
}

} // namespace vantrel
