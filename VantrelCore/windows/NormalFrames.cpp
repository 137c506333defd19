#include "VantrelCore/windows/NormalFrames.h"

#include <utility>

namespace vantrel {

namespace {

bool isStretched(const PlaceStates& states) {
    return states.isMaximized() || states.isFullscreen;
}

} // namespace

void NormalFrames::remember(const std::vector<LiveWindow>& windows) {
    std::map<WindowID, Rect> frames;
    for (const LiveWindow& window : windows) {
        const auto known = m_frames.find(window.id);
        if (!isStretched(window.record.states)) {
            frames.emplace(window.id, window.record.frame);
        } else if (known != m_frames.end()) {
            frames.insert(*known);
        }
    }
    m_frames = std::move(frames);
}

WindowRecord NormalFrames::recordOf(const LiveWindow& window) const {
    WindowRecord record = window.record;
    const auto known = m_frames.find(window.id);
    if (known != m_frames.end() && isStretched(record.states)) {
        record.normalFrame = known->second;
    }
    return record;
}

} // namespace vantrel
