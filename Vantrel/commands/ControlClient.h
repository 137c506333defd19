// Asks the running program over the session bus; what vantrelctl and scripts' bindings stand on.
#pragma once

#include "Vantrel/commands/DesksMessage.h"
#include "Vantrel/commands/StatusMessage.h"
#include "VantrelCore/windows/RestoreReport.h"

#include <cstdint>
#include <expected>
#include <nlohmann/json.hpp>
#include <string>

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

// Each call blocks until the program has answered.
class ControlClient {
public:
    template <typename T>
    using Result = std::expected<T, ControlFailure>;

    // The program's answers as they came.
    [[nodiscard]] Result<nlohmann::json> status() { return call("Status"); }

    [[nodiscard]] Result<nlohmann::json> desks() { return call("Desks"); }

    // Learns the desk as it stands now; the answer holds the number of windows.
    [[nodiscard]] Result<nlohmann::json> save() { return call("Save"); }

    // Puts the windows of this desk back and waits for the report.
    [[nodiscard]] Result<nlohmann::json> restore() { return call("Restore"); }

    // What the restores of the last days did.
    [[nodiscard]] Result<nlohmann::json> history() { return call("History"); }

    // Pins or unpins the active layout of this desk.
    [[nodiscard]] Result<nlohmann::json> pin() { return call("Pin"); }

    [[nodiscard]] Result<nlohmann::json> unpin() { return call("Unpin"); }

private:
    static Result<nlohmann::json> call(const char* method);
};

} // namespace vantrel
