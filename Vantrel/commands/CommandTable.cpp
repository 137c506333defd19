#include "Vantrel/commands/CommandTable.h"

namespace vantrel {

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
