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

#include <deque>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace vantrel::fake {

// How a real Mac is less convenient than the plain one. Nothing of it is on unless a test says so; set it
// before the windows open.
struct Unkindness {
    // Seconds until a window has followed a request that its application accepted at once.
    double lateArrival = 0;
    // While an application's enhanced interface is on, its windows glide: they arrive later still.
    bool animates = false;
    // The window list shows windows where they were so many seconds ago.
    double listLag = 0;
    // Applications have small untitled windows that nobody sees.
    bool hasHelperWindows = false;
    // Only the first application is on stage; the others' windows are listed as thumbnails.
    bool hasStageManager = false;
    // Callbacks come for each display at the begin and at the end, in between no display is active, and
    // AppKit's screens are so many seconds late.
    double screensLate = 0;
    // Timers take so many times as long.
    double timerStretch = 1;
};

// Of the simulated desk it has the time, the disk, the log, and applications that are neither started nor
// hidden.
class MacStory : public simulated::Story {
public:
    explicit MacStory(const std::string& setup);
    ~MacStory();

    Unkindness unkindness;

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
    // The same while the machine sleeps: its clock stands still, and callbacks come when it wakes.
    void connectAsleep(const std::string& setup);
    // Applications refuse every request while the session is locked.
    void lock();
    void unlock();

    // Calls that change something, since the last time this was asked.
    std::vector<std::string> changes();

private:
    // The main queue of a Mac that stretches timers.
    class StretchedQueue final : public MainQueue {
    public:
        explicit StretchedQueue(MacStory& story) : m_story(story) {}
        void post(std::function<void()> work) override { m_story.time.post(std::move(work)); }
        [[nodiscard]] std::unique_ptr<ScheduledWork> after(double seconds,
                                                           std::function<void()> work) override;
        [[nodiscard]] std::unique_ptr<ScheduledWork> every(double seconds,
                                                           std::function<void()> work) override;

    private:
        MacStory& m_story;
    };

    void become(const std::string& setup);
    void rescueWindows();
    AXError write(const std::string& title, const std::string& attribute, const Value& value);
    [[nodiscard]] Value windowList();
    void noteFrames();

    std::vector<simulated::SimulatedDisplay> m_displays;
    std::vector<RunningApp> m_apps;
    // By title.
    std::map<std::string, std::shared_ptr<Element>> m_windows;
    // Titles of windows on other Spaces.
    std::set<std::string> m_elsewhere;
    std::vector<simulated::SimulatedDisplay> m_screens;
    // For the window list: where windows were at these times.
    std::deque<std::pair<double, std::map<std::string, CGRect>>> m_pastFrames;
    StretchedQueue m_queue{*this};
    MacUserDefaults m_defaults{time};
    MacAccessibility m_accessibility{[this] { return m_apps; }, time};
    AccessibilityDesk m_desk{m_accessibility, time};
    MacDisplayServices m_displayServices;
    CarbonHotKeys m_hotKeys;
};

} // namespace vantrel::fake
