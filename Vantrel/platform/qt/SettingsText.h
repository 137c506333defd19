// The format of a settings file: one "key = value" per line. A value is true, false, a number or a string in
// double quotes; dates and data are strings too. Lines that begin with # are comments, and a comment may
// follow a value. Changing a key leaves all other lines as they are, even invalid ones.
#pragma once

#include "VantrelCore/ports/UserDefaults.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::SettingsText {

struct Content {
    // If a key occurs twice, the last line wins.
    std::map<std::string, DefaultsValue, std::less<>> values;
    std::vector<SettingsLine> lines;

    bool operator==(const Content&) const = default;

    // The lines without a value that can be used.
    [[nodiscard]] std::vector<SettingsLine> invalidLines() const;
};

[[nodiscard]] Content parse(std::string_view text);

// Replaces the value in every line with `key`, or appends a line. Keeps a comment after the value.
[[nodiscard]] std::string withValue(std::string_view text, std::string_view key, const DefaultsValue& value);

[[nodiscard]] std::string withoutKey(std::string_view text, std::string_view key);

// The first lines of a new settings file.
[[nodiscard]] std::string heading();

} // namespace vantrel::SettingsText
