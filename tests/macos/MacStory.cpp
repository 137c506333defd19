#include "tests/macos/MacStory.h"

#include "VantrelCore/displays/DisplayGeometry.h"
#include "tests/macos/fake/Registry.h"
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

// As AppKit gives the screens.
std::vector<Screen> kitScreens(const std::vector<SimulatedDisplay>& displays) {
    std::vector<Screen> screens;
    for (const auto& display : displays) {
        const auto fromBottomLeft = [&](const Rect& rect) {
            return Rect{{rect.minX(), displays.front().frame.height() - rect.maxY()}, rect.size};
        };
        screens.push_back(
            {display.id, display.name, fromBottomLeft(display.frame), fromBottomLeft(display.usableFrame())});
    }
    return screens;
}

} // namespace

MacStory::MacStory(const std::string& setup)
    : Story(setup), m_displayServices([this] { return kitScreens(m_displays); }) {
    showDisplays(DeskSetup::named(setup));
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
    auto created = AppController::create(
        {.desk = m_desk,
         .displays = m_displayServices,
         .workspace = workspace,
         .systemEvents = system,
         .defaults = m_defaults,
         .clock = time,
         .mainQueue = time,
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

void MacStory::connect(const std::string& setup) {
    constexpr double spacing = 0.1;
    notifyReconfiguration(kCGDisplayBeginConfigurationFlag);
    time.schedule(spacing, [this, setup] {
        showDisplays(DeskSetup::named(setup));
        rescueWindows();
        notifyReconfiguration(kCGDisplayAddFlag | kCGDisplayRemoveFlag);
    });
    time.schedule(2 * spacing, [] { notifyReconfiguration(kCGDisplayDesktopShapeChangedFlag); });
    time.runFor(14);
}

std::vector<std::string> MacStory::changes() {
    auto calls = std::exchange(accessibility().calls, {});
    std::erase_if(calls, [](const std::string& call) { return call.starts_with("get "); });
    return calls;
}

void MacStory::showDisplays(const DeskSetup& setup) {
    m_displays = setup.displays;
    windowServer().displays.clear();
    auto& ports = registry().services["AppleDCPDPTXRemotePortUFP"];
    ports.clear();
    for (const auto& display : m_displays) {
        windowServer().displays.push_back({.id = display.id,
                                           .bounds = as<CGRect>(display.frame),
                                           .isBuiltin = display.isBuiltin,
                                           .uuid = display.uuid});
        if (display.edidUUID) {
            ports.push_back({{"DisplayHints", dictionary({{"ProductName", text(display.name)},
                                                          {"EDID UUID", text(*display.edidUUID)}})}});
        }
    }
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

Value MacStory::windowList() const {
    // The menu bar comes first, as on every Mac.
    std::vector<Value> items{listItem({.layer = number(24), .pid = number(1), .bounds = rectangle({})})};
    for (const auto& [title, element] : m_windows) {
        if (m_elsewhere.contains(title)) {
            continue;
        }
        items.push_back(listItem(
            {.layer = number(0), .pid = number(element->pid), .bounds = rectangle(fake::frameOf(*element))}));
    }
    return array(std::move(items));
}

} // namespace vantrel::fake
