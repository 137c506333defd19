// The result of a restore for every saved window.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vantrel {

struct RestoreReport {
    enum class Kind : std::uint8_t { failed, skipped, restored, retried };

    struct Outcome {
        Kind kind = Kind::restored;
        // Why it failed or was skipped; empty otherwise.
        std::string reason;
        // Additional information; usually empty.
        std::string note = {};

        bool operator==(const Outcome&) const = default;
    };

    struct Item {
        std::string appName;
        std::string bundleID;
        std::string title;
        Outcome outcome;

        bool operator==(const Item&) const = default;
    };

    // One per saved window; items of different applications are in the order they finished.
    std::vector<Item> items;
    // Seconds on the monotonic clock.
    double elapsed = 0;

    bool operator==(const RestoreReport&) const = default;

    // Restored at once or after a retry.
    [[nodiscard]] std::size_t restoredCount() const;
    [[nodiscard]] std::size_t failedCount() const;
    [[nodiscard]] std::size_t skippedCount() const;

    [[nodiscard]] std::size_t expectedCount() const { return items.size(); }
};

} // namespace vantrel
