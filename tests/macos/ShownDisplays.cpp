#include "tests/macos/ShownDisplays.h"

#include "tests/macos/fake/Registry.h"
#include "tests/macos/fake/WindowServer.h"

namespace vantrel::fake {

using simulated::SimulatedDisplay;

void showDisplays(const std::vector<SimulatedDisplay>& displays) {
    windowServer().displays.clear();
    auto& ports = registry().services["AppleDCPDPTXRemotePortUFP"];
    ports.clear();
    for (const auto& display : displays) {
        const Rect& frame = display.frame;
        windowServer().displays.push_back(
            {.id = display.id,
             .bounds = {{frame.minX(), frame.minY()}, {frame.width(), frame.height()}},
             .isBuiltin = display.isBuiltin,
             .uuid = display.uuid});
        if (display.edidUUID) {
            ports.push_back({{"DisplayHints", dictionary({{"ProductName", text(display.name)},
                                                          {"EDID UUID", text(*display.edidUUID)}})}});
        }
    }
}

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

} // namespace vantrel::fake
