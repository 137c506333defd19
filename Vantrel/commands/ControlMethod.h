// One method that the running program offers on the session bus. docs/dbus.md has the interface.
#pragma once

#include <cstddef>
#include <expected>
#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

// Why a method did nothing.
struct ControlRefusal {
    // One of the errors of ControlNames.h.
    const char* error;
    // A sentence for the user.
    std::string sentence;
};

// An object goes over the bus as JSON; a text goes as it is.
using ControlAnswer = std::expected<nlohmann::json, ControlRefusal>;

// Told once, now or later, on the main thread; harmless when whoever asked has gone.
using ControlReply = std::function<void(const ControlAnswer&)>;

struct ControlMethod {
    std::string name;
    // The names of its arguments, all of them texts.
    std::vector<std::string> arguments;
    // The name of what it answers, a text.
    std::string result;
    // Gets as many arguments as it names.
    std::function<void(const std::vector<std::string>& arguments, const ControlReply& reply)> call;
};

// In bytes. No name, path, key or list that a person means is longer.
inline constexpr std::size_t maxArgumentLength = 16'384;

// Why these arguments cannot be the method's, as a sentence; none when they can. No arguments: they were not
// all texts.
[[nodiscard]] std::optional<std::string> refusalOf(const std::optional<std::vector<std::string>>& arguments,
                                                   const ControlMethod& method);

struct ControlInterface {
    const char* name;
    std::vector<ControlMethod> methods;
};

} // namespace vantrel
