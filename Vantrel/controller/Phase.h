// The status of the current desk, as shown in the status line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace vantrel {

struct Phase {
    // A layout of this many windows is stored for the current desk.
    struct Saved {
        std::int64_t windows = 0;
        bool operator==(const Saved&) const = default;
    };
    struct Restoring {
        std::int64_t windows = 0;
        bool operator==(const Restoring&) const = default;
    };
    // The last restore has finished.
    struct Restored {
        std::int64_t windows = 0;
        double seconds = 0;
        bool operator==(const Restored&) const = default;
    };
    // Switched off by the user.
    struct Off {
        bool operator==(const Off&) const = default;
    };
    // Nothing is stored for this desk yet.
    struct Empty {
        bool operator==(const Empty&) const = default;
    };
    struct NeedsPermission {
        bool operator==(const NeedsPermission&) const = default;
    };

    using Value = std::variant<Empty, Saved, Restoring, Restored, Off, NeedsPermission>;

    Value value;

    bool operator==(const Phase&) const = default;

    template <typename Case>
    [[nodiscard]] bool is() const {
        return std::holds_alternative<Case>(value);
    }
};

namespace StatusPhase {

// The phase between restores. `storedWindows` is the number of windows in the desk's active layout, none if
// there is no such layout.
[[nodiscard]] Phase resting(bool hasPermission, bool isEnabled, std::optional<std::int64_t> storedWindows);

// One line for people: "12 windows remembered".
[[nodiscard]] std::string text(const Phase& phase);

} // namespace StatusPhase

} // namespace vantrel
