#include "Vantrel/commands/methods/TriggerMethods.h"

#include "Vantrel/commands/ControlNames.h"
#include "VantrelCore/ports/FocusReader.h"
#include "VantrelCore/scenes/SceneTriggerFormatting.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>

namespace vantrel {

namespace {

using Arguments = std::vector<std::string>;

// The shortest accepted prefix of a trigger's ID, in characters.
constexpr std::size_t shortestBeginning = 4;

ControlAnswer refusal(std::string sentence) {
    return std::unexpected(ControlRefusal{ControlNames::refused, std::move(sentence)});
}

nlohmann::json describe(const SceneTrigger& trigger, const PublishedState& state) {
    nlohmann::json json = trigger;
    json["title"] = SceneTriggerFormatting::title(trigger.kind);
    const auto scene = std::ranges::find(state.scenes, trigger.sceneID, &Scene::id);
    if (scene != state.scenes.end()) {
        json["sceneName"] = scene->name;
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

ControlAnswer unknownTrigger(const std::string& called) {
    return refusal(fmt::format("There is no trigger \"{}\". See: vantrelctl triggers", called));
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
        return std::unexpected(fmt::format(
            "The trigger kind must be \"schedule\", \"calendar\" or \"focus\", not \"{}\".", kind));
    }
    const auto time = SceneTriggerFormatting::scheduleOf(detail);
    if (!time) {
        return std::unexpected(
            fmt::format("\"{}\" is not a valid time. Use a format like 9:30, 21:30 or \"9:30 PM\".", detail));
    }
    return *time;
}

// `names` is a JSON array of scene names and IDs.
std::expected<std::vector<std::string>, std::string> sceneIDs(const std::string& names,
                                                              const PublishedState& state) {
    const auto list = nlohmann::json::parse(names, nullptr, false);
    if (!list.is_array()) {
        return std::unexpected("The scenes must be a JSON array of strings.");
    }
    std::vector<std::string> ids;
    for (const auto& each : list) {
        // The element is not printed: it may be nested too deeply for that.
        if (!each.is_string()) {
            return std::unexpected("The scenes must be a JSON array of strings.");
        }
        const auto called = each.get<std::string>();
        const std::string wanted = Unicode::lowercased(Unicode::trimmed(called));
        const auto found = std::ranges::find_if(state.scenes, [&](const Scene& scene) {
            return scene.id == called || Unicode::lowercased(scene.name) == wanted;
        });
        if (found == state.scenes.end()) {
            return std::unexpected(
                state.scenes.empty()
                    ? std::string("There are no scenes yet. Save one with: vantrelctl save-scene NAME")
                    : fmt::format("There is no scene \"{}\". See: vantrelctl scenes", called));
        }
        ids.push_back(found->id);
    }
    return ids;
}

ControlAnswer add(AppController& controller, const Arguments& arguments) {
    const auto kind = kindOf(arguments[0], arguments[1]);
    if (!kind) {
        return refusal(kind.error());
    }
    const auto scenes = sceneIDs(arguments[2], controller.published());
    if (!scenes) {
        return refusal(scenes.error());
    }
    const auto added = controller.triggers().addTrigger(*kind, *scenes);
    return added ? ControlAnswer(describe(*added, controller.published())) : refusal(text(added.error()));
}

ControlAnswer setEnabled(AppController& controller, const std::string& called, bool isEnabled) {
    const auto trigger = triggerCalled(called, controller.published());
    if (!trigger) {
        return unknownTrigger(called);
    }
    if (const auto result = controller.triggers().setTriggerEnabled(trigger->id, isEnabled); !result) {
        return refusal(text(result.error()));
    }
    auto changed = *trigger;
    changed.enabled = isEnabled;
    return describe(changed, controller.published());
}

ControlAnswer deleteTrigger(AppController& controller, const std::string& called) {
    const auto trigger = triggerCalled(called, controller.published());
    if (!trigger) {
        return unknownTrigger(called);
    }
    if (const auto result = controller.triggers().deleteTrigger(trigger->id); !result) {
        return refusal(text(result.error()));
    }
    return describe(*trigger, controller.published());
}

} // namespace

std::vector<ControlMethod> triggerMethods(AppController& controller) {
    return {{"Triggers",
             {},
             "triggers",
             [&controller](const Arguments& /*none*/, const ControlReply& reply) {
                 reply(describe(controller.published().triggers, controller.published()));
             }},
            {"AddTrigger",
             {"kind", "detail", "scenes"},
             "triggers",
             [&controller](const Arguments& arguments, const ControlReply& reply) {
                 reply(add(controller, arguments));
             }},
            {"EnableTrigger",
             {"trigger"},
             "trigger",
             [&controller](const Arguments& arguments, const ControlReply& reply) {
                 reply(setEnabled(controller, arguments[0], true));
             }},
            {"DisableTrigger",
             {"trigger"},
             "trigger",
             [&controller](const Arguments& arguments, const ControlReply& reply) {
                 reply(setEnabled(controller, arguments[0], false));
             }},
            {"DeleteTrigger",
             {"trigger"},
             "trigger",
             [&controller](const Arguments& arguments, const ControlReply& reply) {
                 reply(deleteTrigger(controller, arguments[0]));
             }}};
}

} // namespace vantrel
