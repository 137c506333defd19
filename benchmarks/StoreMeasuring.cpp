#include "benchmarks/StoreMeasuring.h"

#include <fmt/format.h>

namespace vantrel::bench {

Layout layoutOf(std::size_t windows) {
    Layout layout{.configID = "0123456789abcdef0123456789abcdef",
                  .name = "Alpha Monitor + Built-in Display",
                  .layoutName = Layout::defaultName,
                  .displays = {},
                  .windows = {},
                  .savedAt = {},
                  .pinned = std::nullopt};
    const char* const display = "37D8832A-2D66-02CA-B9F7-8F30A301B230";
    layout.displays.push_back({.uuid = display,
                               .name = "Alpha Monitor",
                               .frame = {{0, 0}, {2560, 1440}},
                               .isBuiltin = false,
                               .edidUUID = std::nullopt,
                               .visibleFrame = Rect{{0, 30}, {2560, 1410}}});
    for (std::size_t i = 0; i < windows; ++i) {
        const double offset = static_cast<double>(i % 500);
        layout.windows.push_back({.bundleID = fmt::format("org.example.application{}", i % 25),
                                  .appName = fmt::format("Application {}", i % 25),
                                  .title = fmt::format("Document {} – edited", i),
                                  .frame = {{offset, offset}, {800, 600}},
                                  .displayUUID = display,
                                  .zOrder = static_cast<std::int64_t>(i),
                                  .isGhost = std::nullopt});
    }
    return layout;
}

} // namespace vantrel::bench
