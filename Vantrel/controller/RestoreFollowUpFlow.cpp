#include "Vantrel/controller/RestoreFollowUpFlow.h"

#include "Vantrel/controller/ControllerText.h"
#include "VantrelCore/windows/WindowSnapshotter.h"

#include <algorithm>
#include <atomic>
#include <map>

namespace vantrel {

namespace {

using RestoreFollowUp::Landed;

// Seconds after the end of the restore.
constexpr double lookTimes[] = {1, 3, 7};

std::optional<Rect> visibleFrame(const Landed& window) {
    return WindowSnapshotter::ordinaryFrame(window.handle.element()->read(AttributeGroup::all));
}

// True when the window was displaced and stands at its place again.
bool putBack(const Landed& window, RestoreEngine::Sizes sizes) {
    if (!RestoreFollowUp::isDisplaced(visibleFrame(window), window.target, sizes)) {
        return false;
    }
    RestoreEngine::place(window.target, window.handle, sizes);
    return RestoreEngine::isReached(window.handle.frame(), window.target, sizes);
}

// How many windows were put back. Applications in parallel, so that one that hangs delays no other.
std::size_t putBackDisplaced(const std::vector<Landed>& landed, RestoreEngine::Sizes sizes,
                             Background& background) {
    std::map<std::string, std::vector<const Landed*>> byApp;
    for (const Landed& window : landed) {
        byApp[window.bundleID].push_back(&window);
    }
    std::vector<std::vector<const Landed*>> apps;
    apps.reserve(byApp.size());
    for (auto& [bundleID, windows] : byApp) {
        apps.push_back(std::move(windows));
    }
    std::atomic<std::size_t> count = 0;
    background.concurrentPerform(apps.size(), [&](std::size_t index) {
        for (const Landed* window : apps[index]) {
            count += putBack(*window, sizes) ? 1 : 0;
        }
    });
    return count;
}

} // namespace

void RestoreFollowUpFlow::begin(std::vector<Landed> landed) {
    end();
    m_landed = std::move(landed);
    if (m_landed.empty()) {
        return;
    }
    for (const double seconds : lookTimes) {
        m_looks.push_back(m_context.ports.mainQueue.after(seconds, [this, epoch = m_epoch] {
            if (epoch == m_epoch) {
                look();
            }
        }));
    }
}

void RestoreFollowUpFlow::end() {
    ++m_epoch;
    m_landed.clear();
    m_looks.clear();
}

void RestoreFollowUpFlow::look() {
    if (!m_context.snapshotsSuspended || m_context.axWorkInFlight() || !m_context.state().enabled) {
        return;
    }
    const auto sizes =
        m_context.settings.restoreSizes() ? RestoreEngine::Sizes::restore : RestoreEngine::Sizes::leave;
    m_context.beginPass();
    m_context.inBackground(
        WorkPriority::userInitiated,
        [landed = m_landed, sizes, &background = m_context.ports.background] {
            return putBackDisplaced(landed, sizes, background);
        },
        [this](std::size_t count) {
            if (count > 0) {
                m_context.log("restore follow-up: put back " + ControllerText::windows(count));
            }
            m_context.endPass();
        });
}

} // namespace vantrel
