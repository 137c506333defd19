// The result of a restore for every saved window.
#pragma once

#include "VantrelCore/model/DeskSnapshot.h"
#include "VantrelCore/model/PlaceTarget.h"
#include "VantrelCore/windows/WindowMatcher.h"

#include <cstddef>
#include <cstdint>
#include <optional>
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

    // What happened to the live window.
    struct Move {
        WindowID window{};
        Pairing by = Pairing::sameTitle;
        // Where it was before the restore.
        Rect from;
        Rect target;
        // Where it was when it was last looked at; none when its frame could not be read.
        std::optional<Rect> achieved = std::nullopt;
        // What it shall be besides at its target; none when that is all.
        std::optional<PlaceTarget> place = std::nullopt;

        [[nodiscard]] bool hasMoved() const { return achieved && *achieved != from; }

        bool operator==(const Move&) const = default;
    };

    struct Item {
        std::string appName;
        std::string bundleID;
        std::string title;
        Outcome outcome;
        // The saved window's index in its layout; none for what is in no layout.
        std::optional<std::size_t> saved = std::nullopt;
        // None when no live window was found.
        std::optional<Move> move = std::nullopt;

        bool operator==(const Item&) const = default;
    };

    // One per saved window: those with a live window wave by wave and application by application, then the
    // others.
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
