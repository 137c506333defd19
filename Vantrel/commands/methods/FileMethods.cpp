#include "Vantrel/commands/methods/FileMethods.h"

#include "Vantrel/commands/ControlNames.h"

#include <nlohmann/json.hpp>

namespace vantrel {

std::vector<ControlMethod> fileMethods(AppController& controller) {
    return {{"PutBackFile",
             {"copy"},
             "file",
             [&controller](const std::vector<std::string>& arguments, const ControlReply& reply) {
                 const auto file = controller.files().putBack(arguments[0]);
                 reply(file ? ControlAnswer({{"copy", arguments[0]}, {"file", file->string()}})
                            : std::unexpected(ControlRefusal{ControlNames::refused, file.error()}));
             }}};
}

} // namespace vantrel
