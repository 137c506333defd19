#include "Vantrel/commands/methods/SceneMethods.h"

#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/ControlNames.h"
#include "Vantrel/commands/ScenesMessage.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/scenes/SceneRail.h"
#include "VantrelCore/text/SceneExplanations.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace vantrel {

namespace {

using Arguments = std::vector<std::string>;

ControlAnswer refused(std::string sentence) {
    return std::unexpected(ControlRefusal{ControlNames::refused, std::move(sentence)});
}

SceneMessage message(AppController& controller, const Scene& scene) {
    const PublishedState& state = controller.published();
    return {.scene = scene,
            .deskName = controller.scenes().deskName(scene.configID).value_or(scene.layout.name),
            .isCurrentDesk = scene.configID == state.configID,
            .isLastApplied = scene.id == state.lastAppliedSceneID};
}

ScenesMessage scenes(AppController& controller) {
    const PublishedState& state = controller.published();
    ScenesMessage result{.scenes = {}, .driftNudge = state.driftNudge};
    for (const Scene& scene : controller.scenes().scenesForCurrentDesk()) {
        result.scenes.push_back(message(controller, scene));
    }
    const auto others =
        SceneRail::otherDeskGroups(state.configID, state.scenes, [&](const std::string& configID) {
            return controller.scenes().deskName(configID);
        });
    for (const SceneDeskGroup& group : others) {
        for (const Scene& scene : group.scenes) {
            result.scenes.push_back(message(controller, scene));
            result.scenes.back().deskName = group.deskName;
        }
    }
    return result;
}

// Finds a scene by name or ID, ignoring case.
std::expected<Scene, ControlRefusal> sceneCalled(AppController& controller, const std::string& called) {
    const std::string wanted = Unicode::lowercased(Unicode::trimmed(called));
    const auto& all = controller.published().scenes;
    const auto found = std::ranges::find_if(all, [&](const Scene& scene) {
        return Unicode::lowercased(scene.name) == wanted || Unicode::lowercased(scene.id) == wanted;
    });
    if (found != all.end()) {
        return *found;
    }
    return std::unexpected(
        ControlRefusal{ControlNames::refused,
                       all.empty() ? "There are no scenes yet. Save one with: vantrelctl save-scene NAME"
                                   : fmt::format("There is no scene \"{}\".", called)});
}

ControlAnswer edited(AppController& controller, const SceneFlow::EditResult& result) {
    return result ? ControlAnswer(message(controller, *result))
                  : refused(std::string(SceneProblems::panelText(result.error())));
}

ControlAnswer saved(AppController& controller, const SceneSaveOutcome& outcome) {
    if (outcome.kind == SceneSaveOutcome::Kind::refused) {
        return refused(std::string(SceneProblems::panelText(outcome.problem)));
    }
    if (!outcome.isSaved()) {
        return refused(outcome.text());
    }
    nlohmann::json json = message(controller, *outcome.scene);
    json["isNew"] = outcome.kind == SceneSaveOutcome::Kind::added;
    return json;
}

void save(AppController& controller, const std::string& name, const ControlReply& reply) {
    controller.scenes().saveCurrentAsScene(
        name, [&controller, reply](const SceneSaveOutcome& outcome) { reply(saved(controller, outcome)); });
}

ControlAnswer deleted(AppController& controller, const Scene& scene) {
    return scene.isPinned() ? refused(std::string(SceneExplanations::pinnedIsProtected))
                            : edited(controller, controller.scenes().deleteScene(scene.id));
}

// Sets the wallpaper of one display, as DisplayLabels::resolve() finds it, or of all displays when `display`
// is empty. An empty path removes it.
ControlAnswer withWallpaper(AppController& controller, const Scene& scene, const std::string& display,
                            const std::string& path) {
    SceneWallpaper wallpaper = scene.wallpaper.value_or(SceneWallpaper{});
    std::vector<DisplayInfo> meant = scene.layout.displays;
    if (!display.empty()) {
        const auto found = DisplayLabels::resolve(display, {scene.layout.displays});
        if (!found) {
            return refused(found.error());
        }
        meant = {*found};
    }
    for (const DisplayInfo& each : meant) {
        if (path.empty()) {
            wallpaper.perDisplay.erase(each.uuid);
        } else {
            wallpaper.perDisplay[each.uuid] = path;
        }
    }
    return edited(controller, controller.scenes().setWallpaper(wallpaper, scene.id));
}

} // namespace

