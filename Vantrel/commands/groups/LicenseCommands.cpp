// The commands for trial and license.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/LicenseMessage.h"
#include "Vantrel/commands/terminal/TextColumns.h"
#include "Vantrel/commands/verbs/VerbTexts.h"
#include "Vantrel/controller/AppController.h"
#include "VantrelCore/text/Translation.h"

#include <array>
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
    constexpr std::array labels{marked("plan"),  marked("holder"),  marked("license"),
                                marked("until"), marked("renewed"), marked("trial")};
    const int columns = TextColumns::widthOf(labels, 9);
    std::string text = license.reason + '\n';
    const auto line = [&](const char* label, const std::optional<std::string>& value) {
        if (value) {
            text += fmt::format("{:<{}} {}\n", tr(label), columns, *value);
        }
    };
    const auto shown = [&](const std::optional<Date>& date) { return date ? localDate(*date) : ""; };
    const auto ifAny = [](const std::optional<Date>& date, std::string sentence) {
        return date ? std::optional(std::move(sentence)) : std::nullopt;
    };
    line("plan", license.plan);
    line("holder", license.holder);
    line("license", license.id);
    line("until", ifAny(license.expiresAt, shown(license.expiresAt)));
    line("renewed", ifAny(license.leasedUntil, trf("until {}", shown(license.leasedUntil))));
    line("trial", ifAny(license.trialEndsAt, license.entitled ? trf("until {}", shown(license.trialEndsAt))
                                                              : trf("ended {}", shown(license.trialEndsAt))));
    if (!license.plan && license.state != "notNeeded") {
        text += tr("Activate a key with: vantrelctl license activate KEY\n");
    }
    return text;
}

} // namespace

std::vector<Command> licenseCommands() {
    return {
        {.signature = "License() license",
         .handler = license,
         .verbs = {{"license", marked("Show or change the state of trial and license")},
                   {"license show", marked("Show the state of trial and license")}},
         .text = VerbTexts::of<LicenseMessage>(licenseText)},
        {.signature = "ActivateLicense(key) license",
         .handler = activate,
         .verbs = {{"license activate",
                    marked("Activate a license on this computer with the key you bought"),
                    {{"KEY", marked("The key, as the vendor sent it")}}}},
         .text = VerbTexts::of<LicenseMessage>(licenseText)},
        {.signature = "DeactivateLicense() license",
         .handler = deactivate,
         .verbs = {{"license deactivate",
                    marked("Return this computer's license, to use the key on another one")}},
         .text = VerbTexts::of<LicenseMessage>(licenseText)},
    };
}

} // namespace vantrel
