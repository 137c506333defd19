#include "Vantrel/commands/terminal/CommandTexts.h"

#include "Vantrel/commands/ReportMessage.h"
#include "Vantrel/commands/terminal/TextCells.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/stores/StashStore.h"
#include "VantrelCore/updates/UpdateOffer.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <iterator>

namespace vantrel::CommandTexts {

namespace {

using DeskDrawing::ellipsis;

std::string counted(std::int64_t count, std::string_view what) {
    return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

std::string duration(double seconds) {
    return seconds < 1 ? fmt::format("{:.0f} ms", std::ceil(seconds * 1000))
                       : fmt::format("{:.1f} s", seconds);
}

std::string_view separator(const DeskDrawing::Options& options) {
    return options.characters == DeskDrawing::Characters::ascii ? ", " : " · ";
}

// Windows that were not restored come first: they are what the reader looks for.
int rank(RestoreReport::Kind kind) {
    switch (kind) {
    case RestoreReport::Kind::failed:
        return 0;
    case RestoreReport::Kind::skipped:
        return 1;
    case RestoreReport::Kind::retried:
        return 2;
    case RestoreReport::Kind::restored:
        break;
    }
    return 3;
}

enum class Pin : std::uint8_t { none, pinned };

std::string layoutLine(const std::string& name, std::int64_t windows, const std::string& date, Pin pin,
                       std::string_view separator) {
    auto line = fmt::format("{}{}{}{}saved {}", name, separator, counted(windows, "window"), separator, date);
    if (pin == Pin::pinned) {
        line += fmt::format("{}pinned", separator);
    }
    return line;
}

std::string layoutLine(const Layout& layout, const DeskDrawing::Options& options, const DateText& dateText) {
    return layoutLine(layout.layoutName, static_cast<std::int64_t>(layout.windows.size()),
                      dateText(layout.savedAt), layout.isPinned() ? Pin::pinned : Pin::none,
                      separator(options));
}

} // namespace

std::string status(const StatusMessage& status, const DeskDrawing::Options& options,
                   const DateText& dateText) {
    std::string text;
    const auto line = [&](std::string_view label, const std::string& value) {
        text += TextCells::fitted(fmt::format("{:<9} {}", label, value), options.columns, ellipsis(options)) +
                '\n';
    };
    line("state", status.phase.text);
    if (status.learningFailed) {
        line("learning", "could not be saved; will retry while the windows differ from the saved layout");
    }
    if (status.configID.empty()) {
        line("desk", "no display is awake");
    } else {
        line("desk", status.configName);
    }
    if (status.savedWindows && status.savedAt) {
        line("layout", layoutLine(status.activeLayoutName, *status.savedWindows, dateText(*status.savedAt),
                                  status.activePinned ? Pin::pinned : Pin::none, separator(options)));
    }
    if (status.pinPause) {
        line("pin", *status.pinPause);
    }
    if (status.layoutNames.size() > 1) {
        line("layouts", fmt::format("{}", fmt::join(status.layoutNames, ", ")));
    }
    std::string_view label = "displays";
    for (const auto& display : DisplayLabels::labelled(status.displays)) {
        line(label, fmt::format("{} {}x{} at {},{}", display.name, wholePoints(display.frame.width()),
                                wholePoints(display.frame.height()), wholePoints(display.frame.minX()),
                                wholePoints(display.frame.minY())));
        label = "";
    }
    line("license", status.license.reason);
    line("files", status.supportDirectory);
    for (const auto& incident : status.fileIncidents) {
        text += (incident.isTrouble ? "! " : "") + incident.text + '\n';
    }
    if (!status.fileIncidents.empty()) {
        text += "For details: vantrelctl doctor\n";
    }
    if (status.crashReports) {
        line("crashes", counted(*status.crashReports, "report") + " not sent");
    }
    if (status.latestAvailable) {
        text += UpdateOffer::caption(*status.latestAvailable) + '\n';
    }
    return text;
}

std::string report(const RestoreReport& report, const DeskDrawing::Options& options) {
    if (report.items.empty()) {
        return "The saved layout contains no windows.\n";
    }
    const auto retried = std::ranges::count(report.items, RestoreReport::Kind::retried,
                                            [](const auto& item) { return item.outcome.kind; });
    std::string text = fmt::format("Restored {} of {} in {}", report.restoredCount(),
                                   counted(static_cast<std::int64_t>(report.expectedCount()), "window"),
                                   duration(report.elapsed));
    if (retried > 0) {
        text += fmt::format(", {} after a retry", retried);
    }
    if (report.skippedCount() > 0) {
        text += fmt::format(", {} skipped", report.skippedCount());
    }
    if (report.failedCount() > 0) {
        text += fmt::format(", {} failed", report.failedCount());
    }
    text += ".\n";

    auto items = report.items;
    std::ranges::stable_sort(items, {}, [](const auto& item) { return rank(item.outcome.kind); });
    constexpr int appColumns = 20;
    for (const auto& item : items) {
        auto line = fmt::format("  {:<8}  {}  ", outcomeName(item.outcome.kind),
                                TextCells::padded(item.appName, appColumns, ellipsis(options)));
        const auto& [kind, reason, note] = item.outcome;
        if (!reason.empty()) {
            line += reason + (note.empty() ? "" : " (" + note + ")") + (item.title.empty() ? "" : ": ");
        }
        line = TextCells::fitted(line + item.title, options.columns, ellipsis(options));
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + '\n';
    }
    return text;
}

std::string desks(const DesksMessage& message, const DeskDrawing::Options& options,
                  const DateText& dateText) {
    std::string text;
    for (const auto& desk : message.desks) {
        if (!text.empty()) {
            text += '\n';
        }
        text += TextCells::fitted(desk.name + (desk.isCurrent ? " (this desk)" : ""), options.columns,
                                  ellipsis(options)) +
                '\n';
        const auto* const shown = desk.shownLayout();
        if (shown == nullptr) {
            text += "no layout saved yet\n";
            continue;
        }
        text += TextCells::fitted(layoutLine(*shown, options, dateText), options.columns, ellipsis(options)) +
                '\n';
        text += DeskDrawing::drawing(shown->displays, shown->windows, options);
        text += DeskDrawing::windowList(shown->displays, shown->windows, options);
        for (const auto& layout : desk.layouts) {
            if (&layout != shown) {
                text += TextCells::fitted("also: " + layoutLine(layout, options, dateText), options.columns,
                                          ellipsis(options)) +
                        '\n';
            }
        }
    }
    return text;
}

std::string layouts(const DeskMessage& desk, const DeskDrawing::Options& options, const DateText& dateText) {
    std::string text;
    for (const Layout& layout : desk.layouts) {
        const auto line = fmt::format("{} {}", layout.layoutName == desk.activeLayoutName ? '*' : ' ',
                                      layoutLine(layout, options, dateText));
        text += TextCells::fitted(line, options.columns, ellipsis(options)) + '\n';
    }
    return text;
}

std::string stashes(const StashesMessage& message, const DeskDrawing::Options& options,
                    const DateText& dateText) {
    constexpr std::size_t shortID = 8;
    std::string text;
    for (const Stash& stash : message.stashes) {
        auto line =
            fmt::format("{} {}  {}{}kept until {}{}{}", stash.id == message.activeStash ? '*' : ' ',
                        stash.id.substr(0, shortID), counted(stash.windowCount, "window"), separator(options),
                        dateText(stash.createdAt + std::chrono::days{StashStore::retentionDays}),
                        separator(options), stash.deskName);
        if (stash.appliedSceneName) {
            line += fmt::format("{}scene {}", separator(options), *stash.appliedSceneName);
        }
        text += TextCells::fitted(line, options.columns, ellipsis(options)) + '\n';
    }
    return text;
}

} // namespace vantrel::CommandTexts
