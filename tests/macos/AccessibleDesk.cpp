#include "tests/macos/AccessibleDesk.h"

#include "tests/macos/ShownDisplays.h"
#include "tests/macos/fake/WindowServer.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vantrel::fake {

using simulated::SimulatedDesk;
using simulated::SimulatedWindow;

namespace {

Value subrole(WindowKind kind) {
    return text(kind == WindowKind::ordinary ? "AXStandardWindow"
                : kind == WindowKind::panel  ? "AXDialog"
                                             : "AXUnknown");
}

// What an application that does as it is told makes of one order.
WindowOutcome carryOut(SimulatedDesk& desk, const WindowOrder& order) {
    return desk.port().arrange(std::array{order}, MovePermit()).front();
}

} // namespace

AccessibleDesk::Displays::Displays(SimulatedDesk& desk)
    : m_desk(desk), m_services([this] { return kitScreens(m_desk.displays()); }) {
    showDisplays(desk.displays());
    desk.displayServices().setReconfigurationHandler([this] {
        showDisplays(m_desk.displays());
        notifyReconfiguration(kCGDisplayMovedFlag);
    });
}

std::vector<DisplayInfo> AccessibleDesk::Displays::displays() {
    return m_services.displays();
}

void AccessibleDesk::Displays::setReconfigurationHandler(std::function<void()> handler) {
    m_services.setReconfigurationHandler(std::move(handler));
}

AccessibleDesk::AccessibleDesk(simulated::Story& story)
    : m_desk(story.desk), m_accessibility([this] { return runningApps(); }, story.time),
      m_port(m_accessibility, story.time), m_displays(story.desk) {
    story.deskPort = &m_port;
    story.displayPort = &m_displays;
    accessibility().trust = [this] { return m_desk.port().isTrusted(); };
    windowServer().windowList = [this] { return windowList(); };
}

std::vector<RunningApp> AccessibleDesk::runningApps() {
    auto apps = m_desk.port().capture({.onlyBundleIDs = std::set<std::string>()}).apps;
    for (const RunningApp& app : apps) {
        accessibility().applications.try_emplace(app.pid, application(app.pid));
    }
    return apps;
}

std::shared_ptr<Element> AccessibleDesk::application(std::int32_t pid) {
    const auto made = std::make_shared<Element>();
    made->pid = pid;
    made->onRequest = [this, &application = *made] { refreshApplication(application); };
    return made;
}

void AccessibleDesk::refreshApplication(Element& application) {
    std::vector<Value> windows;
    application.isHanging = false;
    for (const auto& window : m_desk.windows()) {
        if (window->pid == application.pid) {
            windows.push_back(reference(element(window->id)));
        }
    }
    application.attributes["AXWindows"] = array(std::move(windows));
}

std::shared_ptr<Element> AccessibleDesk::element(WindowID window) {
    auto& found = m_elements[window];
    if (!found) {
        found = std::make_shared<Element>();
        found->pid = m_desk.window(window).pid;
        found->onRequest = [this, window, &made = *found] { refreshWindow(made, window); };
        found->onWrite = [this, window](const std::string& attribute, const Value& value) {
            return write(window, attribute, value);
        };
        found->onAction = [this, window](const std::string& /*action*/) {
            return carryOut(m_desk, {.window = window, .raises = true}).isTaken ? kAXErrorSuccess
                                                                                : kAXErrorCannotComplete;
        };
    }
    return found;
}

void AccessibleDesk::refreshWindow(Element& element, WindowID window) {
    const auto seen = m_desk.port().look(std::array{window}).front();
    element.isDead = !m_desk.exists(window);
    element.isHanging = !seen && !element.isDead;
    if (seen) {
        element.attributes["AXTitle"] = text(seen->title);
        element.attributes["AXSubrole"] = subrole(seen->kind);
        element.attributes["AXMinimized"] = boolean(seen->states.isMinimized);
        element.attributes["AXFullScreen"] = boolean(seen->states.isFullscreen);
        element.attributes["AXPosition"] = pointValue(seen->frame->minX(), seen->frame->minY());
        element.attributes["AXSize"] = sizeValue(seen->frame->width(), seen->frame->height());
    }
}

AXError AccessibleDesk::write(WindowID window, const std::string& attribute, const Value& value) {
    if (attribute == "AXMinimized") {
        m_desk.window(window).states.isMinimized =
            CFBooleanGetValue(static_cast<CFBooleanRef>(value.get())) != 0;
        return kAXErrorSuccess;
    }
    WindowOrder order{.window = window};
    const auto held = static_cast<AXValueRef>(value.get());
    if (attribute == "AXPosition") {
        CGPoint point{};
        AXValueGetValue(held, kAXValueTypeCGPoint, &point);
        order.target.position = Point{point.x, point.y};
    } else {
        CGSize size{};
        AXValueGetValue(held, kAXValueTypeCGSize, &size);
        order.target.size = Size{size.width, size.height};
    }
    if (carryOut(m_desk, order).isTaken) {
        return kAXErrorSuccess;
    }
    return m_desk.exists(window) ? kAXErrorFailure : kAXErrorInvalidUIElement;
}

Value AccessibleDesk::windowList() {
    std::vector<Value> items;
    for (const WindowOutline& window : m_desk.port().outlines()) {
        const Rect& frame = window.frame;
        items.push_back(
            listItem({.layer = number(0),
                      .pid = number(window.pid),
                      .bounds = rectangle({{frame.minX(), frame.minY()}, {frame.width(), frame.height()}})}));
    }
    return array(std::move(items));
}

} // namespace vantrel::fake
