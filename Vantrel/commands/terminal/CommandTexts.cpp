#include "Vantrel/commands/terminal/CommandTexts.h"

#include "Vantrel/commands/ReportMessage.h"
#include "Vantrel/commands/terminal/TextCells.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/stores/StashStore.h"
#include "VantrelCore/text/CountedNoun.h"
#include "VantrelCore/updates/UpdateOffer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>
#include <iterator>

namespace vantrel::CommandTexts {

namespace {

using DeskDrawing::ellipsis, DeskDrawing::line, DeskDrawing::separator;

std::string duration(double seconds) {
    return seconds < 1 ? fmt::format("{:.0f} ms", std::ceil(seconds * 1000))
                       : fmt::format("{:.1f} s", seconds);
}

// Windows that were not restored come first: they are what the reader looks for.
constexpr std::array listOrder{RestoreReport::Kind::failed, RestoreReport::Kind::skipped,
                               RestoreReport::Kind::retried, RestoreReport::Kind::restored};

std::string layoutLine(const std::string& name, std::int64_t windows, const std::string& date, bool isPinned,
                       const DeskDrawing::Options& options) {
    return fmt::format("{0}{1}{2}{1}saved {3}{4}", name, separator(options), countedNoun(windows, "window"),
                       date, isPinned ? std::string(separator(options)) + "pinned" : "");
}

std::string layoutLine(const Layout& layout, const DeskDrawing::Options& options, const DateText& dateText) {
    return layoutLine(layout.layoutName, static_cast<std::int64_t>(layout.windows.size()),
                      dateText(layout.savedAt), layout.isPinned(), options);
}

// "", " (this desk)", " (last seen 1 Mar 2026, 2 stashes)".
std::string remarks(const DeskMessage& desk, const DateText& dateText) {
    std::vector<std::string> remarks;
    if (desk.isCurrent) {
        remarks.emplace_back("this desk");
    } else if (desk.lastSeen) {
        remarks.push_back("last seen " + dateText(*desk.lastSeen));
    }
    if (desk.stashes.value_or(0) > 0) {
        remarks.push_back(fmt::format("{} {}", *desk.stashes, *desk.stashes == 1 ? "stash" : "stashes"));
    }
    return remarks.empty() ? "" : fmt::format(" ({})", fmt::join(remarks, ", "));
}

} // namespace

std::string status(const StatusMessage& status, const DeskDrawing::Options& options,
                   const DateText& dateText) {
    std::string text;
    const auto add = [&](std::string_view label, const std::string& value) {
        text += line(fmt::format("{:<9} {}", label, value), options);
    };
    add("state", status.phase.text);
    if (status.learningFailed) {
        add("learning", "could not be saved; will retry while the windows differ from the saved layout");
    }
    if (status.configID.empty()) {
        add("desk", "no display is awake");
    } else {
        add("desk", status.configName);
    }
    if (status.sameDeskOffer) {
        add("", fmt::format("the same desk as \"{}\"? Then join them: vantrelctl desks same",
                            *status.sameDeskOffer));
    }
    if (status.savedWindows && status.savedAt) {
        add("layout", layoutLine(status.activeLayoutName, *status.savedWindows, dateText(*status.savedAt),
                                 status.activePinned, options));
    }
    if (status.pinPause) {
        add("pin", *status.pinPause);
    }
    if (status.layoutNames.size() > 1) {
        add("layouts", fmt::format("{}", fmt::join(status.layoutNames, ", ")));
    }
    std::string_view label = "displays";
    for (const auto& display : DisplayLabels::labelled(status.displays)) {
        add(label, fmt::format("{} {}x{} at {},{}", display.name, wholePoints(display.frame.width()),
                               wholePoints(display.frame.height()), wholePoints(display.frame.minX()),
                               wholePoints(display.frame.minY())));
        label = "";
    }
    add("license", status.license.reason);
    add("files", status.supportDirectory);
    for (const auto& incident : status.fileIncidents) {
        text += (incident.isTrouble ? "! " : "") + incident.text + '\n';
    }
    if (!status.fileIncidents.empty()) {
        text += "For details: vantrelctl doctor\n";
    }
    for (const std::string& mistake : status.settingMistakes.value_or(std::vector<std::string>())) {
        text += "! " + mistake + '\n';
    }
    if (status.crashReports) {
        add("crashes", countedNoun(*status.crashReports, "report") + " not sent");
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
                                   countedNoun(static_cast<std::int64_t>(report.expectedCount()), "window"),
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
    std::ranges::stable_sort(
        items, {}, [](const auto& item) { return std::ranges::find(listOrder, item.outcome.kind); });
    constexpr int appColumns = 20;
    for (const auto& item : items) {
        auto entry = fmt::format("  {:<8}  {}  ", outcomeName(item.outcome.kind),
                                 TextCells::padded(item.appName, appColumns, ellipsis(options)));
        const auto& [kind, reason, note] = item.outcome;
        if (!reason.empty()) {
            entry += reason + (note.empty() ? "" : " (" + note + ")") + (item.title.empty() ? "" : ": ");
        }
        text += line(entry + item.title, options);
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
        text += line(desk.name + remarks(desk, dateText), options);
        const auto* const shown = desk.shownLayout();
        if (shown == nullptr) {
            text += "no layout saved yet\n";
            continue;
        }
        text += line(layoutLine(*shown, options, dateText), options);
        text += DeskDrawing::drawing(shown->displays, shown->windows, options);
        text += DeskDrawing::windowList(shown->displays, shown->windows, options);
        for (const auto& layout : desk.layouts) {
            if (&layout != shown) {
                text += line("also: " + layoutLine(layout, options, dateText), options);
            }
        }
    }
    return text;
}

std::string layouts(const DeskMessage& desk, const DeskDrawing::Options& options, const DateText& dateText) {
    std::string text;
    for (const Layout& layout : desk.layouts) {
        const auto entry = fmt::format("{} {}", layout.layoutName == desk.activeLayoutName ? '*' : ' ',
                                       layoutLine(layout, options, dateText));
        text += line(entry, options);
    }
    return text;
}

std::string stashes(const StashesMessage& message, const DeskDrawing::Options& options,
                    const DateText& dateText) {
    constexpr std::size_t shortID = 8;
    std::string text;
    for (const Stash& stash : message.stashes) {
        auto entry = fmt::format("{} {}  {}{}kept until {}{}{}", stash.id == message.activeStash ? '*' : ' ',
                                 stash.id.substr(0, shortID), countedNoun(stash.windowCount, "window"),
                                 separator(options),
                                 dateText(stash.createdAt + std::chrono::days{StashStore::retentionDays}),
                                 separator(options), stash.deskName);
        if (stash.appliedSceneName) {
            entry += fmt::format("{}scene {}", separator(options), *stash.appliedSceneName);
        }
        text += line(entry, options);
    }
    return text;
}

} // namespace vantrel::CommandTexts
