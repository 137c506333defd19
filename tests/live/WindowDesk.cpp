#include "tests/live/WindowDesk.h"

#include <algorithm>
#include <stdexcept>
#include <tuple>

namespace vantrel::live {

namespace {

std::shared_ptr<X11Connection> connect(const std::string& display) {
    auto connection = X11Connection::open(display);
    if (!connection) {
        throw std::runtime_error(connection.error());
    }
    return *connection;
}

} // namespace

WindowDesk::WindowDesk(const std::string& windowManager)
    : desk({left, right}, windowManager), connection(connect(desk.display())), accessibility(connection),
      probe(desk.display()) {}

std::optional<CapturedWindow> WindowDesk::capture(const std::string& title) {
    const auto reading = accessibility.beginReading();
    const auto onScreen = reading->onScreenWindows();
    for (const auto& app : reading->runningApps()) {
        for (const auto& window : reading->windows(app)) {
            if (window.attributes.title == title) {
                CapturedWindow found{.app = app,
                                     .attributes = window.attributes,
                                     .element = window.element,
                                     .entry = std::nullopt};
                const auto entry = std::ranges::find_if(onScreen, [&](const WindowListEntry& listed) {
                    return listed.ownerPid == app.pid && listed.bounds == window.attributes.frame();
                });
                if (entry != onScreen.end()) {
                    found.entry = *entry;
                }
                return found;
            }
        }
    }
    return std::nullopt;
}

std::optional<CapturedWindow> WindowDesk::captureWhenTitled(xcb_window_t client) {
    std::optional<CapturedWindow> found;
    std::ignore = desk.connection().waitUntil([&] {
        const auto seen = seenWindow(desk.connection(), client);
        found = seen ? capture(seen->title) : std::nullopt;
        return found.has_value();
    });
    return found;
}

std::optional<Rect> WindowDesk::seenFrame(xcb_window_t client) {
    const auto seen = seenWindow(desk.connection(), client);
    return seen ? std::optional(seen->frame) : std::nullopt;
}

} // namespace vantrel::live
