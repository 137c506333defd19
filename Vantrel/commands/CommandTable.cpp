#include "Vantrel/commands/CommandTable.h"

#include <algorithm>
#include <iterator>

namespace vantrel {

std::vector<Command> everyCommand() {
    std::vector<Command> all;
    for (auto* const group :
         {deskCommands, layoutCommands, stashCommands, sceneCommands, triggerCommands, suggestionCommands,
          ruleCommands, settingsCommands, hotKeyCommands, licenseCommands, doctorCommands, shellCommands}) {
        std::ranges::move(group(), std::back_inserter(all));
    }
    return all;
}

// The words of a signature: the method, its arguments and its result.
static std::vector<std::string> wordsOf(const std::string& signature) {
    std::vector<std::string> words;
    for (std::size_t begin = 0; begin < signature.size();) {
        const auto end = std::min(signature.find_first_of("(,) ", begin), signature.size());
        if (end > begin) {
            words.push_back(signature.substr(begin, end - begin));
        }
        begin = end + 1;
    }
    return words;
}

std::vector<ControlMethod> methodsOf(const std::vector<Command>& commands, AppController& controller,
                                     const std::filesystem::path& supportDirectory) {
    std::vector<ControlMethod> methods;
    for (const auto& command : commands) {
        const auto words = wordsOf(command.signature);
        if (!words.empty()) {
            methods.push_back({words.front(),
                               {words.begin() + 1, words.end() - 1},
                               words.back(),
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
