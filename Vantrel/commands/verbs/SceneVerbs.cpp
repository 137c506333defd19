#include "Vantrel/commands/verbs/SceneVerbs.h"

#include "Vantrel/commands/terminal/SceneTexts.h"
#include "VantrelCore/text/CountedNoun.h"
#include "VantrelCore/text/Unicode.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>

namespace vantrel {

namespace {

using namespace VerbPrinting;

struct Words {
    std::string scene;
    std::string newName;
    std::string opens;
    std::string picture;
    std::string display;
};

using Shared = std::shared_ptr<Words>;
using Sentence = std::function<std::string(const SceneMessage&)>;

ExitCode changeScene(const char* method, const std::vector<std::string>& arguments, VerbOutput output,
                     const Sentence& sentence) {
    return show<SceneMessage>(ControlClient::call(method, arguments), output,
                              [&](const SceneMessage& scene) { return sentence(scene) + '\n'; });
}

Sentence sentenceFor(const char* format) {
    return [format](const SceneMessage& message) {
        return fmt::format(fmt::runtime(format), message.scene.name);
    };
}

ExitCode list(const VerbEnvironment& environment, VerbOutput output) {
    return show<ScenesMessage>(ControlClient::call("Scenes"), output, [&](const ScenesMessage& message) {
        const auto text = SceneTexts::list(message, environment.drawing());
        return text.empty() ? "There are no scenes yet. Save one with: vantrelctl save-scene NAME\n" : text;
    });
}

// Searches the scenes that the program knows.
ControlClient::Result<nlohmann::json> sceneCalled(const std::string& called) {
    const auto answer = ControlClient::call("Scenes");
    if (!answer) {
        return answer;
    }
    const std::string wanted = Unicode::lowercased(Unicode::trimmed(called));
    for (const auto& each : answer->value("scenes", nlohmann::json::array())) {
        if (Unicode::lowercased(each.value("name", "")) == wanted ||
            Unicode::lowercased(each.value("id", "")) == wanted) {
            return each;
        }
    }
    return std::unexpected(
        ControlFailure{ControlFailure::Kind::failed, fmt::format("There is no scene \"{}\".", called)});
}

ExitCode showScene(const VerbEnvironment& environment, const std::string& called, VerbOutput output) {
    return show<SceneMessage>(sceneCalled(called), output, [&](const SceneMessage& scene) {
        return SceneTexts::scene(scene, environment.drawing(), environment.localDate);
    });
}

ExitCode save(const std::string& name, VerbOutput output) {
    return show<nlohmann::json>(
        ControlClient::call("SaveScene", {name}), output, [](const nlohmann::json& saved) {
            const auto message = JsonCoding::value<SceneMessage>(saved);
            const auto windows = countedNoun(std::ssize(message.scene.layout.windows), "window");
            return JsonCoding::required<bool>(saved, "isNew")
                       ? fmt::format("Saved {} as the scene \"{}\".\n", windows, message.scene.name)
                       : fmt::format("Updated the scene \"{}\" with {}.\n", message.scene.name, windows);
        });
}

// The path is made absolute: the program that shows the picture has a different working directory.
ExitCode setWallpaper(const Words& words, VerbOutput output) {
    std::string path;
    if (!words.picture.empty()) {
        std::error_code ignored;
        path = std::filesystem::absolute(words.picture, ignored).string();
        if (!std::filesystem::is_regular_file(path, ignored)) {
            return complain(fmt::format("There is no picture file {}.", path), ExitCode::failed);
        }
    }
    return changeScene("SetSceneWallpaper", {words.scene, words.display, path}, output,
                       sentenceFor(path.empty() ? "The scene \"{}\" does not change the wallpaper."
                                                : "The wallpaper of the scene \"{}\" is set."));
}

void addScene(VerbTable& table, CLI::App& verb, const Shared& words) {
    table.takes(ValueKind::scene, verb.add_option("scene", words->scene, "The scene's name"))->required();
}

void addChanges(VerbTable& table, CLI::App& scenes, const Shared& words) {
    const auto add = [&](const char* name, const char* description, VerbTable::Run run) -> CLI::App& {
        auto& verb = table.add(scenes, name, description, std::move(run));
        addScene(table, verb, words);
        return verb;
    };
    add("new", "Create a scene without windows, to be filled in the editor", [words](VerbOutput output) {
        return changeScene("CreateEmptyScene", {words->scene}, output,
                           sentenceFor("Created the empty scene \"{}\"."));
    });
    add("update", "Save the desk to an existing scene of this desk",
        [words](VerbOutput output) { return save(words->scene, output); });
    add("rename", "Rename a scene",
        [words](VerbOutput output) {
            return changeScene("RenameScene", {words->scene, words->newName}, output,
                               sentenceFor("The scene is now called \"{}\"."));
        })
        .add_option("name", words->newName, "Its new name, of 30 characters or fewer")
        ->required();
    add("delete", "Delete a scene", [words](VerbOutput output) {
        return changeScene("DeleteScene", {words->scene}, output, sentenceFor("Deleted the scene \"{}\"."));
    });
    add("pin", "Protect a scene from being overwritten or deleted", [words](VerbOutput output) {
        return changeScene("PinScene", {words->scene}, output, sentenceFor("Pinned the scene \"{}\"."));
    });
    add("unpin", "Allow a scene to be changed again", [words](VerbOutput output) {
        return changeScene("UnpinScene", {words->scene}, output, sentenceFor("Unpinned the scene \"{}\"."));
    });
    auto& openApps =
        add("open-apps", "Choose whether applying a scene starts its applications that are not running",
            [words](VerbOutput output) {
                const bool opens = words->opens == "yes";
                return changeScene(
                    "SetSceneOpensMissingApps", {words->scene, opens ? "true" : "false"}, output,
                    sentenceFor(
                        opens ? "The scene \"{}\" opens missing apps."
                              : "The scene \"{}\" opens no missing apps, except those it keeps places for."));
            });
    table.takes(ValueKind::yesOrNo, openApps.add_option("opens", words->opens, "yes or no"))
        ->required()
        ->check(CLI::IsMember({"yes", "no"}));
    auto& wallpaper = add("wallpaper", "Choose a scene's wallpaper",
                          [words](VerbOutput output) { return setWallpaper(*words, output); });
    table.takes(ValueKind::file, wallpaper.add_option("picture", words->picture,
                                                      "The picture file; omit it to remove the wallpaper"));
    table.takes(ValueKind::display,
                wallpaper.add_option("--display", words->display,
                                     "A display of the scene, by label; defaults to all displays"));
}

} // namespace

void addSceneVerbs(VerbTable& table, CLI::App& app) {
    const auto& environment = table.environment();
    const auto words = std::make_shared<Words>();
    const auto listed = [&environment](VerbOutput output) { return list(environment, output); };
    auto& scenes = table.add(app, "scenes", "List and manage the scenes of every desk", listed);
    table.add(scenes, "list", "List the scenes of every desk; a star marks the one last applied here",
              listed);
    addScene(table,
             table.add(scenes, "show", "Draw a scene",
                       [&environment, words](VerbOutput output) {
                           return showScene(environment, words->scene, output);
                       }),
             words);
    addChanges(table, scenes, words);
    table.add(scenes, "reapply", "Reapply the scene that windows have moved away from",
              [&environment](VerbOutput output) {
                  return showReport(ControlClient::call("ReapplyDriftScene"), environment, output);
              });
    table.add(scenes, "dismiss", "Dismiss the notice that windows have moved away from the scene",
              [&environment](VerbOutput output) {
                  return show<ScenesMessage>(ControlClient::call("DismissDriftNudge"), output,
                                             [&](const ScenesMessage& message) {
                                                 return SceneTexts::list(message, environment.drawing());
                                             });
              });
    auto& apply = table.add(app, "apply", "Arrange the desk as saved in a scene, even one of another desk",
                            [&environment, words](VerbOutput output) {
                                return showReport(ControlClient::call("ApplyScene", {words->scene}),
                                                  environment, output);
                            });
    addScene(table, apply, words);
    auto& saveScene = table.add(app, "save-scene", "Save the desk as a scene",
                                [words](VerbOutput output) { return save(words->scene, output); });
    table
        .takes(ValueKind::scene,
               saveScene.add_option("name", words->scene, "The scene's name, of 30 characters or fewer"))
        ->required();
}

} // namespace vantrel
