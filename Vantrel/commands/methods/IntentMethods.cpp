#include "Vantrel/commands/methods/IntentMethods.h"

#include "Vantrel/commands/ControlNames.h"

namespace vantrel {

namespace {

using Arguments = std::vector<std::string>;

Intents::Done done(const ControlReply& reply) {
    return [reply](const Intents::Result& result) {
        if (result) {
            reply(nlohmann::json(*result));
        } else {
            reply(std::unexpected(ControlRefusal{ControlNames::nothingHappened, result.error().message}));
        }
    };
}

} // namespace

std::vector<ControlMethod> intentMethods(const std::shared_ptr<Intents>& intents) {
    return {
        {"RestoreNow",
         {},
         "message",
         [intents](const Arguments& /*none*/, const ControlReply& reply) {
             intents->restoreNow(done(reply));
         }},
        {"ApplyScene",
         {"scene"},
         "message",
         [intents](const Arguments& arguments, const ControlReply& reply) {
             intents->applyScene(arguments[0], done(reply));
         }},
        {"SaveScene",
         {"name"},
         "message",
         [intents](const Arguments& arguments, const ControlReply& reply) {
             intents->saveScene(arguments[0], done(reply));
         }},
        {"StashOrBringBack",
         {},
         "message",
         [intents](const Arguments& /*none*/, const ControlReply& reply) { intents->stash(done(reply)); }},
        {"UndoLastRestore",
         {},
         "message",
         [intents](const Arguments& /*none*/, const ControlReply& reply) {
             intents->undoLastRestore(done(reply));
         }},
        {"Scenes",
         {},
         "scenes",
         [intents](const Arguments& /*none*/, const ControlReply& reply) {
             auto scenes = nlohmann::json::array();
             for (const auto& scene : intents->scenes()) {
                 scenes.push_back({{"id", scene.id}, {"name", scene.name}});
             }
             reply(nlohmann::json{{"scenes", std::move(scenes)}});
         }},
    };
}

} // namespace vantrel
