// The commands for settings.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/terminal/TextColumns.h"
#include "Vantrel/commands/verbs/VerbPrinting.h"
#include "Vantrel/controller/AppController.h"
#include "Vantrel/controller/SettingKey.h"
#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>

namespace vantrel {

namespace {

using namespace ControlAnswers;
using JsonCoding::required;

struct Shown {
    template <typename Plain>
    nlohmann::json operator()(const Plain& plain) const {
        return plain;
    }

    nlohmann::json operator()(Date date) const { return iso8601Text(date); }

    nlohmann::json operator()(const DefaultsData& data) const { return data.bytes; }
};

nlohmann::json json(const std::optional<DefaultsValue>& value) {
    return value ? std::visit(Shown{}, *value) : nlohmann::json(nullptr);
}

nlohmann::json describe(const SettingKey& key, UserDefaults& defaults) {
    const auto stored = key.stored(defaults);
    return {{"key", key.name},
            {"value", json(stored ? stored : key.fallback)},
            {"default", json(key.fallback)},
            {"isSet", stored.has_value()},
            {"takes", inEnglish([&key] { return key.typeText(); })},
            {"description", key.description},
            {"isNote", key.purpose == SettingKey::Purpose::note}};
}

std::string unknown(const std::string& name) {
    return SettingKeys::unknown(name) + " " + tr("See: vantrelctl settings");
}

ControlAnswer settings(const BusCall& call) {
    auto all = nlohmann::json::array();
    for (const SettingKey& key : SettingKeys::all()) {
        if (call.controller.hasEffect(key)) {
            all.push_back(describe(key, call.controller.defaults()));
        }
    }
    nlohmann::json answer{{"settings", all}};
    if (const auto mistakes = SettingMistakes::texts(call.controller.published().settingMistakes);
        !mistakes.empty()) {
        answer["mistakes"] = mistakes;
    }
    return answer;
}

ControlAnswer set(const BusCall& call) {
    const SettingKey* const key = SettingKeys::named(call[0]);
    if (key == nullptr) {
        return refused(unknown(call[0]));
    }
    if (!call.controller.hasEffect(*key)) {
        return refused(trf("The setting \"{}\" has no effect on this system.", key->name));
    }
    const auto value = key->read(call[1]);
    if (!value) {
        return refused(value.error());
    }
    UserDefaults& defaults = call.controller.defaults();
    const auto stored = Settings(defaults).set(*key, *value);
    return stored ? ControlAnswer(describe(*key, defaults)) : refused(stored.error());
}

ControlAnswer unset(const BusCall& call) {
    const SettingKey* const key = SettingKeys::named(call[0]);
    if (key == nullptr) {
        return refused(unknown(call[0]));
    }
    UserDefaults& defaults = call.controller.defaults();
    const auto removed = Settings(defaults).reset(*key);
    return removed ? ControlAnswer(describe(*key, defaults)) : refused(removed.error());
}

// As in the settings file, but without the quotes around strings.
std::string value(const nlohmann::json& json) {
    return json.is_null() ? "-" : json.is_string() ? json.get<std::string>() : json.dump();
}

std::string list(const nlohmann::json& answer, const VerbCall& call) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& setting : answer.at("settings")) {
        if (call.typed.has("--all") || !required<bool>(setting, "isNote")) {
            rows.push_back({required<bool>(setting, "isSet") ? "*" : " ",
                            required<std::string>(setting, "key"), value(setting.at("value")),
                            tr(required<std::string>(setting, "description").c_str())});
        }
    }
    std::string text = TextColumns::lines(rows, call.environment.drawing().columns) +
                       tr("\n* marks settings that were set; the others have their defaults.\n");
    for (const auto& mistake : answer.value("mistakes", std::vector<std::string>())) {
        text += "! " + mistake + '\n';
    }
    return text;
}

std::string description(const nlohmann::json& setting, const VerbCall& /*call*/) {
    const auto& fallback = setting.at("default");
    const auto name = required<std::string>(setting, "key");
    const SettingKey* const known = SettingKeys::named(name);
    return trf("{} = {}\n{}\nTakes {}. {}\n", name, value(setting.at("value")),
               tr(required<std::string>(setting, "description").c_str()),
               known != nullptr ? known->typeText() : required<std::string>(setting, "takes"),
               fallback.is_null() ? std::string(tr("Absent by default."))
                                  : trf("Default: {}.", value(fallback)));
}

std::string changed(const nlohmann::json& setting, const VerbCall& /*call*/) {
    return fmt::format("{} = {}{}\n", required<std::string>(setting, "key"), value(setting.at("value")),
                       required<bool>(setting, "isSet") ? "" : fmt::format(" ({})", tr("the default")));
}

// Picks the setting with the key that was typed from all settings.
ExitCode get(const VerbCall& call) {
    auto answer = ControlClient::call("Settings");
    if (answer && answer->contains("settings")) {
        const auto& all = answer->at("settings");
        const auto found = std::ranges::find_if(
            all, [&](const auto& setting) { return setting.value("key", "") == call.typed["KEY"]; });
        answer = found != all.end() ? ControlClient::Result<nlohmann::json>(*found)
                                    : std::unexpected(ControlFailure{.message = unknown(call.typed["KEY"])});
    }
    return VerbPrinting::show(answer, description, call);
}

constexpr Word all{"--all", marked("Also list vantrel's own records"), ValueKind::flag};
constexpr Word key{"KEY", marked("The setting's name"), ValueKind::settingKey};

} // namespace

std::vector<Command> settingsCommands() {
    const auto none = [](const Typed& /*all*/) { return std::vector<std::string>(); };
    return {
        {.signature = "Settings() settings",
         .handler = settings,
         .verbs = {{"settings", marked("List, show and change settings"), {all}, none},
                   {"settings list", marked("List every setting with its value"), {all}, none}},
         .text = list},
        {.verbs = {{"settings get", marked("Show a setting's meaning and valid values"), {key}}}, .run = get},
        {.signature = "SetSetting(key, value) setting",
         .handler = set,
         .verbs = {{"settings set",
                    marked("Change a setting; takes effect at once"),
                    {key, {"VALUE", marked("true, false, a number or a string"), ValueKind::settingValue}}}},
         .text = changed},
        {.signature = "UnsetSetting(key) setting",
         .handler = unset,
         .verbs = {{"settings unset", marked("Reset a setting to its default"), {key}}},
         .text = changed},
    };
}

} // namespace vantrel
