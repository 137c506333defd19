// Reduces the platform's reconfiguration events to two: a change began, and the displays settled.
#pragma once

#include "VantrelCore/displays/Debouncer.h"
#include "VantrelCore/model/DisplayInfo.h"
#include "VantrelCore/ports/DisplayServices.h"
#include "VantrelCore/ports/MainQueue.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantrel {

// Lives on the main thread; the platform may report events on any.
class DisplayWatcher {
public:
    // `settleDelay` in seconds: how long events must pause before the displays count as settled.
    DisplayWatcher(double settleDelay, DisplayServices& services, MainQueue& queue);
    // Removes the platform's callback and drops a pending settle.
    ~DisplayWatcher();
    DisplayWatcher(const DisplayWatcher&) = delete;
    DisplayWatcher& operator=(const DisplayWatcher&) = delete;

    // Called once at the start of a burst of events.
    std::function<void()> onChangeBegan;
    // Called once per burst, after it settled, with the desk's current configID and displays.
    std::function<void(const std::string& configID, const std::vector<DisplayInfo>& displays)>
        onSettledChange;

    // Repeated calls have no effect. Stopping does not cancel a pending settle.
    void start();
    void stop();

    // Handles one platform event; public because platforms without callbacks poll and call this.
    void handleReconfigurationEvent();

private:
    void settle();

    DisplayServices& m_services;
    MainQueue& m_queue;
    Debouncer m_debouncer;
    bool m_inBurst = false;
    bool m_registered = false;
    // Expires with the watcher, so that an event already posted to the main thread is ignored.
    std::shared_ptr<DisplayWatcher*> m_self;
};

} // namespace vantrel
