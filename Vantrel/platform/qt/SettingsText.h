// The format of a settings file: one "key = value" per line. A value is true, false, a number or a string in
// double quotes; dates and data are strings too. Lines that begin with # are comments, and a comment may
// follow a value. Changing a key leaves all other lines as they are, even invalid ones.
#pragma once

#include "VantrelCore/ports/UserDefaults.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::SettingsText {

// A line that is neither a comment nor a setting.
struct InvalidLine {
    // Starts at 1.
    std::size_t line = 0;
    // The trimmed line.
    std::string text;

    bool operator==(const InvalidLine&) const = default;
};

struct Content {
    // If a key occurs twice, the last line wins.
    std::map<std::string, DefaultsValue, std::less<>> values;
    std::vector<InvalidLine> invalidLines;

    bool operator==(const Content&) const = default;
};

[[nodiscard]] Content parse(std::string_view text);

// Replaces the value in every line with `key`, or appends a line. Keeps a comment after the value.
[[nodiscard]] std::string withValue(std::string_view text, std::string_view key, const DefaultsValue& value);

[[nodiscard]] std::string withoutKey(std::string_view text, std::string_view key);

// The first lines of a new settings file.
[[nodiscard]] std::string heading();

} // namespace vantrel::SettingsText
