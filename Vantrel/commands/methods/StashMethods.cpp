#include "Vantrel/commands/methods/StashMethods.h"

#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/ControlNames.h"
#include "Vantrel/commands/StashesMessage.h"

#include <algorithm>

namespace vantrel {

namespace {

using Arguments = std::vector<std::string>;

void refuse(const ControlReply& reply, const std::string& sentence) {
    reply(std::unexpected(ControlRefusal{ControlNames::refused, sentence}));
}

std::function<void(const StashFlow::Result&)> stashReply(const ControlReply& reply) {
    return [reply](const StashFlow::Result& stash) {
        if (!stash) {
            refuse(reply, SaveOutcome{.kind = stash.error()}.text());
            return;
        }
        reply(nlohmann::json{{"id", stash->id},
                             {"windows", stash->windowCount},
                             {"configID", stash->configID},
                             {"configName", stash->deskName}});
    };
}

// `wanted` is an unambiguous prefix of the ID; empty means the current desk's newest stash.
void bringBack(AppController& controller, const std::string& wanted, const ControlReply& reply) {
    const auto& state = controller.published();
    if (wanted.empty()) {
        if (const Stash* stash = state.activeStash()) {
            controller.stashes().bringBack(stash->id, ControlAnswers::restoreReply(reply));
        } else {
            refuse(reply, "Nothing is stashed on this desk.");
        }
        return;
    }
    const auto isMeant = [&](const Stash& stash) { return stash.id.starts_with(wanted); };
    const auto found = std::ranges::find_if(state.stashes, isMeant);
    if (std::ranges::count_if(state.stashes, isMeant) > 1) {
        refuse(reply, "More than one stash ID begins with \"" + wanted + "\".");
        return;
    }
    controller.stashes().bringBack(found == state.stashes.end() ? wanted : found->id,
                                   ControlAnswers::restoreReply(reply));
}

} // namespace

std::vector<ControlMethod> stashMethods(AppController& controller) {
    return {
        {"Stashes",
         {},
         "stashes",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) {
             const auto& state = controller.published();
             const Stash* const active = state.activeStash();
             reply(nlohmann::json(StashesMessage{.stashes = state.stashes,
                                                 .activeStash = active != nullptr ? std::optional(active->id)
                                                                                  : std::nullopt}));
         }},
        {"Stash",
         {},
         "stash",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) {
             controller.stashes().stashNow(stashReply(reply));
         }},
        {"ToggleStash",
         {},
         "stashOrReport",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) {
             controller.stashes().stashOrBringBack(
                 {.stashed = stashReply(reply), .broughtBack = ControlAnswers::restoreReply(reply)});
         }},
        {"BringBack",
         {"stash"},
         "report",
         [&controller](const Arguments& arguments, const ControlReply& reply) {
             bringBack(controller, arguments[0], reply);
         }},
        {"Undo",
         {},
         "report",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) {
             controller.undoLastRestore(ControlAnswers::restoreReply(reply));
         }},
    };
}

} // namespace vantrel
