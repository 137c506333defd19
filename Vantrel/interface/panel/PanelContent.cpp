#include "Vantrel/interface/panel/PanelContent.h"

#include "Vantrel/interface/ShortcutText.h"
#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/panel/PanelMessages.h"
#include "VantrelCore/scenes/SceneIconography.h"
#include "VantrelCore/scenes/SceneRail.h"
#include "VantrelCore/stores/SceneStore.h"
#include "VantrelCore/text/RelativeTimeCaption.h"
#include "VantrelCore/text/RestoreReasonCaption.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/windows/RestoreTally.h"

#include <algorithm>
#include <fmt/format.h>

namespace vantrel {

namespace {

const HotKeyStatus* hotKey(const PublishedState& state, const HotKeySurface& surface) {
    const auto found = std::ranges::find_if(
        state.hotKeys, [&](const HotKeyStatus& status) { return status.taken.surface == surface; });
    return found == state.hotKeys.end() ? nullptr : &*found;
}

std::string shortcut(const PublishedState& state, HotKeySurface::Kind kind) {
    const auto* const status = hotKey(state, {kind, {}});
    return status != nullptr && status->state == HotKeyStatus::State::registered
               ? ShortcutText::of(status->taken.combo)
               : "";
}

std::string wordedPhase(const PublishedState& state) {
    if (state.phase.is<Phase::NeedsPermission>()) {
        return tr("Cannot move windows here");
    }
    if (state.phase.is<Phase::Empty>()) {
        return state.configID.empty() ? tr("No display is connected") : tr("Learning where windows stand");
    }
    std::string text = StatusPhase::text(state.phase);
    // For a line of its own.
    text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
    return text;
}

// Why no window can be moved; empty if they can.
std::string hindrance(const PublishedState& state) {
    if (!state.hasPermission) {
        return tr("Windows cannot be moved here.");
    }
    return state.configID.empty() ? tr("No display is connected.") : "";
}

PanelContent::Button disabled(PanelContent::Button button, const std::string& reason) {
    button.isEnabled = button.isEnabled && reason.empty();
    button.reason = reason;
    return button;
}

void addButtons(PanelContent& content, const PublishedState& state) {
    using Kind = HotKeySurface::Kind;
    const std::string moving = hindrance(state);
    const std::string restoring = !moving.empty()                   ? moving
                                  : !state.entitlement.isEntitled() ? tr("The trial is over.")
                                  : !state.enabled                  ? tr("Vantrel is switched off.")
                                                                    : "";
    content.restore = disabled({tr("Restore now"), shortcut(state, Kind::fixedRestore)}, restoring);
    content.save = disabled(
        {content.isEmpty ? tr("Remember it now") : tr("Save now"), shortcut(state, Kind::fixedSave)}, moving);
    content.isStashed = state.activeStash() != nullptr;
    content.stash =
        disabled({content.isStashed ? tr("Bring back") : tr("Stash"), shortcut(state, Kind::stash)},
                 content.isStashed ? restoring : moving);
    const UndoSlot* const undo = state.applicableUndo();
    content.undo = {tr("Undo"),
                    undo != nullptr ? RestoreReasonCaption::caption(undo->reason) : tr("Nothing yet")};
    content.undo = disabled(content.undo, undo == nullptr ? tr("There is nothing to undo.") : moving);
}

std::string sceneDetail(const Scene& scene, const PublishedState& state) {
    std::string text = trn("{} window", "{} windows", std::ssize(scene.layout.windows));
    if (!state.liveWindows) {
        return text;
    }
    std::set<std::string> closed;
    for (const WindowRecord& window : scene.layout.windows) {
        closed.insert(window.bundleID);
    }
    for (const DeskWindow& window : *state.liveWindows) {
        closed.erase(window.bundleID);
    }
    return closed.empty() ? text
                          : text + " · " + trn("{} app not open", "{} apps not open", std::ssize(closed));
}

PanelContent::SceneRow row(const Scene& scene, const PublishedState& state) {
    const auto* const key = hotKey(state, HotKeySurface::scene(scene.id));
    const auto combo = scene.hotkey();
    return {.id = scene.id,
            .name = scene.name,
            .symbol = std::string(SceneIconography::symbol(scene.name)),
            .detail = sceneDetail(scene, state),
            .shortcut = combo ? ShortcutText::of(*combo) : "",
            .isShortcutRefused = key != nullptr && key->state == HotKeyStatus::State::refused,
            .isPinned = scene.isPinned(),
            .isCurrent = state.lastAppliedSceneID == scene.id};
}

void addScenes(PanelContent& content, const PublishedState& state) {
    for (const Scene& scene : SceneRail::scenes(state.configID, state.scenes)) {
        content.scenes.push_back(row(scene, state));
    }
    content.canSaveScene = state.hasPermission && !state.configID.empty();
    if (const auto others = SceneRail::otherDeskCount(state.configID, state.scenes); others > 0) {
        content.otherScenesText = SceneRail::otherDesksLabel(others);
    }
    const auto nameless = [](const std::string& /*configID*/) { return std::optional<std::string>(); };
    for (const auto& group : SceneRail::otherDeskGroups(state.configID, state.scenes, nameless)) {
        content.otherScenes.push_back({group.deskName, {}});
        for (const Scene& scene : group.scenes) {
            content.otherScenes.back().scenes.push_back(row(scene, state));
        }
    }
}

std::optional<PanelContent::Result> resultLine(const PublishedState& state, Date now) {
    if (!state.lastRestore || state.lastRestore->configID != state.configID) {
        return std::nullopt;
    }
    const RestoreTally tally = RestoreTally::of(state.lastRestore->report);
    const std::string age = " · " + RelativeTimeCaption::caption(state.lastRestore->date, now);
    if (tally.failed > 0) {
        return {{trn("Last restore: {} window could not be moved",
                     "Last restore: {} windows could not be moved", tally.failed) +
                     age,
                 true}};
    }
    if (tally.moved > 0) {
        return {{trn("{} window back in place", "{} windows back in place", tally.moved) + age}};
    }
    return {{std::string(tally.inPlace() > 0 ? tr("Every window was in its place")
                                             : tr("No windows were put back")) +
             age}};
}

} // namespace

PanelContent PanelContent::of(const PublishedState& state, const Context& context) {
    PanelContent content;
    content.deskName = state.configID.empty() ? tr("No desk") : state.deskName();
    content.canRename = !state.currentLayouts.empty();
    content.phase = state.phase;
    content.phaseText = wordedPhase(state);
    content.isOn = state.enabled;
    content.drawing = DeskPicture::ofCurrentDesk(state);
    content.isEmpty = state.activeLayout() == nullptr;
    content.messages = PanelMessages::of(state, context, content.isEmpty ? 0 : content.drawing.movedCount());
    addButtons(content, state);
    if (!state.currentLayouts.empty()) {
        content.layouts =
            Layouts{.names = {}, .active = state.activeLayoutName, .isPinned = state.activePinned};
        std::ranges::transform(state.currentLayouts, std::back_inserter(content.layouts->names),
                               &Layout::layoutName);
    }
    addScenes(content, state);
    content.lastResult = resultLine(state, context.now);
    return content;
}

} // namespace vantrel
