// The commands for scenes, and for the drift from the scene last applied.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/DryRun.h"
#include "Vantrel/commands/ScenesMessage.h"
#include "Vantrel/commands/terminal/SceneTexts.h"
#include "Vantrel/commands/verbs/VerbPrinting.h"
#include "Vantrel/commands/verbs/VerbTexts.h"
#include "Vantrel/controller/AppController.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/scenes/SceneRail.h"
#include "VantrelCore/text/SceneExplanations.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fmt/format.h>
#include <tuple>

namespace vantrel {

namespace {

using namespace ControlAnswers;

SceneMessage message(AppController& controller, const Scene& scene) {
    const PublishedState& state = controller.published();
    return {.scene = scene,
            .deskName = controller.scenes().deskName(scene.configID).value_or(scene.layout.name),
            .isCurrentDesk = scene.configID == state.configID,
            .isLastApplied = scene.id == state.lastAppliedSceneID};
}

ControlAnswer scenes(const BusCall& call) {
    AppController& controller = call.controller;
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
    return nlohmann::json(result);
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

void save(const BusCall& call) {
    call.controller.scenes().saveCurrentAsScene(
        call[0], [&controller = call.controller, reply = call.reply](const SceneSaveOutcome& outcome) {
            reply(saved(controller, outcome));
        });
}

ControlAnswer create(const BusCall& call) {
    return saved(call.controller, call.controller.scenes().createEmptyScene(call[0]));
}

void apply(const BusCall& call) {
    if (const auto scene = sceneCalled(call.controller.published(), call[0])) {
        call.controller.applyScene(*scene, std::nullopt, restoreReply(call.reply));
    } else {
        call.reply(refused(scene.error()));
    }
}

void preview(const BusCall& call) {
    if (const auto scene = sceneCalled(call.controller.published(), call[0])) {
        call.controller.previews().previewScene(*scene, DryRun::reply(call.reply));
    } else {
        call.reply(refused(scene.error()));
    }
}

ControlAnswer deleteScene(const BusCall& call, const Scene& scene) {
    return scene.isPinned() ? refused(tr(SceneExplanations::pinnedIsProtected))
                            : edited(call.controller, call.controller.scenes().deleteScene(scene.id));
}

ControlAnswer setOpensMissingApps(const BusCall& call, const Scene& scene) {
    return call[1] == "true" || call[1] == "false"
               ? edited(call.controller,
                        call.controller.scenes().setOpensMissingApps(call[1] == "true", scene.id))
               : refused(tr("The argument opens must be \"true\" or \"false\"."));
}

// Sets the wallpaper of the display that DisplayLabels::resolve() finds, or of every display if `display` is
// empty. An empty path removes the wallpaper.
ControlAnswer setWallpaper(const BusCall& call, const Scene& scene) {
    const auto& [display, path] = std::tie(call[1], call[2]);
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
    return edited(call.controller, call.controller.scenes().setWallpaper(wallpaper, scene.id));
}

ControlAnswer dismiss(const BusCall& call) {
    call.controller.dismissDriftNudge();
    return scenes(call);
}

void reapply(const BusCall& call) {
    if (call.controller.published().driftNudge) {
        call.controller.reapplyDriftScene(restoreReply(call.reply));
    } else {
        call.reply(refused(tr("No windows have moved away from a scene.")));
    }
}

// Calls `edit` with the scene that the first argument names.
template <typename Edit>
BusHandler editing(Edit edit) {
    return [edit](const BusCall& call) {
        const auto scene = sceneCalled(call.controller.published(), call[0]);
        return scene ? edit(call, *scene) : refused(scene.error());
    };
}

ControlAnswer renameScene(const BusCall& call, const Scene& scene) {
    return edited(call.controller, call.controller.scenes().rename(scene.id, call[1]));
}

ControlAnswer duplicateScene(const BusCall& call, const Scene& scene) {
    return edited(call.controller, call.controller.scenes().duplicate(scene.id));
}

// Positions begin at 1.
ControlAnswer moveScene(const BusCall& call, const Scene& scene) {
    std::size_t position = 0;
    const char* const end = call[1].data() + call[1].size();
    const auto parsed = std::from_chars(call[1].data(), end, position);
    return parsed.ec == std::errc{} && parsed.ptr == end && position > 0
               ? edited(call.controller, call.controller.scenes().move(scene.id, position - 1))
               : refused(tr("The position must be a number from 1."));
}

BusHandler setPinned(bool isPinned) {
    return editing([isPinned](const BusCall& call, const Scene& scene) {
        return edited(call.controller, call.controller.scenes().setPinned(isPinned, scene.id));
    });
}

std::string savedText(const nlohmann::json& saved, const VerbCall& /*call*/) {
    const auto message = JsonCoding::value<SceneMessage>(saved);
    const auto windows = trn("{} window", "{} windows", std::ssize(message.scene.layout.windows));
    return JsonCoding::required<bool>(saved, "isNew")
               ? trf("Saved {} as the scene \"{}\".\n", windows, message.scene.name)
               : trf("Updated the scene \"{}\" with {}.\n", message.scene.name, windows);
}

std::string opensText(const SceneMessage& message) {
    return message.scene.effectiveOpensMissingApps()
               ? trf("The scene \"{}\" opens missing apps.\n", message.scene.name)
               : trf("The scene \"{}\" opens no missing apps, except those it keeps places for.\n",
                     message.scene.name);
}

// Searches the scenes that the program knows.
ExitCode show(const VerbCall& call) {
    auto answer = ControlClient::call("Scenes");
    if (answer) {
        const std::string wanted = Unicode::lowercased(Unicode::trimmed(call.typed["scene"]));
        const auto all = answer->value("scenes", nlohmann::json::array());
        const auto found = std::ranges::find_if(all, [&](const nlohmann::json& each) {
            return Unicode::lowercased(each.value("name", "")) == wanted ||
                   Unicode::lowercased(each.value("id", "")) == wanted;
        });
        answer = found != all.end() ? ControlClient::Result<nlohmann::json>(*found)
                                    : std::unexpected(ControlFailure{
                                          .message = trf("There is no scene \"{}\".", call.typed["scene"])});
    }
    return VerbPrinting::show(answer, VerbTexts::of<SceneMessage>(SceneTexts::scene), call);
}

// The path is made absolute: the program that shows the picture has a different working directory.
ExitCode wallpaper(const VerbCall& call) {
    std::string path;
    if (!call.typed["picture"].empty()) {
        std::error_code ignored;
        path = std::filesystem::absolute(call.typed["picture"], ignored).string();
        if (!std::filesystem::is_regular_file(path, ignored)) {
            return VerbPrinting::complain(trf("There is no picture file {}.", path), ExitCode::failed);
        }
    }
    return VerbPrinting::show(
        ControlClient::call("SetSceneWallpaper", {call.typed["scene"], call.typed["--display"], path}),
        VerbTexts::sentence(path.empty() ? marked("The scene \"{name}\" does not change the wallpaper.")
                                         : marked("The wallpaper of the scene \"{name}\" is set.")),
        call);
}

constexpr Word scene{"scene", marked("The scene's name"), ValueKind::scene};

} // namespace

std::vector<Command> sceneCommands() {
    return {
        {.signature = "Scenes() scenes",
         .handler = scenes,
         .verbs = {{"scenes", marked("List and manage the scenes of every desk")},
                   {"scenes list",
                    marked("List the scenes of every desk; a star marks the one last applied here")}},
         .text = VerbTexts::of<ScenesMessage>(
             SceneTexts::list,
             marked("There are no scenes yet. Save one with: vantrelctl save-scene NAME\n"))},
        {.verbs = {{"scenes show", marked("Draw a scene"), {scene}}}, .run = show},
        {.signature = "CreateEmptyScene(name) scene",
         .handler = create,
         .verbs = {{"scenes new",
                    marked("Create a scene without windows, to be filled in the editor"),
                    {scene}}},
         .text = VerbTexts::sentence(marked("Created the empty scene \"{name}\"."))},
        {.signature = "ApplyScene(scene) report",
         .handler = apply,
         .verbs = {{"apply",
                    marked("Arrange the desk as saved in a scene, even one of another desk"),
                    {scene, DryRun::option}}},
         .run =
             [](const VerbCall& call) {
                 return DryRun::run(call, "ApplyScene", "PreviewScene", {call.typed["scene"]});
             }},
        {.signature = "PreviewScene(scene) preview", .handler = preview},
        {.signature = "SaveScene(name) scene",
         .handler = save,
         .verbs = {{"scenes update", marked("Save the desk to an existing scene of this desk"), {scene}},
                   {"save-scene",
                    marked("Save the desk as a scene"),
                    {{"name", marked("The scene's name, of 30 characters or fewer"), ValueKind::scene}}}},
         .text = savedText},
        {.signature = "RenameScene(scene, name) scene",
         .handler = editing(renameScene),
         .verbs = {{"scenes rename",
                    marked("Rename a scene"),
                    {scene, {"name", marked("Its new name, of 30 characters or fewer")}}}},
         .text = VerbTexts::sentence(marked("The scene is now called \"{name}\"."))},
        {.signature = "DuplicateScene(scene) scene",
         .handler = editing(duplicateScene),
         .verbs = {{"scenes duplicate", marked("Add a copy of a scene after it"), {scene}}},
         .text = VerbTexts::sentence(marked("Added the scene \"{name}\"."))},
        {.signature = "MoveScene(scene, position) scene",
         .handler = editing(moveScene),
         .verbs = {{"scenes move",
                    marked("Move a scene to another position in its desk's list"),
                    {scene,
                     {"position", marked("1 for the first, 2 for the second and so on"),
                      ValueKind::number}}}},
         .text = VerbTexts::sentence(marked("Moved the scene \"{name}\"."))},
        {.signature = "DeleteScene(scene) scene",
         .handler = editing(deleteScene),
         .verbs = {{"scenes delete", marked("Delete a scene"), {scene}}},
         .text = VerbTexts::sentence(
             marked("Deleted the scene \"{name}\". To put it back: vantrelctl undelete"))},
        {.signature = "PinScene(scene) scene",
         .handler = setPinned(true),
         .verbs = {{"scenes pin", marked("Protect a scene from being overwritten or deleted"), {scene}}},
         .text = VerbTexts::sentence(marked("Pinned the scene \"{name}\"."))},
        {.signature = "UnpinScene(scene) scene",
         .handler = setPinned(false),
         .verbs = {{"scenes unpin", marked("Allow a scene to be changed again"), {scene}}},
         .text = VerbTexts::sentence(marked("Unpinned the scene \"{name}\"."))},
        {.signature = "SetSceneOpensMissingApps(scene, opens) scene",
         .handler = editing(setOpensMissingApps),
         .verbs = {{"scenes open-apps",
                    marked("Choose whether applying a scene starts its applications that are not running"),
                    {scene, {"opens", marked("yes or no"), ValueKind::yesOrNo}},
                    [](const Typed& typed) {
                        return std::vector<std::string>{typed["scene"],
                                                        typed["opens"] == "yes" ? "true" : "false"};
                    }}},
         .text = VerbTexts::of<SceneMessage>(opensText)},
        {.signature = "SetSceneWallpaper(scene, display, path) scene",
         .handler = editing(setWallpaper),
         .verbs = {{"scenes wallpaper",
                    marked("Choose a scene's wallpaper"),
                    {scene,
                     {"picture", marked("The picture file; omit it to remove the wallpaper"), ValueKind::file,
                      Word::Use::optional},
                     {"--display", marked("A display of the scene, by label; defaults to all displays"),
                      ValueKind::display}}}},
         .run = wallpaper},
        {.signature = "ReapplyDriftScene() report",
         .handler = reapply,
         .verbs = {{"scenes reapply", marked("Reapply the scene that windows have moved away from")}},
         .text = VerbTexts::report},
        {.signature = "DismissDriftNudge() scenes",
         .handler = dismiss,
         .verbs = {{"scenes dismiss",
                    marked("Dismiss the notice that windows have moved away from the scene")}},
         .text = VerbTexts::of<ScenesMessage>(SceneTexts::list)},
    };
}

} // namespace vantrel
