#include "Vantrel/interface/workbench/history/HistoryContent.h"

#include "Vantrel/interface/DayText.h"
#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/symbols/Symbols.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/scenes/SceneIconography.h"
#include "VantrelCore/text/RelativeTimeCaption.h"
#include "VantrelCore/text/RestoreCauseCaption.h"
#include "VantrelCore/text/RestoreLogFormatting.h"
#include "VantrelCore/text/Unicode.h"
#include "VantrelCore/text/UsageReceiptCopy.h"

#include <algorithm>
#include <fmt/format.h>
#include <numeric>

namespace vantrel {

namespace {

using Context = HistoryContent::Context;
using Entry = RestoreLog::Entry;
using Item = RestoreLog::Item;
using Outcome = RestoreLog::Outcome;

constexpr std::int64_t shownDays = 30;
// Closer than this a window counts as being in its place: programs round their sizes.
constexpr double tolerance = 2;

// The index in the log is no identity, because new entries are added at the front.
std::string idOf(const Entry& entry) {
    return fmt::format("{} {}", entry.date.time_since_epoch().count(), entry.reason);
}

bool wasInPlace(const Item& item) {
    return item.outcome == Outcome::restored && item.move &&
           approxEqual(item.move->from, item.move->target, tolerance);
}

std::string labelOf(const Item& item) {
    return wasInPlace(item) ? std::string(tr("Was in place")) : RestoreLogFormatting::label(item);
}

std::string deskName(const Entry& entry, const Context& context) {
    const auto found = context.desks.find(entry.configID);
    return found == context.desks.end() ? std::string(tr("Another desk")) : found->second.name;
}

bool contains(const std::string& text, const std::string& searched) {
    return Unicode::lowercased(text).find(searched) != std::string::npos;
}

bool isFound(const Entry& entry, const std::string& searched, const Context& context) {
    return searched.empty() || contains(deskName(entry, context), searched) ||
           std::ranges::any_of(entry.items,
                               [&](const Item& item) { return contains(item.appName, searched); });
}

std::string symbolOf(const Entry& entry) {
    switch (RestoreCauseCaption::kind(entry)) {
    case RestoreCauseCaption::Kind::displays:
        return "monitor";
    case RestoreCauseCaption::Kind::scene:
        return std::string(Symbols::ofSystemSymbol(SceneIconography::symbol(*entry.sceneName)));
    case RestoreCauseCaption::Kind::asked:
        return "restore";
    case RestoreCauseCaption::Kind::layout:
        return "window";
    case RestoreCauseCaption::Kind::pinned:
        return "pin";
    case RestoreCauseCaption::Kind::stash:
        return "stash";
    case RestoreCauseCaption::Kind::undo:
        return "undo";
    case RestoreCauseCaption::Kind::other:
        break;
    }
    return "restore";
}

// The desk unless it is this one, and what could not be moved first.
std::string rowDetail(const Entry& entry, const PublishedState& state, const Context& context) {
    const auto count = [&](Outcome outcome) {
        return std::ranges::count(entry.items, outcome, &Item::outcome);
    };
    std::string text = RestoreLogFormatting::summary(entry);
    if (const auto failed = count(Outcome::failed); failed > 0) {
        text = trn("{} could not move", "{} could not move", failed);
        if (const auto back = count(Outcome::restored) + count(Outcome::retried); back > 0) {
            text += " · " + trn("{} put back", "{} put back", back);
        }
    }
    return entry.configID == state.configID ? text : deskName(entry, context) + " · " + text;
}

void addRestores(HistoryContent& content, const PublishedState& state, const Context& context) {
    const std::string searched = Unicode::lowercased(Unicode::trimmed(context.search));
    std::string shownDay;
    for (const Entry& entry : context.log.entries) {
        const bool hasProblems = RestoreLogFormatting::hasProblems(entry);
        if ((context.hasProblemsOnly && !hasProblems) || !isFound(entry, searched, context)) {
            continue;
        }
        if (const auto day = DayText::day(entry.date, context.now, context.zone); day != shownDay) {
            content.rows.push_back({.id = "day " + day, .kind = ListRow::Kind::heading, .title = day});
            shownDay = day;
        }
        content.rows.push_back({.id = idOf(entry),
                                .title = RestoreCauseCaption::title(entry),
                                .detail = rowDetail(entry, state, context),
                                .note = DayText::time(entry.date, context.zone),
                                .symbol = symbolOf(entry),
                                .tone = hasProblems ? ListRow::Tone::warning : ListRow::Tone::plain});
    }
}

void addApps(HistoryContent& content, const Context& context) {
    const std::string searched = Unicode::lowercased(Unicode::trimmed(context.search));
    for (const AppReliability& app : context.apps) {
        if ((context.hasProblemsOnly && app.failedCount <= 0) ||
            !(searched.empty() || contains(app.appName, searched))) {
            continue;
        }
        content.rows.push_back({.id = app.bundleID,
                                .title = app.appName.empty() ? app.bundleID : app.appName,
                                .detail = RestoreLogFormatting::reliabilitySummary(app),
                                .bundleID = app.bundleID,
                                .tone = app.isStubborn() ? ListRow::Tone::warning : ListRow::Tone::plain});
    }
}

// Windows that could not be moved come first.
void addDrawing(HistoryContent::Detail& detail, const std::vector<Item>& items,
                const std::vector<DisplayInfo>& displays) {
    DeskPicture picture{.displays = DisplayLabels::labelled(displays), .windows = {}};
    for (std::size_t i = 0; i < items.size(); ++i) {
        const Item& item = items[i];
        if (!item.move) {
            continue;
        }
        detail.drawn[std::to_string(i)] = picture.windows.size();
        DeskPicture::Window window{.bundleID = item.bundleID,
                                   .appName = item.appName,
                                   .title = item.title,
                                   .frame = item.move->target};
        if (item.outcome == Outcome::failed) {
            window.state = DeskPicture::Window::State::couldNotMove;
        } else if (!approxEqual(item.move->from, item.move->target, tolerance)) {
            window.now = item.move->from;
        }
        picture.windows.push_back(std::move(window));
    }
    if (!picture.windows.empty() && !picture.displays.empty()) {
        detail.drawing = std::move(picture);
    }
}

ListRow lineOf(const Item& item, std::size_t index) {
    const bool hasFailed = item.outcome == Outcome::failed;
    return {.id = std::to_string(index),
            .title = item.appName,
            .detail = item.title,
            .note = labelOf(item),
            .noteSymbol = hasFailed                          ? "warn"
                          : item.outcome == Outcome::retried ? "undo"
                          : item.outcome == Outcome::skipped ? "close"
                                                             : "check",
            .bundleID = item.bundleID,
            .tone = hasFailed ? ListRow::Tone::warning : ListRow::Tone::plain};
}

std::string asText(const HistoryContent::Detail& detail, const std::vector<Item>& items) {
    std::string text = detail.title + '\n' + detail.subtitle + '\n';
    for (const Item& item : items) {
        text += fmt::format("{}{}: {}\n", item.appName, item.title.empty() ? "" : " — " + item.title,
                            labelOf(item));
    }
    return text;
}

// What applied the scene, if not the user.
std::string triggerText(const Entry& entry) {
    return entry.reason.starts_with("trigger schedule")   ? tr("at its time")
           : entry.reason.starts_with("trigger calendar") ? tr("for a video call")
           : entry.reason.starts_with("trigger focus")    ? tr("by a Focus")
                                                          : "";
}

HistoryContent::Detail opened(const Entry& entry, const PublishedState& state, const Context& context) {
    HistoryContent::Detail detail;
    detail.id = idOf(entry);
    detail.title = RestoreCauseCaption::title(entry);
    detail.subtitle =
        DayText::day(entry.date, context.now, context.zone) + ' ' + DayText::time(entry.date, context.zone);
    for (const std::string& part : {triggerText(entry), deskName(entry, context),
                                    RestoreLogFormatting::elapsedCaption(entry.elapsed)}) {
        detail.subtitle += part.empty() ? "" : " · " + part;
    }
    const auto items = RestoreLogFormatting::ordered(entry.items);
    if (const auto desk = context.desks.find(entry.configID); desk != context.desks.end()) {
        addDrawing(detail, items, desk->second.displays);
    }
    std::int64_t inPlace = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        inPlace += wasInPlace(items[i]) ? 1 : 0;
        if (context.showsInPlace || !wasInPlace(items[i])) {
            detail.lines.push_back(lineOf(items[i], i));
        }
    }
    if (inPlace > 0) {
        detail.inPlace = trn("{} window was in place already", "{} windows were in place already", inPlace);
    }
    const UndoSlot* const undo = state.applicableUndo();
    detail.canUndo =
        undo != nullptr && undo->reason == entry.reason && &entry == &context.log.entries.front();
    detail.text = asText(detail, items);
    return detail;
}

HistoryContent::Detail opened(const AppReliability& app, const Context& context) {
    HistoryContent::Detail detail;
    detail.id = app.bundleID;
    detail.title = app.appName.empty() ? app.bundleID : app.appName;
    detail.subtitle = RestoreLogFormatting::reliabilitySummary(app);
    if (const auto more = RestoreLogFormatting::reliabilityDetail(app); !more.empty()) {
        detail.subtitle += " · " + more;
    }
    if (app.isStubborn()) {
        detail.subtitle += tr(" · moved with more patience");
    }
    std::vector<Item> items;
    for (const Entry& entry : context.log.entries) {
        for (const Item& item : entry.items) {
            if (item.bundleID != app.bundleID) {
                continue;
            }
            ListRow line = lineOf(item, detail.lines.size());
            line.title = RestoreCauseCaption::title(entry) + ", " +
                         RelativeTimeCaption::caption(entry.date, context.now);
            detail.lines.push_back(std::move(line));
            items.push_back(item);
        }
    }
    detail.text = asText(detail, items);
    return detail;
}

// By the calendar of the user's zone.
void addDays(HistoryContent& content, const PublishedState& state, const Context& context) {
    content.days.assign(static_cast<std::size_t>(shownDays), 0);
    const std::chrono::sys_days today = context.zone.localTime(context.now).day;
    for (const RestoreReceiptEntry& receipt : state.receipts.entries) {
        const std::chrono::sys_days day = context.zone.localTime(receipt.date).day;
        if (const auto age = (today - day).count(); age >= 0 && age < shownDays) {
            content.days[static_cast<std::size_t>(shownDays - 1 - age)] += receipt.windowsRestored;
        }
    }
    const auto total = std::accumulate(content.days.begin(), content.days.end(), std::int64_t{0});
    const std::string count = UsageReceiptCopy::grouped(total);
    content.daysText = trn("{1} window put back in 30 days", "{1} windows put back in 30 days", total, count);
}

} // namespace

HistoryContent HistoryContent::of(const PublishedState& state, const Context& context) {
    HistoryContent content;
    content.isEmpty = context.log.entries.empty() && context.apps.empty();
    addDays(content, state, context);
    content.usage = UsageReceiptCopy::sentence(state.usage);
    const bool isOfApps = context.list == List::apps;
    if (isOfApps) {
        addApps(content, context);
    } else {
        addRestores(content, state, context);
    }
    const auto isItem = [](const ListRow& row) { return row.kind == ListRow::Kind::item; };
    auto chosen = std::ranges::find(content.rows, context.chosen, &ListRow::id);
    if (chosen == content.rows.end()) {
        chosen = std::ranges::find_if(content.rows, isItem);
    }
    if (chosen == content.rows.end()) {
        return content;
    }
    if (isOfApps) {
        content.detail =
            opened(*std::ranges::find(context.apps, chosen->id, &AppReliability::bundleID), context);
    } else {
        content.detail = opened(*std::ranges::find(context.log.entries, chosen->id, idOf), state, context);
    }
    return content;
}

} // namespace vantrel
