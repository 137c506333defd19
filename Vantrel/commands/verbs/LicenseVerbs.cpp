#include "Vantrel/commands/verbs/LicenseVerbs.h"

#include "Vantrel/commands/LicenseMessage.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace vantrel {

namespace {

using namespace VerbPrinting;

std::string text(const LicenseMessage& license, const VerbEnvironment& environment) {
    std::string text = license.reason + '\n';
    const auto line = [&](std::string_view label, const std::optional<std::string>& value) {
        if (value) {
            text += fmt::format("{:<9} {}\n", label, *value);
        }
    };
    line("plan", license.plan);
    line("holder", license.holder);
    line("license", license.id);
    if (license.expiresAt) {
        line("until", environment.localDate(*license.expiresAt));
    }
    if (license.leasedUntil) {
        line("renewed", "until " + environment.localDate(*license.leasedUntil));
    }
    if (license.trialEndsAt) {
        line("trial", (license.entitled ? "until " : "ended ") + environment.localDate(*license.trialEndsAt));
    }
    if (!license.plan && license.state != "notNeeded") {
        text += "Activate a key with: vantrelctl license activate KEY\n";
    }
    return text;
}

} // namespace

void addLicenseVerbs(VerbTable& table, CLI::App& app) {
    const auto& environment = table.environment();
    const auto ask = [&environment](const char* method, const std::vector<std::string>& arguments,
                                    VerbOutput output) {
        return show<LicenseMessage>(
            ControlClient::call(method, arguments), output,
            [&](const LicenseMessage& license) { return text(license, environment); });
    };
    const auto showIt = [ask](VerbOutput output) { return ask("License", {}, output); };
    auto& license = table.add(app, "license", "Show or change the state of trial and license", showIt);
    table.add(license, "show", "Show the state of trial and license", showIt);

    const auto key = std::make_shared<std::string>();
    table
        .add(license, "activate", "Activate a license on this computer with the key you bought",
             [ask, key](VerbOutput output) { return ask("ActivateLicense", {*key}, output); })
        .add_option("KEY", *key, "The key, as the vendor sent it")
        ->required();
    table.add(license, "deactivate", "Return this computer's license, to use the key on another one",
              [ask](VerbOutput output) { return ask("DeactivateLicense", {}, output); });
}

} // namespace vantrel
