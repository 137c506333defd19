// The table of settings keys: type, default and description of each.
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
        // A choice of the user.
        preference,
        // The program's own record.
        note,
    };

    std::string_view name;
    Type type = Type::boolean;
    // None if absence has a meaning of its own; `description` says which.
    std::optional<DefaultsValue> fallback;
    std::string_view description;
    Purpose purpose = Purpose::preference;
    // For numbers: the valid range, inclusive. A value outside it counts as absent.
    std::optional<std::pair<double, double>> range = std::nullopt;

    // Whether the value has this key's type and is in range. Whole numbers are also valid for number keys.
    [[nodiscard]] bool admits(const DefaultsValue& value) const;

    // Parses a value that a person typed. The error is a sentence that says what is wrong with it.
    [[nodiscard]] std::expected<DefaultsValue, std::string> read(const std::string& text) const;

    // The stored value, if there is a valid one.
    [[nodiscard]] std::optional<DefaultsValue> stored(UserDefaults& defaults) const;

    // Why a line of the settings file is ignored, as a sentence; none if its value is valid.
    [[nodiscard]] std::optional<std::string> problemWith(const SettingsLine& line) const;

    // "true or false", "a whole number", "a number from 0 to 60", "a string",
    // "a date like 2026-03-02T09:30:00Z".
    [[nodiscard]] std::string typeText() const;
};

namespace SettingKeys {

// In reading order for people.
[[nodiscard]] std::span<const SettingKey> all();

// Null when there is no such key.
[[nodiscard]] const SettingKey* named(std::string_view name);

// The sentence for a key that does not exist: "There is no setting "setleDelay". Did you mean "settleDelay"?"
[[nodiscard]] std::string unknown(std::string_view name);

} // namespace SettingKeys

} // namespace vantrel
