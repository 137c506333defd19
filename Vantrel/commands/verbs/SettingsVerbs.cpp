#include "Vantrel/commands/verbs/SettingsVerbs.h"

#include "Vantrel/commands/terminal/TextColumns.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace vantrel {

namespace {

using namespace VerbPrinting;
using JsonCoding::required;

// As in the settings file, but without the quotes around strings.
std::string value(const nlohmann::json& json) {
    return json.is_null() ? "-" : json.is_string() ? json.get<std::string>() : json.dump();
}

std::string list(const nlohmann::json& answer, bool showsNotes, int columns) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& setting : answer.at("settings")) {
        if (showsNotes || !required<bool>(setting, "isNote")) {
            rows.push_back({required<bool>(setting, "isSet") ? "*" : " ",
                            required<std::string>(setting, "key"), value(setting.at("value")),
                            required<std::string>(setting, "description")});
        }
    }
    return TextColumns::lines(rows, columns) +
           "\n* marks settings that were set; the others have their defaults.\n";
}

std::string description(const nlohmann::json& setting) {
    const auto& fallback = setting.at("default");
    return fmt::format("{} = {}\n{}\nTakes {}. {}\n", required<std::string>(setting, "key"),
                       value(setting.at("value")), required<std::string>(setting, "description"),
                       required<std::string>(setting, "takes"),
                       fallback.is_null() ? "Absent by default." : "Default: " + value(fallback) + ".");
}

// Picks the setting with this key from the list of all settings.
ControlClient::Result<nlohmann::json> settingNamed(const std::string& key) {
    auto all = ControlClient::call("Settings");
    if (!all || !all->contains("settings")) {
        return all;
    }
    for (const auto& setting : all->at("settings")) {
        if (setting.value("key", "") == key) {
            return setting;
        }
    }
    return std::unexpected(
        ControlFailure{ControlFailure::Kind::failed,
                       fmt::format("There is no setting \"{}\". See: vantrelctl settings", key)});
}

ExitCode changed(const ControlClient::Result<nlohmann::json>& answer, VerbOutput output) {
    return show<nlohmann::json>(answer, output, [](const nlohmann::json& setting) {
        return fmt::format("{} = {}{}\n", required<std::string>(setting, "key"), value(setting.at("value")),
                           required<bool>(setting, "isSet") ? "" : " (the default)");
    });
}

struct Words {
    std::string key;
    std::string value;
    bool showsNotes = false;
};

} // namespace

void addSettingsVerbs(VerbTable& table, CLI::App& app) {
    const auto& environment = table.environment();
    const auto words = std::make_shared<Words>();
    const auto listAll = [&environment, words](VerbOutput output) {
        return show<nlohmann::json>(ControlClient::call("Settings"), output,
                                    [&](const nlohmann::json& answer) {
                                        return list(answer, words->showsNotes, environment.drawing().columns);
                                    });
    };
    auto& settings = table.add(app, "settings", "List, show and change settings", listAll);
    settings.add_flag("--all", words->showsNotes, "Also list vantrel's own records");

    table.add(settings, "list", "List every setting with its value", listAll)
        .add_flag("--all", words->showsNotes, "Also list vantrel's own records");

    const auto key = [&](CLI::App& verb) {
        table.takes(ValueKind::settingKey, verb.add_option("KEY", words->key, "The setting's name"))
            ->required();
    };
    auto& get =
        table.add(settings, "get", "Show a setting's meaning and valid values", [words](VerbOutput output) {
            return show<nlohmann::json>(settingNamed(words->key), output, description);
        });
    key(get);

    auto& set =
        table.add(settings, "set", "Change a setting; takes effect at once", [words](VerbOutput output) {
            return changed(ControlClient::call("SetSetting", {words->key, words->value}), output);
        });
    key(set);
    table
        .takes(ValueKind::settingValue,
               set.add_option("VALUE", words->value, "true, false, a number or a string"))
        ->required();

    auto& unset = table.add(settings, "unset", "Reset a setting to its default", [words](VerbOutput output) {
        return changed(ControlClient::call("UnsetSetting", {words->key}), output);
    });
    key(unset);
}

} // namespace vantrel
