// The controller on the fake platform: the adapters of macOS between it and a desk of windows that users,
// applications and cables change.
#pragma once

#include "Vantrel/platform/macos/CarbonHotKeys.h"
#include "Vantrel/platform/macos/MacAccessibility.h"
#include "Vantrel/platform/macos/MacDisplayServices.h"
#include "Vantrel/platform/macos/MacUserDefaults.h"
#include "VantrelCore/windows/AccessibilityDesk.h"
#include "tests/Vantrel/controller/Story.h"
#include "tests/macos/fake/Accessibility.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace vantrel::fake {

// Of the simulated desk it has the time, the disk, the log, and applications that are neither started nor
// hidden.
class MacStory : public simulated::Story {
public:
    explicit MacStory(const std::string& setup);
    ~MacStory();

    // An application with windows, which take every frame.
    std::shared_ptr<Element> run(const std::string& bundleID, const std::string& name,
                                 const std::vector<std::pair<std::string, CGRect>>& windows);
    // The window of that title.
    [[nodiscard]] Element& window(const std::string& title) { return *m_windows.at(title); }
    [[nodiscard]] std::map<std::string, Rect> frames() const;

    // Shows the window on the current Space, or on another one, where neither the application nor the window
    // server lists it.
    void showOnThisSpace(const std::string& title, bool isShown);

    // The controller begins.
    void start();
    // Plugs and unplugs, and lets everything that follows come to rest. Windows on a display that goes are
    // moved onto the primary one by the window server.
    void connect(const std::string& setup);

    // Calls that change something, since the last time this was asked.
    std::vector<std::string> changes();

private:
    void showDisplays(const simulated::DeskSetup& setup);
    void rescueWindows();
    [[nodiscard]] Value windowList() const;

    std::vector<simulated::SimulatedDisplay> m_displays;
    std::vector<RunningApp> m_apps;
    // By title.
    std::map<std::string, std::shared_ptr<Element>> m_windows;
    // Titles of windows on other Spaces.
    std::set<std::string> m_elsewhere;
    MacUserDefaults m_defaults{time};
    MacAccessibility m_accessibility{[this] { return m_apps; }};
    AccessibilityDesk m_desk{m_accessibility, time};
    MacDisplayServices m_displayServices;
    CarbonHotKeys m_hotKeys;
};

} // namespace vantrel::fake
