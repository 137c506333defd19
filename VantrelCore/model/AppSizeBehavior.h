// How an application responds to resize requests, learned from samples: it accepts any size, always keeps one
// size, or refuses to go below a minimum.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <variant>

namespace vantrel {

struct AppSizeBehavior {
    // Two sizes are the same when width and height each differ by at most this many points.
    static constexpr double tolerance = 4.0;

    struct Sample {
        Size requested;
        Size achieved;

        bool operator==(const Sample&) const = default;
    };

    struct Flexible {
        bool operator==(const Flexible&) const = default;
    };

    // Keeps this size whatever is requested.
    struct FixedSize {
        Size size;
        bool operator==(const FixedSize&) const = default;
    };

    // Accepts no size below this one.
    struct MinClamped {
        Size size;
        bool operator==(const MinClamped&) const = default;
    };

    using Classification = std::variant<FixedSize, MinClamped, Flexible>;

    std::string bundleID;
    std::int64_t sampleCount = 0;
    // Samples that achieved the requested size, and samples that did not.
    std::int64_t honoredCount = 0;
    std::int64_t constrainedCount = 0;
    // Whether any achieved size differed from the first.
    bool achievedVaries = false;
    std::optional<Size> firstAchieved;
    // The smallest width and the smallest height achieved in constrained samples.
    std::optional<Size> floor;
    std::optional<Size> lastRequested;
    std::optional<Size> lastAchieved;

    bool operator==(const AppSizeBehavior&) const = default;

    [[nodiscard]] AppSizeBehavior ingesting(const Sample& sample) const;

    // Flexible until the samples prove otherwise.
    [[nodiscard]] Classification classification() const;
};

void to_json(nlohmann::json& json, const AppSizeBehavior& behavior);
void from_json(const nlohmann::json& json, AppSizeBehavior& behavior);

// {"kind": "flexible"}, or "fixedSize" or "minClamped" with "width" and "height"; any other kind fails to
// decode.
void to_json(nlohmann::json& json, const AppSizeBehavior::Classification& classification);
void from_json(const nlohmann::json& json, AppSizeBehavior::Classification& classification);

} // namespace vantrel
