// The desktop's actions, a separate interface on the session bus.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlNames.h"
#include "Vantrel/commands/Intents.h"

namespace vantrel {

namespace {

Intents intents(const BusCall& call) {
    return Intents([&controller = call.controller] { return &controller; });
}

Intents::Done done(const BusCall& call) {
    return [reply = call.reply](const Intents::Result& result) {
        reply(result
                  ? ControlAnswer(*result)
                  : std::unexpected(ControlRefusal{ControlNames::nothingHappened, result.error().message}));
    };
}

ControlAnswer scenes(const BusCall& call) {
    auto scenes = nlohmann::json::array();
    for (const auto& scene : intents(call).scenes()) {
        scenes.push_back({{"id", scene.id}, {"name", scene.name}});
    }
    return nlohmann::json{{"scenes", std::move(scenes)}};
}

} // namespace

std::vector<Command> actionCommands() {
    return {
        {.signature = "RestoreNow() message",
         .handler = [](const BusCall& call) { intents(call).restoreNow(done(call)); }},
        {.signature = "ApplyScene(scene) message",
         .handler = [](const BusCall& call) { intents(call).applyScene(call[0], done(call)); }},
        {.signature = "SaveScene(name) message",
         .handler = [](const BusCall& call) { intents(call).saveScene(call[0], done(call)); }},
        {.signature = "StashOrBringBack() message",
         .handler = [](const BusCall& call) { intents(call).stash(done(call)); }},
        {.signature = "UndoLastRestore() message",
         .handler = [](const BusCall& call) { intents(call).undoLastRestore(done(call)); }},
        {.signature = "Scenes() scenes", .handler = scenes},
    };
}

} // namespace vantrel
