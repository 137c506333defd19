#include "Vantrel/commands/methods/LicenseMethods.h"

#include "Vantrel/commands/ControlNames.h"
#include "Vantrel/commands/LicenseMessage.h"

namespace vantrel {

namespace {

using Arguments = std::vector<std::string>;

ControlAnswer present(AppController& controller) {
    return nlohmann::json(LicenseMessage::of(controller.license().entitlement()));
}

// Replies with the license as it is after the change.
LicenseGate::Done answering(AppController& controller, const ControlReply& reply) {
    return [&controller, reply](const std::expected<void, std::string>& result) {
        reply(result ? present(controller)
                     : std::unexpected(ControlRefusal{ControlNames::refused, result.error()}));
    };
}

} // namespace

std::vector<ControlMethod> licenseMethods(AppController& controller) {
    return {
        {"License",
         {},
         "license",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) { reply(present(controller)); }},
        {"ActivateLicense",
         {"key"},
         "license",
         [&controller](const Arguments& arguments, const ControlReply& reply) {
             controller.license().activate(arguments[0], answering(controller, reply));
         }},
        {"DeactivateLicense",
         {},
         "license",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) {
             controller.license().deactivate(answering(controller, reply));
         }}};
}

} // namespace vantrel
