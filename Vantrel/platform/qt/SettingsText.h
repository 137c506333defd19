// The text of a settings file: one "key = value" a line, a value being true, false, a number or a text in
// double quotes (dates and data are texts, too); lines that begin with # are comments, and a comment may
// follow a value. Changing one key leaves every other line as it is, also those that nobody understands.
#pragma once

#include "VantrelCore/ports/UserDefaults.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::SettingsText {

// A line that is neither a comment nor a setting.
struct Misunderstanding {
    // Counted from 1.
    std::size_t line = 0;
    // The line itself.
    std::string text;

    bool operator==(const Misunderstanding&) const = default;
};

struct Content {
    // Where a key stands twice, the last line holds.
    std::map<std::string, DefaultsValue, std::less<>> values;
    std::vector<Misunderstanding> misunderstandings;

    bool operator==(const Content&) const = default;
};

[[nodiscard]] Content parse(std::string_view text);

// Replaces the value in every line of `key`, or appends a line. A comment behind the value stays.
[[nodiscard]] std::string withValue(std::string_view text, std::string_view key, const DefaultsValue& value);

[[nodiscard]] std::string withoutKey(std::string_view text, std::string_view key);

// What a new settings file begins with.
[[nodiscard]] std::string heading();

} // namespace vantrel::SettingsText
