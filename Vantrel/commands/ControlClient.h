// Calls the running program over the session bus; used by vantrelctl.
#pragma once

#include <cstdint>
#include <expected>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace vantrel {

struct ControlFailure {
    enum class Kind : std::uint8_t {
        // No program owns the name, or there is no bus.
        notRunning,
        // The program refused or failed, or its reply makes no sense.
        failed,
    };

    Kind kind = Kind::failed;
    // A sentence for the user.
    std::string message;
};

namespace ControlClient {

template <typename T>
using Result = std::expected<T, ControlFailure>;

enum class Patience : std::uint8_t {
    // Waits as long as the program shows that it is alive; fails when it does not for some seconds.
    whileAlive,
    // Fails after a second.
    brief,
};

// Calls a method of docs/dbus.md with the arguments it takes and returns the reply unchanged. Needs a
// QCoreApplication.
[[nodiscard]] Result<nlohmann::json> call(const char* method, const std::vector<std::string>& arguments = {},
                                          Patience patience = Patience::whileAlive);

} // namespace ControlClient

} // namespace vantrel
