// The scenes of every desk, as sent over the session bus.
#pragma once

#include "Vantrel/commands/MessageFields.h"
#include "Vantrel/controller/DriftNudgeInfo.h"
#include "VantrelCore/model/Scene.h"

#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct SceneMessage {
    Scene scene;
    // The desk on which the scene was saved.
    std::string deskName;
    bool isCurrentDesk = false;
    // On the current desk.
    bool isLastApplied = false;

    bool operator==(const SceneMessage&) const = default;
};

struct ScenesMessage {
    // The current desk's scenes first, then the other desks' by name.
    std::vector<SceneMessage> scenes;
    // Present when windows have moved away from the scene last applied.
    std::optional<DriftNudgeInfo> driftNudge;

    bool operator==(const ScenesMessage&) const = default;

    template <typename Self, typename Field>
    static void fields(Self& self, Field&& field) {
        field("scenes", self.scenes);
        field("driftNudge", self.driftNudge);
    }
};

void to_json(nlohmann::json& json, const DriftNudgeInfo& nudge);
void from_json(const nlohmann::json& json, DriftNudgeInfo& nudge);
// Contains the keys of a scene in scenes.json, and deskName, isCurrentDesk and isLastApplied.
void to_json(nlohmann::json& json, const SceneMessage& message);
void from_json(const nlohmann::json& json, SceneMessage& message);

} // namespace vantrel
