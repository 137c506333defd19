#include "Vantrel/controller/ControllerText.h"

#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/displays/DisplayTopology.h"
#include "VantrelCore/windows/RestoreEngine.h"

#include <algorithm>
#include <fmt/format.h>

namespace vantrel::ControllerText {

std::string displaySettled(const std::string& configID, const std::vector<DisplayInfo>& displays) {
    if (displays.empty()) {
        return "display settled: no displays";
    }
    return fmt::format("display settled: {} {} ({} {})", configID, DisplayTopology::configName(displays),
                       displays.size(), displays.size() == 1 ? "display" : "displays");
}

std::string reconnected(const std::vector<DisplayInfo>& before, const std::vector<DisplayInfo>& after) {
    std::string names;
    for (const auto& display : DisplayLabels::labelled(after)) {
        if (std::ranges::find(before, display.uuid, &DisplayInfo::uuid) == before.end()) {
            names += (names.empty() ? "" : " and ") + display.name;
        }
    }
    return names.empty() ? "" : names + " reconnected";
}

std::string restoreReport(const RestoreReport& report) {
    using Kind = RestoreReport::Kind;
    const auto retried = std::ranges::count_if(
        report.items, [](const RestoreReport::Item& item) { return item.outcome.kind == Kind::retried; });
    std::string text =
        fmt::format("restore report: {} restored, {} failed, {} skipped, {} retried, {} expected, {:.0f} ms",
                    report.restoredCount(), report.failedCount(), report.skippedCount(), retried,
                    report.expectedCount(), report.elapsed * 1000);
    const char* separator = "; failed: ";
    for (const auto& item : report.items) {
        if (item.outcome.kind == Kind::failed) {
            text += fmt::format("{}{} \"{}\" ({})", separator, item.appName, item.title, item.outcome.reason);
            separator = ", ";
        }
    }
    const auto tiled = std::ranges::count_if(report.items, [](const RestoreReport::Item& item) {
        return item.outcome.reason == RestoreEngine::tiledReason;
    });
    if (tiled > 0) {
        text += fmt::format("; {} left to the window manager, which tiles",
                            windows(static_cast<std::size_t>(tiled)));
    }
    return text;
}

std::string windows(std::size_t count) {
    return fmt::format("{} {}", count, count == 1 ? "window" : "windows");
}

} // namespace vantrel::ControllerText
