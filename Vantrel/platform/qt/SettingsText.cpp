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
    std::string_view key;
    DefaultsValue value;
    // Starts with #; empty if there is none.
    std::string_view comment;
};

enum class LineKind : std::uint8_t { silent, setting, unknown };

struct ReadLine {
    LineKind kind = LineKind::silent;
    // For an unknown line, at most the key is set.
    Line setting;
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

ReadLine readLine(std::string_view line) {
    const auto text = trimmed(line);
    if (text.empty() || text.front() == '#') {
        return {};
    }
    ReadLine read{.kind = LineKind::unknown, .setting = {}};
    const auto equals = text.find('=');
    if (equals == std::string_view::npos) {
        return read;
    }
    read.setting.key = trimmed(text.substr(0, equals));
    const auto rest = trimmed(text.substr(equals + 1));
    if (read.setting.key.empty()) {
        return read;
    }
    const auto end = valueEnd(rest);
    const auto comment = trimmed(rest.substr(end));
    auto value = scalar(trimmed(rest.substr(0, end)));
    if (value && (comment.empty() || comment.front() == '#')) {
        read.kind = LineKind::setting;
        read.setting.value = std::move(*value);
        read.setting.comment = comment;
    }
    return read;
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
        auto read = readLine(line);
        if (read.kind == LineKind::setting) {
            content.values.insert_or_assign(std::string(read.setting.key), std::move(read.setting.value));
        } else if (read.kind == LineKind::unknown) {
            content.invalidLines.push_back({number, std::string(trimmed(line))});
        }
    }
    return content;
}

std::string withValue(std::string_view text, std::string_view key, const DefaultsValue& value) {
    std::string result;
    bool replaced = false;
    for (const auto line : lines(text)) {
        const auto read = readLine(line);
        if (read.kind != LineKind::silent && read.setting.key == key) {
            result += settingLine(key, value, read.setting.comment);
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
        if (read.kind == LineKind::silent || read.setting.key != key) {
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
