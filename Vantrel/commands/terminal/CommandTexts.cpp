#include "Vantrel/commands/terminal/CommandTexts.h"

#include "Vantrel/commands/ReportMessage.h"
#include "Vantrel/commands/terminal/TextCells.h"
#include "Vantrel/commands/terminal/TextColumns.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/stores/StashStore.h"
#include "VantrelCore/text/NumberText.h"
#include "VantrelCore/text/Translation.h"
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
    return seconds < 1 ? trf("{} ms", static_cast<std::int64_t>(std::ceil(seconds * 1000)))
                       : trf("{} s", NumberText::oneDecimal(seconds));
}

// Windows that were not restored come first: they are what the reader looks for.
constexpr std::array listOrder{RestoreReport::Kind::failed, RestoreReport::Kind::skipped,
                               RestoreReport::Kind::retried, RestoreReport::Kind::restored};

constexpr std::array outcomeNames{marked("restored"), marked("failed"), marked("skipped"), marked("retried")};

std::string layoutLine(const std::string& name, std::int64_t windows, const std::string& date, bool isPinned,
                       const DeskDrawing::Options& options) {
    return fmt::format("{0}{1}{2}{1}{3}{4}", name, separator(options),
                       trn("{} window", "{} windows", windows), trf("saved {}", date),
                       isPinned ? std::string(separator(options)) + tr("pinned") : "");
}

std::string layoutLine(const Layout& layout, const DeskDrawing::Options& options, const DateText& dateText) {
    return layoutLine(layout.layoutName, static_cast<std::int64_t>(layout.windows.size()),
                      dateText(layout.savedAt), layout.isPinned(), options);
}

// "", " (this desk)", " (last seen 1 Mar 2026, 2 stashes)".
std::string remarks(const DeskMessage& desk, const DateText& dateText) {
    std::vector<std::string> remarks;
    if (desk.isCurrent) {
        remarks.emplace_back(tr("this desk"));
    } else if (desk.lastSeen) {
        remarks.push_back(trf("last seen {}", dateText(*desk.lastSeen)));
    }
    if (desk.stashes.value_or(0) > 0) {
        remarks.push_back(trn("{} stash", "{} stashes", *desk.stashes));
    }
    return remarks.empty() ? "" : fmt::format(" ({})", fmt::join(remarks, ", "));
}

} // namespace

std::string status(const StatusMessage& status, const DeskDrawing::Options& options,
                   const DateText& dateText) {
    std::string text;
    constexpr std::array labels{marked("state"), marked("learning"), marked("desk"),     marked("layout"),
                                marked("pin"),   marked("layouts"),  marked("displays"), marked("license"),
                                marked("files"), marked("crashes")};
    const int columns = TextColumns::widthOf(labels, 9);
    const auto add = [&](const char* label, const std::string& value) {
        text += line(fmt::format("{:<{}} {}", tr(label), columns, value), options);
    };
    add("state", status.phase.text);
    if (status.learningFailed) {
        add("learning", tr("could not be saved; will retry while the windows differ from the saved layout"));
    }
    if (status.configID.empty()) {
        add("desk", tr("no display is awake"));
    } else {
        add("desk", status.configName);
    }
    if (status.sameDeskOffer) {
        add("", trf("the same desk as \"{}\"? Then join them: vantrelctl desks same", *status.sameDeskOffer));
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
    const char* label = "displays";
    for (const auto& display : DisplayLabels::labelled(status.displays)) {
        add(label, trf("{} {}x{} at {},{}", display.name, wholePoints(display.frame.width()),
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
        text += tr("For details: vantrelctl doctor\n");
    }
    for (const std::string& mistake : status.settingMistakes.value_or(std::vector<std::string>())) {
        text += "! " + mistake + '\n';
    }
    if (status.crashReports) {
        add("crashes", trn("{} report not sent", "{} reports not sent", *status.crashReports));
    }
    if (status.latestAvailable) {
        text += UpdateOffer::caption(*status.latestAvailable) + '\n';
    }
    return text;
}

std::string report(const RestoreReport& report, const DeskDrawing::Options& options) {
    if (report.items.empty()) {
        return tr("The saved layout contains no windows.\n");
    }
    const auto retried = std::ranges::count(report.items, RestoreReport::Kind::retried,
                                            [](const auto& item) { return item.outcome.kind; });
    std::string text = trn("Restored {1} of {0} window in {2}", "Restored {1} of {0} windows in {2}",
                           static_cast<std::int64_t>(report.expectedCount()), report.restoredCount(),
                           duration(report.elapsed));
    if (retried > 0) {
        text += trf(", {} after a retry", retried);
    }
    if (report.skippedCount() > 0) {
        text += trf(", {} skipped", report.skippedCount());
    }
    if (report.failedCount() > 0) {
        text += trf(", {} failed", report.failedCount());
    }
    text += ".\n";

    auto items = report.items;
    std::ranges::stable_sort(
        items, {}, [](const auto& item) { return std::ranges::find(listOrder, item.outcome.kind); });
    constexpr int appColumns = 20;
    const int outcomeColumns = TextColumns::widthOf(outcomeNames, 8);
    for (const auto& item : items) {
        auto entry =
            fmt::format("  {:<{}}  {}  ", tr(std::string(outcomeName(item.outcome.kind)).c_str()),
                        outcomeColumns, TextCells::padded(item.appName, appColumns, ellipsis(options)));
        const auto& [kind, reason, note] = item.outcome;
        if (!reason.empty()) {
            entry += tr(reason.c_str()) + (note.empty() ? "" : fmt::format(" ({})", tr(note.c_str()))) +
                     (item.title.empty() ? "" : ": ");
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
            text += tr("no layout saved yet\n");
            continue;
        }
        text += line(layoutLine(*shown, options, dateText), options);
        text += DeskDrawing::drawing(shown->displays, shown->windows, options);
        text += DeskDrawing::windowList(shown->displays, shown->windows, options);
        for (const auto& layout : desk.layouts) {
            if (&layout != shown) {
                text += line(trf("also: {}", layoutLine(layout, options, dateText)), options);
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
        auto entry = fmt::format(
            "{} {}  {}{}{}{}{}", stash.id == message.activeStash ? '*' : ' ', stash.id.substr(0, shortID),
            trn("{} window", "{} windows", stash.windowCount), separator(options),
            trf("kept until {}", dateText(stash.createdAt + std::chrono::days{StashStore::retentionDays})),
            separator(options), stash.deskName);
        if (stash.appliedSceneName) {
            entry += separator(options);
            entry += trf("scene {}", *stash.appliedSceneName);
        }
        text += line(entry, options);
    }
    return text;
}

} // namespace vantrel::CommandTexts
