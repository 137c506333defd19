#include "tests/macos/MacStory.h"

#include "VantrelCore/displays/DisplayGeometry.h"
#include "tests/macos/ShownDisplays.h"
#include "tests/macos/fake/WindowServer.h"

#include <algorithm>

namespace vantrel::fake {

using simulated::DeskSetup;
using simulated::SimulatedDisplay;

namespace {

constexpr const char* folder = "/Users/me/Library/Application Support/Vantrel";

template <typename To>
To as(const auto& rect) {
    return {{rect.origin.x, rect.origin.y}, {rect.size.width, rect.size.height}};
}

} // namespace

MacStory::MacStory(const std::string& setup)
    : Story(setup), m_displayServices([this] { return kitScreens(m_screens); }) {
    m_displays = DeskSetup::named(setup).displays;
    m_screens = m_displays;
    showDisplays(m_displays);
    windowServer().windowList = [this] { return windowList(); };
}

MacStory::~MacStory() {
    controller.reset();
    time.endJobs();
}

std::shared_ptr<Element> MacStory::run(const std::string& bundleID, const std::string& name,
                                       const std::vector<std::pair<std::string, CGRect>>& windows) {
    const auto pid = static_cast<std::int32_t>(500 + m_apps.size());
    auto application = runApplication(pid);
    m_apps.push_back(
        {.pid = pid, .policy = ActivationPolicy::regular, .bundleID = bundleID, .localizedName = name});
    std::vector<std::shared_ptr<Element>> elements;
    for (const auto& [title, frame] : windows) {
        const auto element = makeWindow(title, frame);
        m_windows[title] = element;
        elements.push_back(element);
        if (unkindness.lateArrival > 0 || unkindness.animates) {
            element->onWrite = [this, title](const std::string& attribute, const Value& value) {
                return write(title, attribute, value);
            };
        }
    }
    if (unkindness.hasHelperWindows) {
        elements.push_back(makeWindow("", {{0, 0}, {1, 1}}));
        elements.back()->attributes["AXSubrole"] = text("AXUnknown");
    }
    listWindows(*application, elements);
    return application;
}

std::map<std::string, Rect> MacStory::frames() const {
    std::map<std::string, Rect> result;
    for (const auto& [title, element] : m_windows) {
        result[title] = as<Rect>(fake::frameOf(*element));
    }
    return result;
}

void MacStory::showOnThisSpace(const std::string& title, bool isShown) {
    if (isShown) {
        m_elsewhere.erase(title);
    } else {
        m_elsewhere.insert(title);
    }
    const auto pid = m_windows.at(title)->pid;
    std::vector<std::shared_ptr<Element>> listed;
    for (const auto& [each, element] : m_windows) {
        if (element->pid == pid && !m_elsewhere.contains(each)) {
            listed.push_back(element);
        }
    }
    listWindows(*accessibility().applications.at(pid), listed);
}

void MacStory::start() {
    if (unkindness.listLag > 0) {
        noteFrames();
    }
    // The main run loop delivers them a little later.
    accessibility().onMove = [this] { time.schedule(0.02, deliverMoves); };
    auto created = AppController::create(
        {.desk = m_desk,
         .displays = m_displayServices,
         .workspace = workspace,
         .systemEvents = system,
         .defaults = m_defaults,
         .clock = time,
         .mainQueue = m_queue,
         .background = time,
         .localZone = zone,
         .calendar = calendar,
         .focus = focus,
         .pictures = pictures,
         .hotKeys = m_hotKeys,
         .license = license},
        files, log, {.supportDirectory = folder, .ownBundleID = "org.vantrel.Vantrel", .version = "1.0.0"});
    controller = std::move(created.value());
    controller->watchForPermission();
    controller->startEngine();
}

std::unique_ptr<ScheduledWork> MacStory::StretchedQueue::after(double seconds, std::function<void()> work) {
    return m_story.time.after(seconds * m_story.unkindness.timerStretch, std::move(work));
}

std::unique_ptr<ScheduledWork> MacStory::StretchedQueue::every(double seconds, std::function<void()> work) {
    return m_story.time.every(seconds * m_story.unkindness.timerStretch, std::move(work));
}

void MacStory::become(const std::string& setup) {
    m_displays = DeskSetup::named(setup).displays;
    showDisplays(m_displays);
    time.schedule(unkindness.screensLate, [this] { m_screens = m_displays; });
    rescueWindows();
}

void MacStory::connect(const std::string& setup) {
    constexpr double spacing = 0.1;
    const auto isSplit = unkindness.screensLate > 0;
    const auto notifyEach = [isSplit](CGDisplayChangeSummaryFlags flags, std::size_t displays) {
        for (std::size_t i = 0; i < (isSplit ? displays : 1); ++i) {
            notifyReconfiguration(flags);
        }
    };
    notifyEach(kCGDisplayBeginConfigurationFlag, m_displays.size());
    if (isSplit) {
        time.schedule(spacing / 2, [] {
            windowServer().displays.clear();
            notifyReconfiguration(kCGDisplayDisabledFlag);
        });
    }
    time.schedule(spacing, [this, setup, notifyEach] {
        become(setup);
        notifyEach(kCGDisplayAddFlag | kCGDisplayRemoveFlag, m_displays.size());
    });
    time.schedule(2 * spacing, [] { notifyReconfiguration(kCGDisplayDesktopShapeChangedFlag); });
    time.runFor(14 * unkindness.timerStretch);
}

void MacStory::connectAsleep(const std::string& setup) {
    system.setAsleep(true);
    become(setup);
    system.setAsleep(false);
    notifyReconfiguration(kCGDisplayAddFlag | kCGDisplayRemoveFlag);
    time.runFor(30);
}

void MacStory::lock() {
    system.setLocked(true);
    for (const auto& [title, element] : m_windows) {
        element->isHanging = true;
    }
}

void MacStory::unlock() {
    for (const auto& [title, element] : m_windows) {
        element->isHanging = false;
    }
    system.setLocked(false);
    time.runFor(30);
}

AXError MacStory::write(const std::string& title, const std::string& attribute, const Value& value) {
    constexpr double glide = 0.4;
    const Element& application = *accessibility().applications.at(m_windows.at(title)->pid);
    const auto enhanced = application.attributes.find("AXEnhancedUserInterface");
    const bool isGliding = unkindness.animates && enhanced != application.attributes.end() &&
                           CFBooleanGetValue(static_cast<CFBooleanRef>(enhanced->second.get()));
    time.schedule(unkindness.lateArrival + (isGliding ? glide : 0), [this, title, attribute, value] {
        Element& element = *m_windows.at(title);
        element.attributes[attribute] = value;
        // Reports the change.
        setFrame(element, fake::frameOf(element));
    });
    return kAXErrorSuccess;
}

std::vector<std::string> MacStory::changes() {
    auto calls = std::exchange(accessibility().calls, {});
    std::erase_if(calls, [](const std::string& call) { return call.starts_with("get "); });
    return calls;
}

void MacStory::rescueWindows() {
    for (const auto& [title, element] : m_windows) {
        const Rect frame = as<Rect>(fake::frameOf(*element));
        const bool isShown = std::ranges::any_of(m_displays, [&](const SimulatedDisplay& display) {
            return display.frame.contains(frame.center());
        });
        if (!isShown) {
            setFrame(*element, as<CGRect>(DisplayGeometry::clamp(frame, m_displays.front().usableFrame())));
        }
    }
}

void MacStory::noteFrames() {
    std::map<std::string, CGRect> now;
    for (const auto& [title, element] : m_windows) {
        now[title] = fake::frameOf(*element);
    }
    m_pastFrames.emplace_back(time.monotonicSeconds(), std::move(now));
    // One more, which shows how it was before.
    while (m_pastFrames.size() > 1 && m_pastFrames[1].first <= time.monotonicSeconds() - unkindness.listLag) {
        m_pastFrames.pop_front();
    }
    constexpr double interval = 0.1;
    time.schedule(interval, [this] { noteFrames(); });
}

Value MacStory::windowList() {
    // The menu bar comes first, as on every Mac.
    std::vector<Value> items{listItem({.layer = number(24), .pid = number(1), .bounds = rectangle({})})};
    const auto add = [&](pid_t pid, const CGRect& bounds) {
        items.push_back(listItem({.layer = number(0), .pid = number(pid), .bounds = rectangle(bounds)}));
    };
    double thumbnail = 100;
    for (const auto& [title, element] : m_windows) {
        if (m_elsewhere.contains(title)) {
            continue;
        }
        if (unkindness.hasHelperWindows) {
            add(element->pid, {{0, 0}, {1, 1}});
        }
        if (unkindness.hasStageManager && element->pid != m_apps.front().pid) {
            add(element->pid, {{-40, thumbnail += 130}, {180, 120}});
        } else if (m_pastFrames.empty()) {
            add(element->pid, fake::frameOf(*element));
        } else {
            add(element->pid, m_pastFrames.front().second.at(title));
        }
    }
    return array(std::move(items));
}

} // namespace vantrel::fake
