#include "Vantrel/controller/LiveDeskFlow.h"

#include "VantrelCore/windows/AXPermission.h"

#include <utility>

namespace vantrel {

std::shared_ptr<void> LiveDeskFlow::watch() {
    if (auto watchers = m_watchers.lock()) {
        return watchers;
    }
    std::shared_ptr<void> watchers(this, [self = std::weak_ptr(m_self)](void* /*unused*/) {
        if (const auto flow = self.lock()) {
            (*flow)->stop();
        }
    });
    m_watchers = watchers;
    m_timer = m_context.ports.mainQueue.every(interval, [this] { capture(); });
    capture();
    return watchers;
}

// Not a pass: learning and restores do not wait for it. It only reads, and gives way to them.
void LiveDeskFlow::capture() {
    if (m_isCapturing || !m_context.gate.mayCapture() || !AXPermission::isGranted(m_context.ports.desk)) {
        return;
    }
    m_isCapturing = true;
    m_context.inBackground(
        WorkPriority::utility,
        [ports = m_context.ports, own = m_context.ownBundleID] {
            return ports.desk.capture({.excludedBundleID = own});
        },
        [this](std::optional<DeskSnapshot> snapshot) {
            m_isCapturing = false;
            if (snapshot && !m_watchers.expired()) {
                m_context.publisher.publish<LiveTopic>(
                    [&](auto& live) { live.liveWindows = std::move(snapshot->windows); });
            }
        });
}

void LiveDeskFlow::stop() {
    m_timer.reset();
    m_context.publisher.publish<LiveTopic>([](auto& live) { live.liveWindows.reset(); });
}

} // namespace vantrel
