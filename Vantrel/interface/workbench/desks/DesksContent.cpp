#include "Vantrel/interface/workbench/desks/DesksContent.h"

#include "Vantrel/interface/DayText.h"
#include "Vantrel/interface/Text.h"
#include "VantrelCore/text/RelativeTimeCaption.h"
#include "VantrelCore/text/SceneExplanations.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <set>

namespace vantrel {

namespace {

using Context = DesksContent::Context;
using Fate = RestorePreview::Fate;

std::string windows(std::size_t count) {
    return trn("{} window", "{} windows", static_cast<std::int64_t>(count));
}

std::string joined(const std::vector<std::string>& parts) {
    return fmt::format("{}", fmt::join(parts, " · "));
}

// "Here now · 9 windows", "11 windows · 2d ago".
std::string cardDetail(const RememberedDesk& desk, Date now) {
    std::vector<std::string> parts;
    if (desk.isPresent) {
        parts.push_back(tr("Here now"));
    }
    const auto* const shown = desk.shownLayout();
    parts.push_back(shown != nullptr ? windows(shown->windows) : std::string(tr("Nothing remembered yet")));
    if (!desk.isPresent && desk.lastSeen) {
        parts.push_back(RelativeTimeCaption::caption(*desk.lastSeen, now));
    }
    return joined(parts);
}

const RememberedDesk::LayoutInfo* shownLayout(const RememberedDesk& desk, const std::string& wanted) {
    if (!desk.isPresent) {
        const auto found = std::ranges::find(desk.layouts, wanted, &RememberedDesk::LayoutInfo::name);
        if (found != desk.layouts.end()) {
            return &*found;
        }
    }
    return desk.shownLayout();
}

void addSubtitle(DesksContent::Detail& detail, const RememberedDesk& desk,
                 const RememberedDesk::LayoutInfo* layout, Date now) {
    std::vector<std::string> parts;
    if (desk.isPresent) {
        parts.push_back(tr("Here now"));
    }
    if (layout != nullptr) {
        parts.push_back(windows(layout->windows));
        parts.push_back(trf("learned {}", RelativeTimeCaption::caption(layout->learned, now)));
    } else {
        parts.push_back(tr("Nothing remembered yet"));
    }
    if (!desk.isPresent && desk.lastSeen) {
        parts.push_back(trf("last seen {}", RelativeTimeCaption::caption(*desk.lastSeen, now)));
    }
    detail.subtitle = joined(parts);
}

void addStashes(DesksContent::Detail& detail, const PublishedState& state, const Context& context) {
    for (const Stash& stash : state.stashes) {
        if (stash.configID == detail.configID) {
            detail.stashes.push_back({stash.id,
                                      trn("Stash of {} window", "Stash of {} windows", stash.windowCount),
                                      DayText::day(stash.createdAt, context.now, context.zone) + ' ' +
                                          DayText::time(stash.createdAt, context.zone) + " · " +
                                          tr(SceneExplanations::stashRetention)});
        }
    }
}

std::string noteOf(const RestorePreview::Window& window) {
    std::string text(RestorePreviews::text(window.fate));
    if (!window.match) {
        return text;
    }
    const std::string why(RestorePreviews::text(*window.match));
    return window.fate == Fate::inPlace ? why : text + ", " + why;
}

ListRow lineOf(const RestorePreview::Window& window, std::size_t index) {
    ListRow line{.id = std::to_string(index),
                 .title = window.saved.appName,
                 .detail = window.saved.title,
                 .note = noteOf(window),
                 .bundleID = window.saved.bundleID};
    switch (window.fate) {
    case Fate::inPlace:
        line.noteSymbol = "check";
        break;
    case Fate::wouldMove:
        line.noteSymbol = "move";
        line.tone = ListRow::Tone::accent;
        break;
    case Fate::wouldOpen:
        line.noteSymbol = "play";
        break;
    case Fate::noSuchWindow:
    case Fate::notRunning:
        line.noteSymbol = "close";
        line.tone = ListRow::Tone::warning;
        break;
    }
    return line;
}

// What needs attention first.
int order(Fate fate) {
    switch (fate) {
    case Fate::noSuchWindow:
        return 0;
    case Fate::notRunning:
        return 1;
    case Fate::wouldOpen:
        return 2;
    case Fate::wouldMove:
        return 3;
    case Fate::inPlace:
        break;
    }
    return 4;
}

void addPreview(DesksContent::Detail& detail, const Context& context) {
    if (!context.preview) {
        detail.previewText = tr("Looking…");
        return;
    }
    if (!*context.preview) {
        detail.previewText = context.preview->error();
        return;
    }
    const RestorePreview& preview = **context.preview;
    std::vector<std::size_t> indices(preview.windows.size());
    for (std::size_t i = 0; i < indices.size(); ++i) {
        indices[i] = i;
    }
    std::ranges::stable_sort(indices, {}, [&](std::size_t i) { return order(preview.windows[i].fate); });
    for (const std::size_t i : indices) {
        if (context.showsInPlace || preview.windows[i].fate != Fate::inPlace) {
            detail.lines.push_back(lineOf(preview.windows[i], i));
        }
    }
    if (const auto count = preview.count(Fate::inPlace); count > 0) {
        detail.inPlace =
            trn("{} window is in place", "{} windows are in place", static_cast<std::int64_t>(count));
    }
    std::vector<std::string> others;
    for (const WindowRecord& window : preview.unremembered) {
        if (std::ranges::find(others, window.appName) == others.end()) {
            others.push_back(window.appName);
        }
    }
    std::vector<bool> isTaken(detail.drawing.windows.size());
    for (std::size_t i = 0; i < preview.windows.size(); ++i) {
        const WindowRecord& saved = preview.windows[i].saved;
        for (std::size_t at = 0; at < isTaken.size(); ++at) {
            const auto& drawn = detail.drawing.windows[at];
            if (!isTaken[at] && drawn.bundleID == saved.bundleID && drawn.title == saved.title) {
                isTaken[at] = true;
                detail.drawn[std::to_string(i)] = at;
                break;
            }
        }
    }
    if (!others.empty()) {
        detail.unremembered = trf("Not remembered: {}", fmt::format("{}", fmt::join(others, ", ")));
    }
}

void addRestore(DesksContent::Detail& detail, const PublishedState& state) {
    if (!state.hasPermission) {
        detail.restore = {false, tr("Windows cannot be moved here.")};
    } else if (!state.entitlement.isEntitled()) {
        detail.restore = {false, tr("The trial is over.")};
    } else if (detail.isEmpty) {
        detail.restore = {false, tr("Nothing is remembered here yet.")};
    } else if (detail.isPresent && !state.enabled) {
        detail.restore = {false, tr("Vantrel is switched off.")};
    }
}

DesksContent::Detail detailOf(const RememberedDesk& desk, const PublishedState& state,
                              const Context& context) {
    DesksContent::Detail detail;
    detail.configID = desk.configID;
    detail.name = desk.name;
    detail.isPresent = desk.isPresent;
    detail.layouts = desk.layouts;
    const auto* const layout = shownLayout(desk, context.layout);
    addSubtitle(detail, desk, layout, context.now);
    detail.isEmpty = layout == nullptr;
    if (layout != nullptr) {
        detail.layout = layout->name;
        detail.isPinned = layout->isPinned;
    }
    if (desk.isPresent) {
        detail.drawing = DeskPicture::ofCurrentDesk(state);
    } else if (const auto* const stored = context.library.layout(desk.configID, detail.layout)) {
        detail.drawing = DeskPicture::ofLayout(*stored);
    }
    addStashes(detail, state, context);
    detail.previewTitle = desk.isPresent ? tr("If it were restored now") : tr("If it were applied here now");
    if (!detail.isEmpty) {
        addPreview(detail, context);
    }
    addRestore(detail, state);
    return detail;
}

} // namespace

DesksContent DesksContent::of(const PublishedState& state, const Context& context) {
    DesksContent content;
    content.isEmpty = state.desks.empty();
    const std::string searched = Unicode::lowercased(Unicode::trimmed(context.search));
    const RememberedDesk* chosen = nullptr;
    for (const RememberedDesk& desk : state.desks) {
        if (!context.library.isFound(desk.configID, searched)) {
            continue;
        }
        content.cards.push_back({.id = desk.configID,
                                 .title = desk.name,
                                 .detail = cardDetail(desk, context.now),
                                 .symbol = desk.isPresent ? "check" : ""});
        if (chosen == nullptr || desk.configID == context.chosen) {
            chosen = &desk;
        }
    }
    if (chosen != nullptr) {
        content.detail = detailOf(*chosen, state, context);
    }
    return content;
}

} // namespace vantrel
