// Port: the user's settings, typed keys kept by the platform. The keys and their defaults are in
// Vantrel/controller/Settings.h.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace vantrel {

using DefaultsValue = std::variant<bool, std::int64_t, double, std::string>;

// Used on the main thread.
class UserDefaults {
public:
    UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;
    virtual ~UserDefaults() = default;

    // Absent when the key was never written or its value is of another type; a whole number also reads as
    // Double.
    [[nodiscard]] virtual std::optional<bool> boolean(std::string_view key) = 0;
    [[nodiscard]] virtual std::optional<std::int64_t> integer(std::string_view key) = 0;
    [[nodiscard]] virtual std::optional<double> number(std::string_view key) = 0;
    [[nodiscard]] virtual std::optional<std::string> text(std::string_view key) = 0;

    // False when the value could not be made durable.
    virtual bool set(std::string_view key, const DefaultsValue& value) = 0;
    virtual bool remove(std::string_view key) = 0;

    // Calls `handler` on the main thread after any change, from inside or outside the process.
    virtual void setChangeHandler(std::function<void()> handler) = 0;
};

} // namespace vantrel
