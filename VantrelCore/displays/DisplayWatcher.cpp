#include "VantrelCore/displays/DisplayWatcher.h"

#include "VantrelCore/displays/DisplayTopology.h"

namespace vantrel {

namespace {

// Null once the watcher is destroyed. Call only on the main thread, where watchers are destroyed. It does not
// keep `weak` alive, so that a callback that destroys the watcher is noticed.
DisplayWatcher* living(const std::weak_ptr<DisplayWatcher*>& weak) {
    const auto self = weak.lock();
    return self ? *self : nullptr;
}

} // namespace

DisplayWatcher::DisplayWatcher(double settleDelay, DisplayServices& services, MainQueue& queue)
    : m_services(services), m_queue(queue), m_debouncer(settleDelay, queue),
      m_self(std::make_shared<DisplayWatcher*>(this)) {}

DisplayWatcher::~DisplayWatcher() {
    stop();
    m_debouncer.cancel();
}

void DisplayWatcher::start() {
    if (m_registered) {
        return;
    }
    m_registered = true;
    // The handler runs on the platform's thread and must not touch the watcher; the main thread checks
    // whether the watcher still exists.
    m_services.setReconfigurationHandler([&queue = m_queue, weak = std::weak_ptr(m_self)] {
        queue.post([weak] {
            if (auto* const watcher = living(weak)) {
                watcher->handleReconfigurationEvent();
            }
        });
    });
}

void DisplayWatcher::stop() {
    if (m_registered) {
        m_registered = false;
        m_services.setReconfigurationHandler({});
    }
}

void DisplayWatcher::handleReconfigurationEvent() {
    const std::weak_ptr weak(m_self);
    if (!m_inBurst) {
        m_inBurst = true;
        // A copy: the callback may replace or destroy this watcher.
        if (const auto changeBegan = onChangeBegan) {
            changeBegan();
        }
    }
    if (weak.expired()) {
        return;
    }
    m_debouncer.call([weak] {
        if (auto* const watcher = living(weak)) {
            watcher->settle();
        }
    });
}

void DisplayWatcher::settle() {
    m_inBurst = false;
    // A copy, and nothing may follow the call: the callback may replace or destroy this watcher.
    if (const auto settledChange = onSettledChange) {
        const auto displays = DisplayTopology::currentDisplays(m_services);
        settledChange(DisplayTopology::configID(displays), displays);
    }
}

} // namespace vantrel
