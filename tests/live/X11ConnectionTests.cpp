#include "tests/live/WindowDesk.h"

#include <atomic>
#include <mutex>

namespace vantrel::live {
namespace {

TEST(X11ConnectionEvents, AHandlerThatThrowsIsLoggedAndTheOthersStillRun) {
    const PrivateDesk desk({left}, "");
    const auto x11 = connectTo(desk);
    std::mutex mutex;
    std::vector<std::string> lines;
    std::atomic<int> calls = 0;
    const auto log = x11->onThrown([&](const std::string& line) {
        const std::lock_guard lock(mutex);
        lines.push_back(line);
    });
    const auto thrower =
        x11->onEvent(XCB_PROPERTY_NOTIFY, [](const auto&) { throw std::runtime_error("no room"); });
    const auto counter = x11->onEvent(XCB_PROPERTY_NOTIFY, [&](const auto&) { ++calls; });
    const auto selected = x11->selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
    for (int i = 0; i < 2; ++i) {
        xcb_change_property(x11->xcb(), XCB_PROP_MODE_REPLACE, x11->root(), XCB_ATOM_WM_NAME, XCB_ATOM_STRING,
                            8, 1, "x");
    }
    x11->synchronize();
    EXPECT_TRUE(waitUntil([&] { return calls == 2; }));
    const std::lock_guard lock(mutex);
    EXPECT_EQ(lines, std::vector<std::string>(2, "x11 event: stopped by an error: no room"));
}

} // namespace
} // namespace vantrel::live
