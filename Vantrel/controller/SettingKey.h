// Every settings key: its type, what holds while it is absent, and what it is for.
#pragma once

#include "VantrelCore/ports/UserDefaults.h"

#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace vantrel {

struct SettingKey {
    enum class Type : std::uint8_t { boolean, integer, number, text, date, data };

    enum class Purpose : std::uint8_t {
        // What the user chooses.
        preference,
        // What the program notes for itself.
        note,
    };

    std::string_view name;
    Type type = Type::boolean;
    // None: being absent means something of its own, which `description` tells.
    std::optional<DefaultsValue> fallback;
    std::string_view description;
    Purpose purpose = Purpose::preference;
    // Of a number, both ends included; whatever is outside counts as absent.
    std::optional<std::pair<double, double>> range = std::nullopt;

    // Whether the value has this key's type and lies in its range; a whole number also is a number.
    [[nodiscard]] bool admits(const DefaultsValue& value) const;

    // The value that a person wrote as `text`, or a sentence that says what is wrong with it.
    [[nodiscard]] std::expected<DefaultsValue, std::string> read(const std::string& text) const;

    // The stored value where there is one that the key admits.
    [[nodiscard]] std::optional<DefaultsValue> stored(UserDefaults& defaults) const;

    // "true or false", "a whole number", "a number from 0 to 60", "a text",
    // "a date like 2026-03-02T09:30:00Z".
    [[nodiscard]] std::string typeText() const;
};

namespace SettingKeys {

// In the order in which a person wants to read them.
[[nodiscard]] std::span<const SettingKey> all();

// Null when there is no such key.
[[nodiscard]] const SettingKey* named(std::string_view name);

} // namespace SettingKeys

} // namespace vantrel
