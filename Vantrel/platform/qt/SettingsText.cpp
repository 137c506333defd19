#include "Vantrel/platform/qt/SettingsText.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>
#include <optional>

namespace vantrel::SettingsText {

namespace {

constexpr std::string_view blanks = " \t\r";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Values are written as in JSON, whose quoting is well known.
std::optional<DefaultsValue> scalar(std::string_view text) {
    const auto json = nlohmann::json::parse(text, nullptr, false);
    if (json.is_boolean()) {
        return json.get<bool>();
    }
    if (json.is_string()) {
        return json.get<std::string>();
    }
    if (json.is_number_unsigned() &&
        json.get<std::uint64_t>() > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
        return json.get<double>();
    }
    if (json.is_number_integer()) {
        return json.get<std::int64_t>();
    }
    if (json.is_number_float()) {
        return json.get<double>();
    }
    return std::nullopt;
}

struct Line {
    // Empty if the line is not of the form key = value.
    std::string_view key;
    std::string_view written;
    std::optional<DefaultsValue> value;
    // Starts with #; empty if there is none, or no value before it.
    std::string_view comment;
};

// The end of the value at the start of `text`: after its closing quote, or where a comment begins.
std::size_t valueEnd(std::string_view text) {
    if (!text.starts_with('"')) {
        return std::min(text.find('#'), text.size());
    }
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (text[i] == '"') {
            return i + 1;
        }
    }
    return text.size();
}

// None for an empty line or a comment.
std::optional<Line> readLine(std::string_view line) {
    const auto text = trimmed(line);
    if (text.empty() || text.front() == '#') {
        return std::nullopt;
    }
    const auto equals = text.find('=');
    const auto key = trimmed(text.substr(0, equals));
    if (equals == std::string_view::npos || key.empty()) {
        return Line{.key = {}, .written = text, .value = {}, .comment = {}};
    }
    const auto rest = trimmed(text.substr(equals + 1));
    const auto end = valueEnd(rest);
    const auto comment = trimmed(rest.substr(end));
    if (comment.empty() || comment.front() == '#') {
        const auto written = trimmed(rest.substr(0, end));
        if (auto value = scalar(written)) {
            return Line{key, written, std::move(value), comment};
        }
        return Line{.key = key, .written = written, .value = {}, .comment = {}};
    }
    return Line{.key = key, .written = rest, .value = {}, .comment = {}};
}

std::vector<std::string_view> lines(std::string_view text) {
    std::vector<std::string_view> found;
    while (!text.empty()) {
        const auto end = text.find('\n');
        found.push_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return found;
}

struct Written {
    template <typename Plain>
    std::string operator()(const Plain& plain) const {
        return nlohmann::json(plain).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    }

    std::string operator()(Date date) const { return operator()(iso8601Text(date)); }

    std::string operator()(const DefaultsData& data) const { return operator()(data.bytes); }
};

std::string written(const DefaultsValue& value) {
    return std::visit(Written{}, value);
}

std::string settingLine(std::string_view key, const DefaultsValue& value, std::string_view comment) {
    std::string line = std::string(key) + " = " + written(value);
    if (!comment.empty()) {
        line += "  " + std::string(comment);
    }
    return line + '\n';
}

} // namespace

Content parse(std::string_view text) {
    Content content;
    std::size_t number = 0;
    for (const auto line : lines(text)) {
        ++number;
        if (auto read = readLine(line)) {
            if (read->value) {
                content.values.insert_or_assign(std::string(read->key), *read->value);
            }
            content.lines.push_back(
                {number, std::string(read->key), std::string(read->written), std::move(read->value)});
        }
    }
    return content;
}

std::vector<SettingsLine> Content::invalidLines() const {
    auto invalid = lines;
    std::erase_if(invalid, [](const SettingsLine& line) { return line.value.has_value(); });
    return invalid;
}

std::string withValue(std::string_view text, std::string_view key, const DefaultsValue& value) {
    std::string result;
    bool replaced = false;
    for (const auto line : lines(text)) {
        const auto read = readLine(line);
        if (read && read->key == key) {
            result += settingLine(key, value, read->comment);
            replaced = true;
        } else {
            result.append(line) += '\n';
        }
    }
    if (!replaced) {
        result += settingLine(key, value, {});
    }
    return result;
}

std::string withoutKey(std::string_view text, std::string_view key) {
    std::string result;
    for (const auto line : lines(text)) {
        const auto read = readLine(line);
        if (!read || read->key != key) {
            result.append(line) += '\n';
        }
    }
    return result;
}

std::string heading() {
    return "# Vantrel's settings, one \"key = value\" per line: true, false, a number or a string in "
           "\"quotes\".\n"
           "# A running Vantrel picks up changes to this file. docs/settings.md lists the keys.\n";
}

} // namespace vantrel::SettingsText