std::vector<ControlMethod> sceneMethods(AppController& controller) {
    using OfScene = std::function<ControlAnswer(const Scene&, const Arguments&)>;
    const auto ofScene = [&controller](const OfScene& answer) {
        return [&controller, answer](const Arguments& arguments, const ControlReply& reply) {
            const auto scene = sceneCalled(controller, arguments[0]);
            reply(scene ? answer(*scene, arguments) : std::unexpected(scene.error()));
        };
    };
    return {
        {"Scenes",
         {},
         "scenes",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) {
             reply(nlohmann::json(scenes(controller)));
         }},
        {"ApplyScene",
         {"scene"},
         "report",
         [&controller](const Arguments& arguments, const ControlReply& reply) {
             const auto scene = sceneCalled(controller, arguments[0]);
             if (scene) {
                 controller.applyScene(*scene, std::nullopt, ControlAnswers::restoreReply(reply));
             } else {
                 reply(std::unexpected(scene.error()));
             }
         }},
        {"SaveScene",
         {"name"},
         "scene",
         [&controller](const Arguments& arguments, const ControlReply& reply) {
             save(controller, arguments[0], reply);
         }},
        {"CreateEmptyScene",
         {"name"},
         "scene",
         [&controller](const Arguments& arguments, const ControlReply& reply) {
             reply(saved(controller, controller.scenes().createEmptyScene(arguments[0])));
         }},
        {"RenameScene",
         {"scene", "name"},
         "scene",
         ofScene([&controller](const Scene& scene, const Arguments& arguments) {
             return edited(controller, controller.scenes().rename(scene.id, arguments[1]));
         })},
        {"DeleteScene",
         {"scene"},
         "scene",
         ofScene([&controller](const Scene& scene, const Arguments& /*scene*/) {
             return deleted(controller, scene);
         })},
        {"PinScene",
         {"scene"},
         "scene",
         ofScene([&controller](const Scene& scene, const Arguments& /*scene*/) {
             return edited(controller, controller.scenes().setPinned(true, scene.id));
         })},
        {"UnpinScene",
         {"scene"},
         "scene",
         ofScene([&controller](const Scene& scene, const Arguments& /*scene*/) {
             return edited(controller, controller.scenes().setPinned(false, scene.id));
         })},
        {"SetSceneOpensMissingApps",
         {"scene", "opens"},
         "scene",
         ofScene([&controller](const Scene& scene, const Arguments& arguments) {
             return arguments[1] == "true" || arguments[1] == "false"
                        ? edited(controller,
                                 controller.scenes().setOpensMissingApps(arguments[1] == "true", scene.id))
                        : refused("The argument opens must be \"true\" or \"false\".");
         })},
        {"SetSceneWallpaper",
         {"scene", "display", "path"},
         "scene",
         ofScene([&controller](const Scene& scene, const Arguments& arguments) {
             return withWallpaper(controller, scene, arguments[1], arguments[2]);
         })},
        {"DismissDriftNudge",
         {},
         "scenes",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) {
             controller.dismissDriftNudge();
             reply(nlohmann::json(scenes(controller)));
         }},
        {"ReapplyDriftScene",
         {},
         "report",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) {
             if (controller.published().driftNudge) {
                 controller.reapplyDriftScene(ControlAnswers::restoreReply(reply));
             } else {
                 reply(refused("No windows have moved away from a scene."));
             }
         }},
    };
}

} // namespace vantrel
