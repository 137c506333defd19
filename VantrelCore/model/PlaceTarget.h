// The states and the virtual desktop that a window shall have, and whether it has them.
#pragma once

#include "VantrelCore/model/Geometry.h"
#include "VantrelCore/model/PlaceStates.h"
#include "VantrelCore/model/WindowRecord.h"

#include <cstdint>
#include <optional>

namespace vantrel {

struct PlaceTarget {
    // Shaded and above are only ever added. A window that shall be maximised in neither direction may stay
    // maximised when its target is the whole usable area of a display.
    PlaceStates states{};
    // None leaves it on its desktop.
    std::optional<std::int64_t> desktop = std::nullopt;
    // Where it shall return to from a maximised or full-screen state; none leaves that to the platform.
    std::optional<Rect> normalFrame = std::nullopt;

    bool operator==(const PlaceTarget&) const = default;

    // What `live` needs, besides its frame, to be as it was saved. None when the frame is all it needs.
    [[nodiscard]] static std::optional<PlaceTarget> of(const WindowRecord& saved, const WindowRecord& live);

    [[nodiscard]] bool isReached(const PlaceStates& actual,
                                 const std::optional<std::int64_t>& actualDesktop) const;
};

} // namespace vantrel
