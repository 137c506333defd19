#include "Vantrel/commands/CommandTable.h"

#include <algorithm>
#include <iterator>

namespace vantrel {

std::vector<Command> everyCommand() {
    std::vector<Command> all;
    for (auto* const group : {layoutCommands, stashCommands, triggerCommands, suggestionCommands,
                              ruleCommands, settingsCommands, hotKeyCommands, licenseCommands}) {
        std::ranges::move(group(), std::back_inserter(all));
    }
    return all;
}

std::vector<ControlMethod> methodsOf(const std::vector<Command>& commands, AppController& controller,
                                     const std::filesystem::path& supportDirectory) {
    std::vector<ControlMethod> methods;
    for (const auto& command : commands) {
        if (command.handler) {
            methods.push_back({command.method, command.arguments, command.result,
                               [&controller, supportDirectory,
                                handler = command.handler](const auto& arguments, const auto& reply) {
                                   handler({.controller = controller,
                                            .supportDirectory = supportDirectory,
                                            .arguments = arguments,
                                            .reply = reply});
                               }});
        }
    }
    return methods;
}

} // namespace vantrel
