// Port: the user's settings, typed keys kept by the platform. The keys and their defaults are in
// Vantrel/controller/Settings.h.
#pragma once

#include "VantrelCore/model/Date.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vantrel {

// Bytes that only this program interprets, such as a record's JSON.
struct DefaultsData {
    std::string bytes;

    bool operator==(const DefaultsData&) const = default;
};

// Platforms without date or data settings store them as strings: dates in ISO 8601 with whole seconds, data
// bytes unchanged.
using DefaultsValue = std::variant<bool, std::int64_t, double, std::string, Date, DefaultsData>;

// A line of a settings file that people edit, unless it is empty or a comment.
struct SettingsLine {
    // Starts at 1.
    std::size_t number = 0;
    // Empty if the line is not of the form key = value.
    std::string key;
    // The value as it is written, or the entire line without a key.
    std::string written;
    // None if the file format does not know such a value.
    std::optional<DefaultsValue> value;

    bool operator==(const SettingsLine&) const = default;
};

struct SettingsFile {
    std::filesystem::path path;
    // If a key occurs twice, the last line wins.
    std::vector<SettingsLine> lines;
};

// Used on the main thread.
class UserDefaults {
public:
    UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;
    virtual ~UserDefaults() = default;

    // Absent when the key was never written or its value has another type; number() also reads integers.
    [[nodiscard]] virtual std::optional<bool> boolean(std::string_view key) = 0;
    [[nodiscard]] virtual std::optional<std::int64_t> integer(std::string_view key) = 0;
    [[nodiscard]] virtual std::optional<double> number(std::string_view key) = 0;
    [[nodiscard]] virtual std::optional<std::string> text(std::string_view key) = 0;
    [[nodiscard]] virtual std::optional<Date> date(std::string_view key) = 0;
    [[nodiscard]] virtual std::optional<DefaultsData> data(std::string_view key) = 0;

    // False when the value could not be made durable.
    virtual bool set(std::string_view key, const DefaultsValue& value) = 0;
    virtual bool remove(std::string_view key) = 0;

    // The file that people edit, as last read; none on systems that keep settings elsewhere.
    [[nodiscard]] virtual std::optional<SettingsFile> file() { return std::nullopt; }

    // Calls `handler` on the main thread after any change, from inside or outside the process.
    virtual void setChangeHandler(std::function<void()> handler) = 0;
};

} // namespace vantrel
