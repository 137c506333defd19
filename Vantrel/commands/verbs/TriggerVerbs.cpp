#include "Vantrel/commands/verbs/TriggerVerbs.h"

#include "Vantrel/commands/terminal/TextColumns.h"
#include "VantrelCore/scenes/SceneTriggerFormatting.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace vantrel {

namespace {

using namespace VerbPrinting;
using JsonCoding::required;

std::string sceneName(const nlohmann::json& trigger) {
    const auto name = JsonCoding::optional<std::string>(trigger, "sceneName");
    return name ? "\"" + *name + "\"" : "a scene that no longer exists";
}

std::string remark(const nlohmann::json& trigger, bool isAccessNeeded, const VerbEnvironment& environment) {
    if (!required<bool>(trigger, "enabled")) {
        return "off";
    }
    if (isAccessNeeded && trigger.at("kind").contains("calendarVideoEvent")) {
        return std::string(SceneTriggerFormatting::calendarAccessNeeded);
    }
    const auto fired = JsonCoding::optional<Date>(trigger, "lastFiredAt");
    return fired ? "last on " + environment.localDate(*fired) : "";
}

std::string list(const nlohmann::json& answer, const VerbEnvironment& environment) {
    const bool isAccessNeeded = required<bool>(answer, "calendarAccessNeeded");
    std::vector<std::vector<std::string>> rows;
    for (const auto& trigger : answer.at("triggers")) {
        rows.push_back({std::to_string(rows.size() + 1), required<std::string>(trigger, "title"),
                        sceneName(trigger), remark(trigger, isAccessNeeded, environment)});
    }
    if (rows.empty()) {
        return "There are no triggers. Add one with: vantrelctl triggers add --help\n";
    }
    const auto text = TextColumns::lines(rows, environment.drawing().columns);
    return isAccessNeeded ? text + "\nNo calendar was found. Set its folder with: vantrelctl settings set "
                                   "calendarFolders FOLDER\n"
                          : text;
}

std::string added(const nlohmann::json& answer) {
    std::string text;
    for (const auto& trigger : answer.at("triggers")) {
        text += fmt::format("{}: applies {}.\n", required<std::string>(trigger, "title"), sceneName(trigger));
    }
    return text;
}

struct Words {
    std::string detail;
    std::vector<std::string> scenes;
    std::string trigger;
};

ExitCode add(const char* kind, const Words& words, VerbOutput output) {
    return show<nlohmann::json>(
        ControlClient::call("AddTrigger", {kind, words.detail, nlohmann::json(words.scenes).dump()}), output,
        added);
}

void addAddVerbs(VerbTable& table, CLI::App& triggers, const std::shared_ptr<Words>& words) {
    auto& adding = *triggers.add_subcommand(
        "add", "Apply a scene at a time of day, before a video call, or with a Focus");
    adding.require_subcommand(1);
    adding.footer("With several scenes, the one saved on the current desk is applied.\nExamples:\n"
                  "  vantrelctl triggers add schedule 9:00 Work Home\n"
                  "  vantrelctl triggers add calendar Call\n"
                  "  vantrelctl triggers add focus Quiet");
    const auto scenes = [&](CLI::App& verb) {
        table
            .takes(ValueKind::scene,
                   verb.add_option("SCENE", words->scenes, "A scene's name; give several for several desks"))
            ->required();
    };
    auto& schedule = table.add(adding, "schedule", "Every day at a given time",
                               [words](VerbOutput output) { return add("schedule", *words, output); });
    schedule.add_option("TIME", words->detail, "9:30, 21:30 or \"9:30 PM\"")->required();
    scenes(schedule);
    auto& calendar = table.add(adding, "calendar", "A minute before an event with a link to a video call",
                               [words](VerbOutput output) { return add("calendar", *words, output); });
    scenes(calendar);
    auto& focus = table.add(adding, "focus", "When a Focus turns on",
                            [words](VerbOutput output) { return add("focus", *words, output); });
    scenes(focus);
    focus.add_option("--name", words->detail, "The Focus; defaults to the desktop's \"do not disturb\"");
}

} // namespace

void addTriggerVerbs(VerbTable& table, CLI::App& app) {
    const auto& environment = table.environment();
    const auto words = std::make_shared<Words>();
    const auto listAll = [&environment](VerbOutput output) {
        return show<nlohmann::json>(ControlClient::call("Triggers"), output,
                                    [&](const nlohmann::json& answer) { return list(answer, environment); });
    };
    auto& triggers =
        table.add(app, "triggers", "List and manage the triggers that apply scenes automatically", listAll);
    table.add(triggers, "list", "List the triggers", listAll);
    addAddVerbs(table, triggers, words);

    const auto change = [&](const char* name, const char* description, const char* method,
                            const char* outcome) {
        auto& verb = table.add(triggers, name, description, [words, method, outcome](VerbOutput output) {
            return show<nlohmann::json>(ControlClient::call(method, {words->trigger}), output,
                                        [outcome](const nlohmann::json& trigger) {
                                            return fmt::format(
                                                "{} {}.\n", required<std::string>(trigger, "title"), outcome);
                                        });
        });
        table
            .takes(ValueKind::trigger,
                   verb.add_option("TRIGGER", words->trigger, "The trigger's number in the list, or its ID"))
            ->required();
    };
    change("enable", "Enable a trigger", "EnableTrigger", "is on");
    change("disable", "Disable a trigger without deleting it", "DisableTrigger", "is off");
    change("delete", "Delete a trigger", "DeleteTrigger", "is deleted");
}

void addSuggestionVerbs(VerbTable& table, CLI::App& app) {
    const auto answer = [](const char* method, const char* otherwise) {
        return [method, otherwise](VerbOutput output) {
            return show<nlohmann::json>(
                ControlClient::call(method), output, [otherwise](const nlohmann::json& state) {
                    return required<bool>(state, "isSuggested")
                               ? fmt::format(
                                     "{} was arranged like this on several days. Save it with: vantrelctl "
                                     "save-scene NAME\n",
                                     required<std::string>(state, "configName"))
                               : std::string(otherwise) + "\n";
                });
        };
    };
    auto& suggestion =
        table.add(app, "suggestion", "Show whether this arrangement recurs and should be saved as a scene",
                  answer("Suggestion", "There is no suggestion."));
    table.add(suggestion, "snooze", "Pause suggestions for a week",
              answer("SnoozeSuggestions", "Suggestions are paused for a week."));
    table.add(suggestion, "stop", "Stop suggestions", answer("StopSuggestions", "Suggestions are stopped."));
    table.add(suggestion, "resume", "Resume suggestions",
              answer("ResumeSuggestions", "Suggestions are resumed. There is none at the moment."));
}

} // namespace vantrel
