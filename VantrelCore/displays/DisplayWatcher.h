// Turns the platform's stream of reconfiguration events into two: a change began, and the displays have
// settled.
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
    // `settleDelay` in seconds: how long no event may come before the displays count as settled.
    DisplayWatcher(double settleDelay, DisplayServices& services, MainQueue& queue);
    // Removes the platform's callback and forgets a pending settle.
    ~DisplayWatcher();
    DisplayWatcher(const DisplayWatcher&) = delete;
    DisplayWatcher& operator=(const DisplayWatcher&) = delete;

    // Called once at the start of a burst of events.
    std::function<void()> onChangeBegan;
    // Called once per burst, after it settled, with the desk's configID and displays as they are now.
    std::function<void(const std::string& configID, const std::vector<DisplayInfo>& displays)>
        onSettledChange;

    // Both may be called again without effect. Stopping does not cancel a pending settle.
    void start();
    void stop();

    // One event of the platform; public because platforms without callbacks poll and call this.
    void handleReconfigurationEvent();

private:
    void settle();

    DisplayServices& m_services;
    MainQueue& m_queue;
    Debouncer m_debouncer;
    bool m_inBurst = false;
    bool m_registered = false;
    // Expires with the watcher, so that an event on its way to the main thread finds nobody.
    std::shared_ptr<DisplayWatcher*> m_self;
};

} // namespace vantrel
