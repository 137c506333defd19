#include "Vantrel/commands/methods/SuggestionMethods.h"

#include "Vantrel/commands/ControlNames.h"

namespace vantrel {

namespace {

using Arguments = std::vector<std::string>;

nlohmann::json describe(const PublishedState& state) {
    nlohmann::json json{{"isSuggested", state.patternSuggestion.has_value()},
                        {"configID", state.configID},
                        {"configName", state.deskName()}};
    if (state.patternSuggestion) {
        json["signature"] = state.patternSuggestion->signature;
    }
    return json;
}

ControlAnswer answer(bool isWritten, const PublishedState& state) {
    if (!isWritten) {
        return std::unexpected(
            ControlRefusal{ControlNames::refused, "The settings could not be written to disk."});
    }
    return describe(state);
}

} // namespace

std::vector<ControlMethod> suggestionMethods(AppController& controller) {
    const auto method = [&](const char* name, auto&& change) {
        return ControlMethod{name,
                             {},
                             "suggestion",
                             [&controller, change](const Arguments& /*none*/, const ControlReply& reply) {
                                 reply(answer(change(controller.suggestions()), controller.published()));
                             }};
    };
    return {method("Suggestion", [](SuggestionFlow& /*unchanged*/) { return true; }),
            method("SnoozeSuggestions", [](SuggestionFlow& flow) { return flow.snooze(); }),
            method("StopSuggestions", [](SuggestionFlow& flow) { return flow.stop(); }),
            method("ResumeSuggestions", [](SuggestionFlow& flow) { return flow.resume(); })};
}

} // namespace vantrel
