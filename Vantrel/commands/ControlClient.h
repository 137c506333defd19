// Asks the running program over the session bus; what vantrelctl and scripts' bindings stand on.
#pragma once

#include <cstdint>
#include <expected>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace vantrel {

struct ControlFailure {
    enum class Kind : std::uint8_t {
        // No program has the name, or there is no bus.
        notRunning,
        // The program answered that it did not do it, or what it answered makes no sense.
        failed,
    };

    Kind kind = Kind::failed;
    // A sentence for the user.
    std::string message;
};

namespace ControlClient {

template <typename T>
using Result = std::expected<T, ControlFailure>;

// Calls a method of docs/dbus.md with as many arguments as it takes. Waits for the answer as long as the
// program shows that it is alive; fails with a sentence when it does not for some seconds. The answer as it
// came. Needs a QCoreApplication.
[[nodiscard]] Result<nlohmann::json> call(const char* method, const std::vector<std::string>& arguments = {});

} // namespace ControlClient

} // namespace vantrel
