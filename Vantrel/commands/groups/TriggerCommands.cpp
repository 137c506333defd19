// The commands for triggers, which apply scenes automatically.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/terminal/TextColumns.h"
#include "Vantrel/commands/verbs/VerbTexts.h"
#include "Vantrel/controller/AppController.h"
#include "VantrelCore/ports/FocusReader.h"
#include "VantrelCore/scenes/SceneTriggerFormatting.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>

namespace vantrel {

namespace {

using namespace ControlAnswers;
using JsonCoding::required;

// The shortest accepted prefix of a trigger's ID, in characters.
constexpr std::size_t shortestBeginning = 4;

nlohmann::json describe(const SceneTrigger& trigger, const PublishedState& state) {
    nlohmann::json json = trigger;
    json["title"] = SceneTriggerFormatting::title(trigger.kind);
    const auto scene = std::ranges::find(state.scenes, trigger.sceneID, &Scene::id);
    if (scene != state.scenes.end()) {
        json["sceneName"] = scene->name;
    }
    if (const auto next = state.nextFirings.find(trigger.id); next != state.nextFirings.end()) {
        JsonCoding::put(json, "nextFiring", next->second);
    }
    return json;
}

nlohmann::json describe(const std::vector<SceneTrigger>& triggers, const PublishedState& state) {
    auto all = nlohmann::json::array();
    for (const SceneTrigger& trigger : triggers) {
        all.push_back(describe(trigger, state));
    }
    return {{"triggers", all}, {"calendarAccessNeeded", state.calendarAccessNeeded}};
}

// Finds a trigger by its number in the list, its ID, or an unambiguous prefix of the ID.
std::optional<SceneTrigger> triggerCalled(const std::string& called, const PublishedState& state) {
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(called.data(), called.data() + called.size(), number);
    if (error == std::errc{} && end == called.data() + called.size() && number >= 1 &&
        number <= state.triggers.size()) {
        return state.triggers[number - 1];
    }
    const std::string beginning = Unicode::lowercased(called);
    std::vector<SceneTrigger> found;
    std::ranges::copy_if(state.triggers, std::back_inserter(found), [&](const SceneTrigger& trigger) {
        return beginning.size() >= shortestBeginning &&
               Unicode::lowercased(trigger.id).starts_with(beginning);
    });
    return found.size() == 1 ? std::optional(found.front()) : std::nullopt;
}

std::expected<SceneTrigger::Kind, std::string> kindOf(const std::string& kind, const std::string& detail) {
    if (kind == "calendar") {
        return SceneTrigger::CalendarVideoEvent{};
    }
    if (kind == "focus") {
        const std::string name(Unicode::trimmed(detail));
        return SceneTrigger::FocusMode{name.empty() ? FocusReader::unnamed : name};
    }
    if (kind != "schedule") {
        return std::unexpected(
            trf("The trigger kind must be \"schedule\", \"calendar\" or \"focus\", not \"{}\".", kind));
    }
    const auto time = SceneTriggerFormatting::scheduleOf(detail);
    if (!time) {
        return std::unexpected(
            trf("\"{}\" is not a valid time. Use a format like 9:30, 21:30 or \"9:30 PM\".", detail));
    }
    return *time;
}

// `names` is a JSON array of scene names and IDs.
std::expected<std::vector<std::string>, std::string> sceneIDs(const std::string& names,
                                                              const PublishedState& state) {
    const auto list = nlohmann::json::parse(names, nullptr, false);
    if (!list.is_array()) {
        return std::unexpected(tr("The scenes must be a JSON array of strings."));
    }
    std::vector<std::string> ids;
    for (const auto& each : list) {
        // The element is not printed: it may be nested too deeply for that.
        if (!each.is_string()) {
            return std::unexpected(tr("The scenes must be a JSON array of strings."));
        }
        const auto scene = sceneCalled(state, each.get<std::string>());
        if (!scene) {
            return std::unexpected(scene.error() + (state.scenes.empty()
                                                        ? ""
                                                        : std::string(" ") + tr("See: vantrelctl scenes")));
        }
        ids.push_back(scene->id);
    }
    return ids;
}

ControlAnswer triggers(const BusCall& call) {
    const auto& state = call.controller.published();
    return describe(state.triggers, state);
}

ControlAnswer add(const BusCall& call) {
    const auto kind = kindOf(call[0], call[1]);
    if (!kind) {
        return refused(kind.error());
    }
    const auto scenes = sceneIDs(call[2], call.controller.published());
    if (!scenes) {
        return refused(scenes.error());
    }
    const auto added = call.controller.triggers().addTrigger(*kind, *scenes);
    return added ? ControlAnswer(describe(*added, call.controller.published()))
                 : refused(text(added.error()));
}

// Replies with the trigger as `change` leaves it.
template <typename Change>
ControlAnswer changed(const BusCall& call, Change&& change) {
    auto trigger = triggerCalled(call[0], call.controller.published());
    if (!trigger) {
        return refused(trf("There is no trigger \"{}\". See: vantrelctl triggers", call[0]));
    }
    const auto result = change(call.controller.triggers(), *trigger);
    return result ? ControlAnswer(describe(*trigger, call.controller.published()))
                  : refused(text(result.error()));
}

// An empty kind keeps what fires it, an empty scene the scene that it applies.
ControlAnswer edit(const BusCall& call) {
    const auto& state = call.controller.published();
    const auto kind =
        call[1].empty() ? std::expected<SceneTrigger::Kind, std::string>() : kindOf(call[1], call[2]);
    if (!kind) {
        return refused(kind.error());
    }
    std::string sceneID;
    if (!call[3].empty()) {
        const auto scene = sceneCalled(state, call[3]);
        if (!scene) {
            return refused(scene.error());
        }
        sceneID = scene->id;
    }
    return changed(call, [&](TriggerFlow& flow, SceneTrigger& trigger) {
        trigger.kind = call[1].empty() ? trigger.kind : *kind;
        trigger.sceneID = sceneID.empty() ? trigger.sceneID : sceneID;
        return flow.update(trigger);
    });
}

BusHandler setEnabled(bool isEnabled) {
    return [isEnabled](const BusCall& call) {
        return changed(call, [&](TriggerFlow& flow, SceneTrigger& trigger) {
            trigger.enabled = isEnabled;
            return flow.setTriggerEnabled(trigger.id, isEnabled);
        });
    };
}

ControlAnswer deleteTrigger(const BusCall& call) {
    return changed(
        call, [](TriggerFlow& flow, const SceneTrigger& trigger) { return flow.deleteTrigger(trigger.id); });
}

std::string sceneName(const nlohmann::json& trigger) {
    const auto name = JsonCoding::optional<std::string>(trigger, "sceneName");
    return name ? trf("\"{}\"", *name) : tr("a scene that no longer exists");
}

std::string remark(const nlohmann::json& trigger, bool isAccessNeeded, const VerbCall& call) {
    if (!required<bool>(trigger, "enabled")) {
        return tr("off");
    }
    if (isAccessNeeded && trigger.at("kind").contains("calendarVideoEvent")) {
        return tr(SceneTriggerFormatting::calendarAccessNeeded);
    }
    std::string text;
    if (const auto next = JsonCoding::optional<Date>(trigger, "nextFiring")) {
        text = trf("next on {}", call.environment.localDate(*next));
    }
    if (const auto fired = JsonCoding::optional<Date>(trigger, "lastFiredAt")) {
        text += (text.empty() ? "" : ", ") + trf("last on {}", call.environment.localDate(*fired));
    }
    return text;
}

std::string list(const nlohmann::json& answer, const VerbCall& call) {
    const bool isAccessNeeded = required<bool>(answer, "calendarAccessNeeded");
    std::vector<std::vector<std::string>> rows;
    for (const auto& trigger : answer.at("triggers")) {
        rows.push_back({std::to_string(rows.size() + 1), required<std::string>(trigger, "title"),
                        sceneName(trigger), remark(trigger, isAccessNeeded, call)});
    }
    if (rows.empty()) {
        return tr("There are no triggers. Add one with: vantrelctl triggers add --help\n");
    }
    const auto text = TextColumns::lines(rows, call.environment.drawing().columns);
    return isAccessNeeded ? text + tr("\nNo calendar was found. Set its folder with: vantrelctl settings set "
                                      "calendarFolders FOLDER\n")
                          : text;
}

std::string added(const nlohmann::json& answer, const VerbCall& /*call*/) {
    std::string text;
    for (const auto& trigger : answer.at("triggers")) {
        text += trf("{}: applies {}.\n", required<std::string>(trigger, "title"), sceneName(trigger));
    }
    return text;
}

// The arguments of a trigger of this kind, whose detail is the value of that word.
auto addArguments(const char* kind, const char* detail) {
    return [kind, detail](const Typed& typed) {
        return std::vector<std::string>{kind, typed[detail], nlohmann::json(typed.all("SCENE")).dump()};
    };
}

// The kind follows from the option that says what fires the trigger.
std::vector<std::string> editArguments(const Typed& typed) {
    const std::string time = typed["--time"];
    const std::string kind = !time.empty()             ? "schedule"
                             : typed.has("--calendar") ? "calendar"
                             : typed.has("--focus")    ? "focus"
                                                       : "";
    return {typed["TRIGGER"], kind, time.empty() ? typed["--focus"] : time, typed["--scene"]};
}

constexpr Word scenes{"SCENE", marked("A scene's name; give several for several desks"), ValueKind::scene,
                      Word::Use::repeated};
constexpr Word trigger{"TRIGGER", marked("The trigger's number in the list, or its ID"), ValueKind::trigger};

} // namespace

std::vector<Command> triggerCommands() {
    return {
        {.signature = "Triggers() triggers",
         .handler = triggers,
         .verbs = {{"triggers", marked("List and manage the triggers that apply scenes automatically")},
                   {"triggers list", marked("List the triggers")}},
         .text = list},
        {.signature = "AddTrigger(kind, detail, scenes) triggers",
         .handler = add,
         .verbs = {{.path = "triggers add",
                    .help = marked("Apply a scene at a time of day, before a video call, or with a Focus"),
                    .examples = marked(
                        "With several scenes, the one saved on the current desk is applied.\nExamples:\n"
                        "  vantrelctl triggers add schedule 9:00 Work Home\n"
                        "  vantrelctl triggers add calendar Call\n"
                        "  vantrelctl triggers add focus Quiet")},
                   {"triggers add schedule",
                    marked("Every day at a given time"),
                    {{"TIME", marked("9:30, 21:30 or \"9:30 PM\"")}, scenes},
                    addArguments("schedule", "TIME")},
                   {"triggers add calendar",
                    marked("A minute before an event with a link to a video call"),
                    {scenes},
                    addArguments("calendar", "")},
                   {"triggers add focus",
                    marked("When a Focus turns on"),
                    {scenes, {"--name", marked("The Focus; defaults to the desktop's \"do not disturb\"")}},
                    addArguments("focus", "--name")}},
         .text = added},
        {.signature = "EditTrigger(trigger, kind, detail, scene) trigger",
         .handler = edit,
         .verbs = {{"triggers edit",
                    marked("Change what fires a trigger, or the scene that it applies"),
                    {trigger,
                     {.name = "--time", .help = marked("A time of day: 9:30, 21:30 or \"9:30 PM\"")},
                     {.name = "--calendar",
                      .help = marked("A minute before an event with a link to a video call"),
                      .kind = ValueKind::flag,
                      .excluded = "--time"},
                     {.name = "--focus", .help = marked("When this Focus turns on"), .excluded = "--time"},
                     {"--scene", marked("The scene's name"), ValueKind::scene}},
                    editArguments}},
         .text =
             [](const nlohmann::json& reply, const VerbCall& call) {
                 return added({{"triggers", nlohmann::json::array({reply})}}, call);
             }},
        {.signature = "EnableTrigger(trigger) trigger",
         .handler = setEnabled(true),
         .verbs = {{"triggers enable", marked("Enable a trigger"), {trigger}}},
         .text = VerbTexts::sentence(marked("{title} is on."))},
        {.signature = "DisableTrigger(trigger) trigger",
         .handler = setEnabled(false),
         .verbs = {{"triggers disable", marked("Disable a trigger without deleting it"), {trigger}}},
         .text = VerbTexts::sentence(marked("{title} is off."))},
        {.signature = "DeleteTrigger(trigger) trigger",
         .handler = deleteTrigger,
         .verbs = {{"triggers delete", marked("Delete a trigger"), {trigger}}},
         .text = VerbTexts::sentence(marked("{title} is deleted. To put it back: vantrelctl undelete"))},
    };
}

} // namespace vantrel
