#include "Vantrel/interface/workbench/scenes/ScenesContent.h"

#include "Vantrel/interface/DayText.h"
#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/symbols/Symbols.h"
#include "VantrelCore/commands/HotKeyText.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/scenes/SceneIconography.h"
#include "VantrelCore/scenes/SceneProblem.h"
#include "VantrelCore/scenes/SceneRail.h"
#include "VantrelCore/scenes/SceneTriggerFormatting.h"
#include "VantrelCore/stores/SceneStore.h"
#include "VantrelCore/text/RelativeTimeCaption.h"
#include "VantrelCore/text/SceneExplanations.h"
#include "VantrelCore/text/Unicode.h"
#include "VantrelCore/windows/VisibleWindows.h"
#include "VantrelCore/windows/WindowPairing.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <iterator>
#include <set>
#include <utility>

namespace vantrel {

namespace {

using Context = ScenesContent::Context;

// Closer than this a window counts as being in its place: programs round their sizes.
constexpr double tolerance = 2;

// How the live windows differ from a scene of this desk.
struct Difference {
    std::int64_t moved = 0;
    std::int64_t notOpen = 0;
    std::int64_t appsNotOpen = 0;
};

Difference difference(const Scene& scene, const PublishedState& state) {
    std::vector<WindowRecord> saved;
    std::ranges::copy_if(scene.layout.windows, std::back_inserter(saved),
                         [](const WindowRecord& window) { return !window.isGhost.value_or(false); });
    const auto live = VisibleWindows::every({.apps = {}, .windows = *state.liveWindows}, state.displays);
    const auto matched = WindowPairing::pair(saved, {}, live);
    Difference result;
    for (const auto& pair : matched.pairs) {
        result.moved +=
            approxEqual(live[pair.current].record.frame, saved[pair.saved].frame, tolerance) ? 0 : 1;
    }
    std::set<std::string> closed;
    for (const WindowRecord& window : scene.layout.windows) {
        closed.insert(window.bundleID);
    }
    for (const LiveWindow& window : live) {
        closed.erase(window.record.bundleID);
    }
    result.appsNotOpen = static_cast<std::int64_t>(closed.size());
    result.notOpen = std::ranges::count_if(
        matched.unmatchedSaved, [&](std::size_t window) { return !closed.contains(saved[window].bundleID); });
    return result;
}

std::optional<Date> lastApplied(const Scene& scene, const RestoreLog& history) {
    const auto found = std::ranges::find_if(history.entries, [&](const RestoreLog::Entry& entry) {
        return entry.sceneName == scene.name && entry.date >= scene.createdAt;
    });
    return found == history.entries.end() ? std::nullopt : std::optional(found->date);
}

bool contains(const std::string& text, const std::string& searched) {
    return Unicode::lowercased(text).find(searched) != std::string::npos;
}

bool isFound(const Scene& scene, const std::string& searched) {
    return searched.empty() || contains(scene.name, searched) ||
           std::ranges::any_of(scene.layout.windows, [&](const WindowRecord& window) {
               return contains(window.appName, searched);
           });
}

std::string symbolOf(const Scene& scene) {
    return std::string(Symbols::ofSystemSymbol(SceneIconography::symbol(scene.name)));
}

std::string windowsText(const Scene& scene) {
    return trn("{} window", "{} windows", std::ssize(scene.layout.windows));
}

// "applied 2m ago", "1 app not open", "5 windows".
std::string railDetail(const Scene& scene, const PublishedState& state, const Context& context) {
    const bool isHere = scene.configID == state.configID;
    if (isHere && state.lastAppliedSceneID == scene.id) {
        const auto date = lastApplied(scene, context.history);
        return date ? trf("applied {}", RelativeTimeCaption::caption(*date, context.now))
                    : std::string(tr("applied last"));
    }
    if (isHere && state.liveWindows) {
        if (const auto closed = difference(scene, state).appsNotOpen; closed > 0) {
            return trn("{} app not open", "{} apps not open", closed);
        }
    }
    return windowsText(scene);
}

std::string shortcutOf(const Scene& scene) {
    const auto combo = scene.hotkey();
    return combo ? HotKeyText::text(*combo) : "";
}

void addRow(ScenesContent& content, const Scene& scene, const PublishedState& state, const Context& context) {
    const bool isCurrent = scene.configID == state.configID && state.lastAppliedSceneID == scene.id;
    content.rail.push_back({.id = scene.id,
                            .title = scene.name,
                            .detail = railDetail(scene, state, context),
                            .note = shortcutOf(scene),
                            .symbol = symbolOf(scene),
                            .tone = isCurrent ? ListRow::Tone::accent : ListRow::Tone::plain,
                            .isPinned = scene.isPinned()});
}

void addGroup(ScenesContent& content, const std::string& id, const std::string& title,
              const std::vector<Scene>& scenes, const PublishedState& state, const Context& context) {
    const std::string searched = Unicode::lowercased(Unicode::trimmed(context.search));
    bool hasHeading = false;
    for (const Scene& scene : scenes) {
        if (isFound(scene, searched)) {
            if (!std::exchange(hasHeading, true)) {
                content.rail.push_back({.id = "desk " + id, .kind = ListRow::Kind::heading, .title = title});
            }
            addRow(content, scene, state, context);
        }
    }
}

void addRail(ScenesContent& content, const PublishedState& state, const Context& context) {
    addGroup(content, state.configID, tr("This desk"), SceneRail::scenes(state.configID, state.scenes), state,
             context);
    const auto nameless = [](const std::string& /*configID*/) { return std::optional<std::string>(); };
    for (const auto& group : SceneRail::otherDeskGroups(state.configID, state.scenes, nameless)) {
        addGroup(content, group.configID, group.deskName, group.scenes, state, context);
    }
}

std::string nowText(const Difference& now) {
    std::vector<std::string> parts;
    if (now.moved > 0) {
        parts.push_back(trn("{} window has moved", "{} windows have moved", now.moved));
    }
    if (now.notOpen > 0) {
        parts.push_back(trn("{} window not open", "{} windows not open", now.notOpen));
    }
    if (now.appsNotOpen > 0) {
        parts.push_back(trn("{} app not open", "{} apps not open", now.appsNotOpen));
    }
    if (parts.empty()) {
        return tr("Every window is in its place");
    }
    return fmt::format("{}", fmt::join(parts, " · "));
}

void addNow(ScenesContent::Detail& detail, const Scene& scene, const PublishedState& state) {
    if (scene.configID != state.configID) {
        detail.now = tr("Saved on another desk. Applied here, it is fitted to these displays.");
    } else if (state.liveWindows) {
        const Difference now = difference(scene, state);
        detail.now = nowText(now);
        detail.hasMoved = now.moved > 0;
    }
}

void addApps(ScenesContent::Detail& detail, const Scene& scene) {
    for (const WindowRecord& window : scene.layout.windows) {
        if (std::ranges::find(detail.apps, window.bundleID, &ScenesContent::App::bundleID) ==
            detail.apps.end()) {
            detail.apps.push_back({window.bundleID, window.appName});
        }
    }
}

void addTriggers(ScenesContent::Detail& detail, const PublishedState& state,
                 const ScenesContent::Context& context) {
    for (const SceneTrigger& trigger : state.triggers) {
        if (trigger.sceneID == detail.id) {
            const std::string title = SceneTriggerFormatting::title(trigger.kind);
            detail.triggers.push_back({trigger.id,
                                       std::holds_alternative<SceneTrigger::Schedule>(trigger.kind)
                                           ? trf("Every day at {}", title)
                                           : title,
                                       trigger.enabled});
            if (const auto next = state.nextFirings.find(trigger.id); next != state.nextFirings.end()) {
                detail.triggers.back().next =
                    trf("Next: {}", DayText::day(next->second, context.now, context.zone) + " " +
                                        DayText::time(next->second, context.zone));
            }
        }
    }
}

ScenesContent::Detail detailOf(const Scene& scene, const std::string& deskName, const PublishedState& state,
                               const Context& context) {
    ScenesContent::Detail detail;
    detail.id = scene.id;
    detail.name = scene.name;
    detail.symbol = symbolOf(scene);
    detail.subtitle =
        deskName + " · " + trf("saved {}", DayText::date(scene.createdAt, context.now, context.zone));
    detail.drawing = DeskPicture::ofScene(scene, state);
    detail.windows = windowsText(scene);
    addApps(detail, scene);
    addNow(detail, scene, state);
    if (const auto date = lastApplied(scene, context.history)) {
        detail.lastApplied = RelativeTimeCaption::caption(*date, context.now);
    } else if (state.lastAppliedSceneID == scene.id) {
        detail.lastApplied = tr("Last on this desk");
    }
    detail.shortcut = shortcutOf(scene);
    detail.isShortcutRefused = std::ranges::any_of(state.hotKeys, [&](const HotKeyStatus& key) {
        return key.taken.surface == HotKeySurface::scene(scene.id) &&
               key.state == HotKeyStatus::State::refused;
    });
    addTriggers(detail, state, context);
    detail.wallpapers = WallpaperContent::facts(scene.layout.displays, scene.wallpaper);
    detail.isPinned = scene.isPinned();
    detail.opensMissingApps = scene.effectiveOpensMissingApps();
    if (scene.hasGhosts()) {
        detail.missingAppsReason = tr(SceneExplanations::alwaysOpensMissingApps);
    }
    if (!state.hasPermission) {
        detail.apply = {false, tr("Windows cannot be moved here.")};
        detail.update = detail.apply;
    } else if (!state.entitlement.isEntitled()) {
        detail.apply = {false, tr("The trial is over.")};
    }
    if (scene.isPinned()) {
        detail.update = {false, std::string(SceneProblems::panelText(SceneProblem::pinned))};
        detail.remove = {false, tr(SceneExplanations::pinnedIsProtected)};
    } else if (scene.configID != state.configID) {
        detail.update = {false, tr("It belongs to another desk.")};
    }
    return detail;
}

} // namespace

ScenesContent ScenesContent::of(const PublishedState& state, const Context& context) {
    ScenesContent content;
    content.isEmpty = state.scenes.empty();
    content.canSave = state.hasPermission && !state.configID.empty();
    if (SceneCapMeter::shouldShow(state.scenes.size())) {
        content.room = SceneCapMeter::label(state.scenes.size());
    }
    addRail(content, state, context);
    const auto isItem = [](const ListRow& row) { return row.kind == ListRow::Kind::item; };
    auto chosen = std::ranges::find_if(
        content.rail, [&](const ListRow& row) { return isItem(row) && row.id == context.chosen; });
    if (chosen == content.rail.end()) {
        chosen = std::ranges::find_if(content.rail, isItem);
    }
    if (chosen != content.rail.end()) {
        const auto scene = std::ranges::find(state.scenes, chosen->id, &Scene::id);
        const bool isHere = scene->configID == state.configID;
        // Under the heading of its desk.
        const auto heading =
            std::find_if_not(std::make_reverse_iterator(chosen), content.rail.rend(), isItem);
        content.detail = detailOf(*scene, isHere ? state.deskName() : heading->title, state, context);
    }
    return content;
}

} // namespace vantrel
