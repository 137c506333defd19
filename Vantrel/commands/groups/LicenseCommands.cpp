// The commands for trial and license.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/LicenseMessage.h"
#include "Vantrel/commands/verbs/VerbTexts.h"
#include "Vantrel/controller/AppController.h"

#include <fmt/format.h>

namespace vantrel {

namespace {

using namespace ControlAnswers;

ControlAnswer license(const BusCall& call) {
    return nlohmann::json(LicenseMessage::of(call.controller.license().entitlement()));
}

// Replies with the license as it is after the change.
LicenseGate::Done licenseReply(const BusCall& call) {
    return [&gate = call.controller.license(),
            reply = call.reply](const std::expected<void, std::string>& result) {
        reply(result ? ControlAnswer(LicenseMessage::of(gate.entitlement())) : refused(result.error()));
    };
}

void activate(const BusCall& call) {
    call.controller.license().activate(call[0], licenseReply(call));
}

void deactivate(const BusCall& call) {
    call.controller.license().deactivate(licenseReply(call));
}

std::string licenseText(const LicenseMessage& license, const DeskDrawing::Options& /*drawing*/,
                        const std::function<std::string(Date)>& localDate) {
    std::string text = license.reason + '\n';
    const auto line = [&](std::string_view label, const std::optional<std::string>& value) {
        if (value) {
            text += fmt::format("{:<9} {}\n", label, *value);
        }
    };
    const auto dateLine = [&](std::string_view label, std::string_view before,
                              const std::optional<Date>& date) {
        if (date) {
            text += fmt::format("{:<9} {}{}\n", label, before, localDate(*date));
        }
    };
    line("plan", license.plan);
    line("holder", license.holder);
    line("license", license.id);
    dateLine("until", "", license.expiresAt);
    dateLine("renewed", "until ", license.leasedUntil);
    dateLine("trial", license.entitled ? "until " : "ended ", license.trialEndsAt);
    if (!license.plan && license.state != "notNeeded") {
        text += "Activate a key with: vantrelctl license activate KEY\n";
    }
    return text;
}

} // namespace

std::vector<Command> licenseCommands() {
    return {
        {.signature = "License() license",
         .handler = license,
         .verbs = {{"license", "Show or change the state of trial and license"},
                   {"license show", "Show the state of trial and license"}},
         .text = VerbTexts::of<LicenseMessage>(licenseText)},
        {.signature = "ActivateLicense(key) license",
         .handler = activate,
         .verbs = {{"license activate",
                    "Activate a license on this computer with the key you bought",
                    {{"KEY", "The key, as the vendor sent it"}}}},
         .text = VerbTexts::of<LicenseMessage>(licenseText)},
        {.signature = "DeactivateLicense() license",
         .handler = deactivate,
         .verbs = {{"license deactivate", "Return this computer's license, to use the key on another one"}},
         .text = VerbTexts::of<LicenseMessage>(licenseText)},
    };
}

} // namespace vantrel
