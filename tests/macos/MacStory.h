// The controller on the fake platform: the adapters of macOS between it and a desk of windows that users,
// applications and cables change.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "Vantrel/platform/macos/CarbonHotKeys.h"
#include "Vantrel/platform/macos/MacAccessibility.h"
#include "Vantrel/platform/macos/MacDisplayServices.h"
#include "Vantrel/platform/macos/MacUserDefaults.h"
#include "tests/macos/fake/Accessibility.h"
#include "tests/simulated/DeskSetup.h"
#include "tests/simulated/MemoryFileSystem.h"
#include "tests/simulated/SimulatedCalendar.h"
#include "tests/simulated/SimulatedFocus.h"
#include "tests/simulated/SimulatedLicense.h"
#include "tests/simulated/SimulatedPictures.h"
#include "tests/simulated/SimulatedSystemEvents.h"
#include "tests/simulated/SimulatedTime.h"
#include "tests/simulated/SimulatedZone.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantrel::fake {

// Applications are neither started nor hidden in these stories.
class IdleWorkspace final : public Workspace {
public:
    std::optional<std::string> applicationName(const std::string& /*bundleID*/) override { return {}; }
    bool launch(const std::string& /*bundleID*/) override { return false; }
    bool hide(const std::string& /*bundleID*/) override { return false; }
    bool unhide(const std::string& /*bundleID*/) override { return false; }
    void setLaunchHandler(std::function<void(const RunningApp&)> /*handler*/) override {}
};

class MacStory {
public:
    explicit MacStory(const std::string& setup);
    ~MacStory();
    MacStory(const MacStory&) = delete;
    MacStory& operator=(const MacStory&) = delete;

    // An application with windows, the last in front. They take every frame.
    std::shared_ptr<Element> run(const std::string& bundleID, const std::string& name,
                                 const std::vector<std::pair<std::string, CGRect>>& windows);
    // The window of that title.
    [[nodiscard]] Element& window(const std::string& title);
    [[nodiscard]] std::map<std::string, Rect> frames() const;
    // Titles, front to back.
    [[nodiscard]] std::vector<std::string> stacking() const;

    // The controller begins, and learns the desk.
    void start();
    void learn() { time.runFor(70); }
    // Plugs and unplugs, and lets everything that follows come to rest. Windows on a display that goes are
    // moved onto the primary one by the window server.
    void connect(const std::string& setup);

    [[nodiscard]] std::vector<std::string> messages() const;
    // Calls that change something, since the last time this was asked.
    std::vector<std::string> changes();

    simulated::SimulatedTime time;
    simulated::MemoryFileSystem files;
    IdleWorkspace workspace;
    simulated::SimulatedSystemEvents system;
    simulated::SimulatedZone zone;
    simulated::SimulatedCalendar calendar{time};
    simulated::SimulatedFocus focus;
    simulated::SimulatedPictures pictures;
    simulated::SimulatedLicense license;
    AppLog log;
    std::unique_ptr<AppController> controller;

private:
    struct Window {
        std::string title;
        std::shared_ptr<Element> element;
    };

    void showDisplays(const simulated::DeskSetup& setup);
    void rescueWindows();
    [[nodiscard]] Value windowList() const;

    std::vector<simulated::SimulatedDisplay> m_displays;
    std::vector<RunningApp> m_apps;
    // Front to back.
    std::vector<Window> m_windows;
    MacUserDefaults m_defaults{time};
    MacAccessibility m_accessibility{[this] { return m_apps; }};
    MacDisplayServices m_displayServices;
    CarbonHotKeys m_hotKeys;
};

} // namespace vantrel::fake
