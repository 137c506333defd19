#include "Vantrel/controller/ControllerContext.h"

#include "VantrelCore/displays/DisplayTopology.h"
#include "VantrelCore/windows/AXPermission.h"
#include "VantrelCore/windows/LayoutTranslation.h"
#include "VantrelCore/windows/RuleApplication.h"

namespace vantrel {

namespace {

// How long the status line shows the result of a restore, in seconds.
constexpr double restoredPhaseSeconds = 6;

std::string layoutTitle(const PublishedState& state) {
    const std::string& desk = state.deskName();
    return state.activeLayoutName == Layout::defaultName ? desk : desk + " · " + state.activeLayoutName;
}

} // namespace

ControllerContext::ControllerContext(const ControllerPorts& controllerPorts, AppLog& appLog,
                                     LayoutStore& layouts, SceneStore& scenes)
    : ports(controllerPorts), settings(controllerPorts.defaults), store(layouts), sceneStore(scenes),
      publisher(controllerPorts.mainQueue),
      gate(ports.mainQueue, ports.clock, [this](const std::string& line) { log(line); }),
      moves(gate, [this](const std::string& line) { log(line); }), m_log(appLog) {}

void ControllerContext::workEnded(std::uint64_t id, const std::string& problem) {
    if (!problem.empty()) {
        log(problem);
    }
    const auto waiting = m_waitingForWork.extract(id);
    waiting.mapped()();
}

void ControllerContext::announce(const HUDEvent& event) const {
    if (onHUDEvent) {
        onHUDEvent(event);
    }
}

bool ControllerContext::refuse(RestoreOutcome::Kind kind, const RestoreOutcome::Done& done) {
    const RestoreOutcome outcome{.kind = kind, .report = {}};
    const bool canSave = kind == RestoreOutcome::Kind::nothingStored;
    announce(HUD::Refused{outcome.text(), canSave ? std::optional(settings.saveHotkey()) : std::nullopt});
    if (done) {
        done(outcome);
    }
    return false;
}

bool ControllerContext::entitledToRun() {
    const bool isEntitled = ports.license.entitlement().isEntitled();
    if (m_loggedEntitled != isEntitled) {
        m_loggedEntitled = isEntitled;
        log(isEntitled ? "license gate: entitled, restore and learning resumed"
                       : "license gate: not entitled, restore and learning paused");
    }
    return isEntitled;
}

std::vector<DisplayInfo> ControllerContext::currentDisplays() {
    return DisplayTopology::currentDisplays(ports.displays);
}

bool ControllerContext::isDeskCurrent() {
    const auto displays = currentDisplays();
    return !gate.areDisplaysChanging() && !displays.empty() &&
           DisplayTopology::configID(displays) == state().configID;
}

std::optional<RestoreOutcome::Kind> ControllerContext::hindranceToMoving() {
    using Kind = RestoreOutcome::Kind;
    if (!state().enabled) {
        return Kind::switchedOff;
    }
    if (!AXPermission::isGranted(ports.desk)) {
        return Kind::needsPermission;
    }
    if (!entitledToRun()) {
        return Kind::notEntitled;
    }
    if (!isDeskCurrent()) {
        return Kind::displaysChanging;
    }
    return std::nullopt;
}

std::optional<Layout> ControllerContext::layoutToRestore() {
    const Layout* active = state().activeLayout();
    if (active == nullptr) {
        return std::nullopt;
    }
    return RuleApplication::apply(store.rules(), active->withOtherWindows().withoutGhosts(),
                                  state().displays);
}

Layout ControllerContext::fittedToDesk(const Layout& layout) {
    return RuleApplication::apply(store.rules(),
                                  LayoutTranslation::onto(layout.withOtherWindows().withoutGhosts(),
                                                          state().configID, state().displays),
                                  state().displays);
}

Layout ControllerContext::layoutOf(const DeskCapture::Picture& picture,
                                   const std::vector<DisplayInfo>& displays) const {
    Layout layout{.configID = state().configID,
                  .name = state().deskName(),
                  .layoutName = state().activeLayoutName,
                  .displays = displays,
                  .windows = {},
                  .savedAt = picture.takenAt,
                  .pinned = std::nullopt};
    for (const LiveWindow& window : picture.windows) {
        (window.isVisible ? layout.windows : layout.otherWindows).push_back(normalFrames.recordOf(window));
    }
    return layout;
}

DeskCapture::Scope ControllerContext::captureScope(std::vector<DisplayInfo> displays) {
    return {.displays = std::move(displays),
            .filter = {.excludedBundleID = ownBundleID,
                       .ignoredBundleIDs = RuleApplication::ignoredBundleIDs(store.rules())}};
}

void ControllerContext::publishStored(LayoutsTopic& layouts) {
    const std::string& desk = state().configID;
    if (desk.empty()) {
        layouts.currentLayouts.clear();
        layouts.activeLayoutName = Layout::defaultName;
    } else {
        layouts.currentLayouts = store.layouts(desk);
        layouts.activeLayoutName = store.activeLayoutName(desk);
    }
    const Layout* active = state().activeLayout();
    layouts.activePinned = active != nullptr && active->isPinned();
    layouts.layoutTitle = layoutTitle(state());
}

void ControllerContext::showDesk(const std::string& configID, const std::vector<DisplayInfo>& displays) {
    publisher.publish<DeskTopic, LayoutsTopic, ScenesTopic>([&](auto& desk, auto& layouts, auto& scenes) {
        // Without displays there is no desk: nothing to learn or restore under that name.
        desk.configID = displays.empty() ? "" : configID;
        desk.configName = DisplayTopology::configName(displays);
        desk.displays = displays;
        publishStored(layouts);
        scenes.lastAppliedSceneID = sceneStore.lastAppliedSceneID(desk.configID);
        scenes.driftNudge.reset();
    });
}

void ControllerContext::showStoredLayouts() {
    publisher.publish<LayoutsTopic, StatusTopic>([&](auto& layouts, auto& status) {
        ++layouts.layoutsVersion;
        status.learningFailed = false;
        publishStored(layouts);
    });
    onLayoutsChanged();
}

void ControllerContext::showLearningFailed(bool hasFailed) {
    publisher.publish<StatusTopic>([&](auto& status) { status.learningFailed = hasFailed; });
}

void ControllerContext::showStoredScenes() {
    publisher.publish<ScenesTopic>([&](auto& scenes) {
        ++scenes.scenesVersion;
        scenes.scenes = sceneStore.allScenes();
        scenes.lastAppliedSceneID = sceneStore.lastAppliedSceneID(state().configID);
        scenes.recentlyAppliedSceneIDs = sceneStore.recentlyApplied();
    });
    if (onScenesChanged) {
        onScenesChanged();
    }
}

bool ControllerContext::hasLostPermission() {
    if (AXPermission::isGranted(ports.desk)) {
        return false;
    }
    refreshStatus();
    onPermissionLost();
    return true;
}

void ControllerContext::refreshStatus() {
    const bool hasPermission = AXPermission::isGranted(ports.desk);
    if (state().hasPermission && !hasPermission) {
        log("permission revoked: nothing is remembered or restored until it is granted again");
    }
    publisher.publish<StatusTopic>([&](auto& status) {
        status.hasPermission = hasPermission;
        const Phase resting = StatusPhase::resting(hasPermission, state().enabled, state().windowsLearned());
        const bool isShowingRestore = gate.isRestoring() || m_phaseReset;
        const bool isHindered = resting.is<Phase::Off>() || resting.is<Phase::NeedsPermission>();
        status.phase = isShowingRestore && !isHindered ? m_restorePhase : resting;
    });
}

void ControllerContext::endRestoredPhase() {
    m_phaseReset.reset();
    refreshStatus();
}

void ControllerContext::showPhase(const Phase& phase) {
    publisher.publish<StatusTopic>([&](auto& status) { status.phase = phase; });
    m_restorePhase = phase;
    m_phaseReset.reset();
    if (phase.is<Phase::Restored>()) {
        m_phaseReset = ports.mainQueue.after(restoredPhaseSeconds, [this] {
            m_phaseReset.reset();
            refreshStatus();
        });
    }
}

} // namespace vantrel
