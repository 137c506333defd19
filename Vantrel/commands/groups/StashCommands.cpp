// Undo, and the commands for stashes.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/StashesMessage.h"
#include "Vantrel/commands/terminal/CommandTexts.h"
#include "Vantrel/commands/verbs/VerbTexts.h"
#include "Vantrel/controller/AppController.h"
#include "VantrelCore/text/CountedNoun.h"

#include <algorithm>
#include <fmt/format.h>

namespace vantrel {

namespace {

using namespace ControlAnswers;

void undo(const BusCall& call) {
    call.controller.undoLastRestore(restoreReply(call.reply));
}

ControlAnswer stashes(const BusCall& call) {
    const auto& state = call.controller.published();
    const Stash* const active = state.activeStash();
    return nlohmann::json(
        StashesMessage{.stashes = state.stashes,
                       .activeStash = active != nullptr ? std::optional(active->id) : std::nullopt});
}

std::function<void(const StashFlow::Result&)> stashReply(const ControlReply& reply) {
    return [reply](const StashFlow::Result& stash) {
        reply(stash ? ControlAnswer({{"id", stash->id},
                                     {"windows", stash->windowCount},
                                     {"configID", stash->configID},
                                     {"configName", stash->deskName}})
                    : refused(SaveOutcome{.kind = stash.error()}.text()));
    };
}

void stash(const BusCall& call) {
    call.controller.stashes().stashNow(stashReply(call.reply));
}

void toggle(const BusCall& call) {
    call.controller.stashes().stashOrBringBack(
        {.stashed = stashReply(call.reply), .broughtBack = restoreReply(call.reply)});
}

// The argument is an unambiguous prefix of the ID; empty means the current desk's newest stash.
void bringBack(const BusCall& call) {
    const auto& state = call.controller.published();
    const std::string& wanted = call[0];
    const auto isMeant = [&](const Stash& stash) { return stash.id.starts_with(wanted); };
    const auto found = std::ranges::find_if(state.stashes, isMeant);
    const Stash* const active = state.activeStash();
    if (wanted.empty() && active == nullptr) {
        call.reply(refused("Nothing is stashed on this desk."));
    } else if (!wanted.empty() && std::ranges::count_if(state.stashes, isMeant) > 1) {
        call.reply(refused("More than one stash ID begins with \"" + wanted + "\"."));
    } else {
        call.controller.stashes().bringBack(wanted.empty()                 ? active->id
                                            : found == state.stashes.end() ? wanted
                                                                           : found->id,
                                            restoreReply(call.reply));
    }
}

ControlAnswer undelete(const BusCall& call) {
    const auto what = call.controller.deletions().putBack();
    return what ? ControlAnswer(nlohmann::json{{"what", *what}}) : refused(what.error());
}

// The reply to a toggle is a stash or a report.
std::string stashedText(const nlohmann::json& reply, const VerbCall& call) {
    return reply.contains("restored")
               ? VerbTexts::report(reply, call)
               : fmt::format("Stashed {} of {} for 7 days. Bring them back with: vantrelctl stash back\n",
                             countedNoun(JsonCoding::required<std::int64_t>(reply, "windows"), "window"),
                             JsonCoding::required<std::string>(reply, "configName"));
}

} // namespace

std::vector<Command> stashCommands() {
    return {
        {.signature = "Undo() report",
         .handler = undo,
         .verbs = {{"undo", "Return the windows to where they were before the last restore or switch"}},
         .text = VerbTexts::report},
        {.signature = "Undelete() putBack",
         .handler = undelete,
         .verbs = {{"undelete", "Put back the scene, layout, rule or trigger that was deleted last"}},
         .text = VerbTexts::sentence("Put back {what}.")},
        {.signature = "Stashes() stashes",
         .handler = stashes,
         .verbs = {{"stash", "List stashes, stash this desk, bring a stash back"},
                   {"stash list", "List the stashes; a star marks the one that \"back\" brings back"}},
         .text = VerbTexts::of<StashesMessage>(
             CommandTexts::stashes, "Nothing is stashed. Stash this desk with: vantrelctl stash now\n")},
        {.signature = "Stash() stash",
         .handler = stash,
         .verbs = {{"stash now", "Stash this desk as it is for 7 days"}},
         .text = stashedText},
        {.signature = "ToggleStash() stashOrReport",
         .handler = toggle,
         .verbs = {{"stash toggle", "Bring this desk's newest stash back; without one, stash the desk"}},
         .text = stashedText},
        {.signature = "BringBack(stash) report",
         .handler = bringBack,
         .verbs = {{"stash back",
                    "Bring a stash back",
                    {{"stash", "The beginning of the stash's ID; defaults to this desk's newest",
                      ValueKind::stash, Word::Use::optional}}}},
         .text = VerbTexts::report},
    };
}

} // namespace vantrel
