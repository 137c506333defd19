// What a restore did, counted for people: what stood right already is not called restored.
#pragma once

#include "VantrelCore/windows/RestoreReport.h"

#include <cstdint>

namespace vantrel {

struct RestoreTally {
    // Windows that this restore moved to their places.
    std::int64_t moved = 0;
    // Windows that were in their places already.
    std::int64_t alreadyRight = 0;
    std::int64_t failed = 0;
    // Windows that no longer exist.
    std::int64_t closed = 0;
    // Applications none of whose windows exist.
    std::int64_t appsNotOpen = 0;

    bool operator==(const RestoreTally&) const = default;

    [[nodiscard]] std::int64_t inPlace() const { return moved + alreadyRight; }
    // Without windows that the window manager tiles.
    [[nodiscard]] std::int64_t windows() const { return inPlace() + failed + closed; }

    [[nodiscard]] static RestoreTally of(const RestoreReport& report);
};

} // namespace vantrel
