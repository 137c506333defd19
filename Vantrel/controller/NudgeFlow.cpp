#include "Vantrel/controller/NudgeFlow.h"

#include "VantrelCore/scenes/SceneDrift.h"
#include "VantrelCore/scenes/SceneOnDesk.h"

#include <utility>

namespace vantrel {

namespace {

std::string driftKey(const std::string& configID, const std::string& sceneID) {
    return configID + " " + sceneID;
}

} // namespace

std::optional<DriftNudgeInfo> NudgeFlow::nudge(const Scene& scene, const Layout& fresh) const {
    const PublishedState& state = m_context.state();
    const Layout wanted =
        SceneOnDesk::make(scene, state.configID, state.displays, m_context.store.rules()).allWindows();
    if (!SceneDrift::hasDrifted(wanted, fresh, driftTolerance)) {
        return std::nullopt;
    }
    const auto moved = SceneDrift::movedWindowCount(wanted, fresh, driftTolerance);
    return DriftNudgeInfo{scene.id, scene.name, static_cast<std::int64_t>(moved)};
}

void NudgeFlow::checkSceneDrift(const Layout& fresh) {
    const PublishedState& state = m_context.state();
    const Scene* const scene = state.lastAppliedScene();
    if (scene == nullptr || fresh.configID != state.configID || !m_context.settings.quietNudgesEnabled()) {
        publish(std::nullopt);
        return;
    }
    auto found = nudge(*scene, fresh);
    if (m_dismissedDriftKey == driftKey(fresh.configID, scene->id)) {
        if (!found) {
            m_dismissedDriftKey.reset();
        }
        found.reset();
    }
    publish(found);
}

void NudgeFlow::publish(const std::optional<DriftNudgeInfo>& nudge) {
    if (m_context.state().driftNudge != nudge) {
        m_context.publisher.publish<ScenesTopic>([&](auto& scenes) { scenes.driftNudge = nudge; });
    }
}

void NudgeFlow::settingsChanged() {
    if (!m_context.settings.quietNudgesEnabled()) {
        publish(std::nullopt);
    }
}

void NudgeFlow::clear() {
    m_dismissedDriftKey.reset();
    publish(std::nullopt);
}

void NudgeFlow::dismissDriftNudge() {
    if (const auto shown = m_context.state().driftNudge) {
        m_dismissedDriftKey = driftKey(m_context.state().configID, shown->sceneID);
        publish(std::nullopt);
    }
}

} // namespace vantrel
