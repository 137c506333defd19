// Undo, and the commands for stashes.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/StashesMessage.h"
#include "Vantrel/commands/terminal/CommandTexts.h"
#include "Vantrel/commands/verbs/VerbTexts.h"
#include "Vantrel/controller/AppController.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <expected>
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

// The ID that begins like the argument; an empty argument means the current desk's newest stash.
std::expected<std::string, std::string> stashCalled(const PublishedState& state, const std::string& wanted) {
    const auto isMeant = [&](const Stash& stash) { return stash.id.starts_with(wanted); };
    const auto found = std::ranges::find_if(state.stashes, isMeant);
    if (wanted.empty()) {
        const Stash* const active = state.activeStash();
        return active != nullptr ? std::expected<std::string, std::string>(active->id)
                                 : std::unexpected(tr("Nothing is stashed on this desk."));
    }
    if (std::ranges::count_if(state.stashes, isMeant) > 1) {
        return std::unexpected(trf("More than one stash ID begins with \"{}\".", wanted));
    }
    return found == state.stashes.end() ? wanted : found->id;
}

void bringBack(const BusCall& call) {
    if (const auto id = stashCalled(call.controller.published(), call[0])) {
        call.controller.stashes().bringBack(*id, restoreReply(call.reply));
    } else {
        call.reply(refused(id.error()));
    }
}

ControlAnswer discard(const BusCall& call) {
    const auto& stashes = call.controller.published().stashes;
    const auto id = stashCalled(call.controller.published(), call[0]);
    if (!id) {
        return refused(id.error());
    }
    const auto found = std::ranges::find(stashes, *id, &Stash::id);
    if (found == stashes.end()) {
        return refused(trf("There is no stash \"{}\". See: vantrelctl stash list", call[0]));
    }
    // The stash is gone afterwards.
    const ControlAnswer deleted({{"id", found->id},
                                 {"windows", found->windowCount},
                                 {"configID", found->configID},
                                 {"configName", found->deskName}});
    return call.controller.stashes().discard(*id)
               ? deleted
               : refused(tr("The stash could not be deleted from disk. Nothing was changed."));
}

ControlAnswer undelete(const BusCall& call) {
    const auto what = call.controller.deletions().putBack();
    return what ? ControlAnswer(nlohmann::json{{"what", *what}}) : refused(what.error());
}

// The reply to a toggle is a stash or a report.
std::string stashedText(const nlohmann::json& reply, const VerbCall& call) {
    return reply.contains("restored")
               ? VerbTexts::report(reply, call)
               : trf("Stashed {} of {} for 7 days. Bring them back with: vantrelctl stash back\n",
                     trn("{} window", "{} windows", JsonCoding::required<std::int64_t>(reply, "windows")),
                     JsonCoding::required<std::string>(reply, "configName"));
}

} // namespace

std::vector<Command> stashCommands() {
    return {
        {.signature = "Undo() report",
         .handler = undo,
         .verbs = {{"undo",
                    marked("Return the windows to where they were before the last restore or switch")}},
         .text = VerbTexts::report},
        {.signature = "Undelete() putBack",
         .handler = undelete,
         .verbs = {{"undelete",
                    marked(
                        "Put back the scene, layout, desk, stash, rule or trigger that was deleted last")}},
         .text = VerbTexts::sentence(marked("Put back {what}."))},
        {.signature = "Stashes() stashes",
         .handler = stashes,
         .verbs = {{"stash", marked("List stashes, stash this desk, bring a stash back")},
                   {"stash list",
                    marked("List the stashes; a star marks the one that \"back\" brings back")}},
         .text = VerbTexts::of<StashesMessage>(
             CommandTexts::stashes,
             marked("Nothing is stashed. Stash this desk with: vantrelctl stash now\n"))},
        {.signature = "Stash() stash",
         .handler = stash,
         .verbs = {{"stash now", marked("Stash this desk as it is for 7 days")}},
         .text = stashedText},
        {.signature = "ToggleStash() stashOrReport",
         .handler = toggle,
         .verbs = {{"stash toggle",
                    marked("Bring this desk's newest stash back; without one, stash the desk")}},
         .text = stashedText},
        {.signature = "BringBack(stash) report",
         .handler = bringBack,
         .verbs = {{"stash back",
                    marked("Bring a stash back"),
                    {{"stash", marked("The beginning of the stash's ID; defaults to this desk's newest"),
                      ValueKind::stash, Word::Use::optional}}}},
         .text = VerbTexts::report},
        {.signature = "DeleteStash(stash) stash",
         .handler = discard,
         .verbs = {{"stash delete",
                    marked("Delete a stash without bringing it back"),
                    {{"stash", marked("The beginning of the stash's ID"), ValueKind::stash}}}},
         .text = VerbTexts::sentence(
             marked("Deleted the stash of {configName}. To put it back: vantrelctl undelete"))},
    };
}

} // namespace vantrel
