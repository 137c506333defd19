// The commands for the suggestion to save a recurring arrangement.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/verbs/VerbTexts.h"
#include "Vantrel/controller/AppController.h"
#include "VantrelCore/text/Translation.h"

namespace vantrel {

namespace {

using namespace ControlAnswers;

nlohmann::json describe(const PublishedState& state) {
    nlohmann::json json{{"isSuggested", state.patternSuggestion.has_value()},
                        {"configID", state.configID},
                        {"configName", state.deskName()}};
    if (state.patternSuggestion) {
        json["signature"] = state.patternSuggestion->signature;
    }
    return json;
}

// A command that makes this change, which returns false if it could not be written. The verb prints
// `otherwise` while there is no suggestion.
Command command(const char* signature, bool (*change)(SuggestionFlow&), const Verb& verb,
                const char* otherwise) {
    const auto arranged = VerbTexts::sentence(marked(
        "{configName} was arranged like this on several days. Save it with: vantrelctl save-scene NAME"));
    return {.signature = signature,
            .handler =
                [change](const BusCall& call) {
                    return change(call.controller.suggestions())
                               ? ControlAnswer(describe(call.controller.published()))
                               : refused(tr("The settings could not be written to disk."));
                },
            .verbs = {verb},
            .text =
                [arranged, otherwise](const nlohmann::json& reply, const VerbCall& call) {
                    return JsonCoding::required<bool>(reply, "isSuggested")
                               ? arranged(reply, call)
                               : std::string(tr(otherwise)) + '\n';
                }};
}

} // namespace

std::vector<Command> suggestionCommands() {
    return {
        command(
            "Suggestion() suggestion", [](SuggestionFlow& /*unchanged*/) { return true; },
            {"suggestion", marked("Show whether this arrangement recurs and should be saved as a scene")},
            marked("There is no suggestion.")),
        command(
            "SnoozeSuggestions() suggestion", [](SuggestionFlow& flow) { return flow.snooze(); },
            {"suggestion snooze", marked("Pause suggestions for a week")},
            marked("Suggestions are paused for a week.")),
        command(
            "StopSuggestions() suggestion", [](SuggestionFlow& flow) { return flow.stop(); },
            {"suggestion stop", marked("Stop suggestions")}, marked("Suggestions are stopped.")),
        command(
            "ResumeSuggestions() suggestion", [](SuggestionFlow& flow) { return flow.resume(); },
            {"suggestion resume", marked("Resume suggestions")},
            marked("Suggestions are resumed. There is none at the moment.")),
    };
}

} // namespace vantrel
