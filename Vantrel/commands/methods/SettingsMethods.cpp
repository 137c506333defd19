#include "Vantrel/commands/methods/SettingsMethods.h"

#include "Vantrel/commands/ControlNames.h"
#include "Vantrel/controller/SettingKey.h"

#include <fmt/format.h>

namespace vantrel {

namespace {

using Arguments = std::vector<std::string>;

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
            {"takes", key.typeText()},
            {"description", key.description},
            {"isNote", key.purpose == SettingKey::Purpose::note}};
}

ControlAnswer refusal(std::string sentence) {
    return std::unexpected(ControlRefusal{ControlNames::refused, std::move(sentence)});
}

ControlAnswer unknown(const std::string& name) {
    return refusal(fmt::format("There is no setting \"{}\". See: vantrelctl settings", name));
}

ControlAnswer settings(UserDefaults& defaults) {
    auto all = nlohmann::json::array();
    for (const SettingKey& key : SettingKeys::all()) {
        all.push_back(describe(key, defaults));
    }
    return nlohmann::json{{"settings", all}};
}

ControlAnswer set(UserDefaults& defaults, const std::string& name, const std::string& written) {
    const SettingKey* const key = SettingKeys::named(name);
    if (key == nullptr) {
        return unknown(name);
    }
    const auto value = key->read(written);
    if (!value) {
        return refusal(value.error());
    }
    if (!defaults.set(name, *value)) {
        return refusal("The settings could not be written to disk. Nothing was changed.");
    }
    return describe(*key, defaults);
}

ControlAnswer unset(UserDefaults& defaults, const std::string& name) {
    const SettingKey* const key = SettingKeys::named(name);
    if (key == nullptr) {
        return unknown(name);
    }
    if (!defaults.remove(name)) {
        return refusal("The settings could not be written to disk. Nothing was changed.");
    }
    return describe(*key, defaults);
}

} // namespace

std::vector<ControlMethod> settingsMethods(UserDefaults& defaults) {
    return {
        {"Settings",
         {},
         "settings",
         [&defaults](const Arguments& /*none*/, const ControlReply& reply) { reply(settings(defaults)); }},
        {"SetSetting",
         {"key", "value"},
         "setting",
         [&defaults](const Arguments& arguments, const ControlReply& reply) {
             reply(set(defaults, arguments[0], arguments[1]));
         }},
        {"UnsetSetting",
         {"key"},
         "setting",
         [&defaults](const Arguments& arguments, const ControlReply& reply) {
             reply(unset(defaults, arguments[0]));
         }}};
}

} // namespace vantrel
