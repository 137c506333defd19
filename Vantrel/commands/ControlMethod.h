// A method that the running program offers on the session bus. The interface is documented in docs/dbus.md.
#pragma once

#include "VantrelCore/diagnostics/ErrorBoundary.h"

#include <cstddef>
#include <expected>
#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

// The reason why a method did nothing.
struct ControlRefusal {
    // One of the errors of ControlNames.h.
    const char* error;
    // A sentence for the user.
    std::string sentence;
};

// Objects are sent as JSON, strings unchanged.
using ControlAnswer = std::expected<nlohmann::json, ControlRefusal>;

// Call once, now or later, on the main thread. Harmless after the caller has disconnected.
using ControlReply = std::function<void(const ControlAnswer&)>;

struct ControlMethod {
    std::string name;
    // The names of its arguments, all strings.
    std::vector<std::string> arguments;
    // The name of its result, a string.
    std::string result;
    // Receives as many arguments as `arguments` names.
    std::function<void(const std::vector<std::string>& arguments, const ControlReply& reply)> call;
};

// In bytes. No sensible name, path, key or list is longer.
inline constexpr std::size_t maxArgumentLength = 16'384;

// The reason why these arguments are invalid for the method, as a sentence; none when they are valid. Pass
// none for `arguments` when they were not all strings.
[[nodiscard]] std::optional<std::string> refusalOf(const std::optional<std::vector<std::string>>& arguments,
                                                   const ControlMethod& method);

namespace ControlCall {

// Calls the method and guarantees exactly one reply. Exceptions are passed to `log`. If the method throws, or
// drops its reply callback without using it, the caller gets ControlNames::failed. Further replies are
// ignored.
void run(const ControlMethod& method, const std::vector<std::string>& arguments, ControlReply reply,
         const ErrorBoundary::Log& log);

} // namespace ControlCall

struct ControlInterface {
    const char* name;
    std::vector<ControlMethod> methods;
};

} // namespace vantrel
