#include "VantrelCore/model/AppSizeBehavior.h"

#include "VantrelCore/model/Counting.h"
#include "VantrelCore/model/JsonCoding.h"

#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

bool sameSize(Size a, Size b) {
    return std::abs(a.width - b.width) <= AppSizeBehavior::tolerance &&
           std::abs(a.height - b.height) <= AppSizeBehavior::tolerance;
}

} // namespace

AppSizeBehavior AppSizeBehavior::ingesting(const Sample& sample) const {
    const Size achieved = sample.achieved;
    AppSizeBehavior next = *this;
    next.sampleCount = saturatingSum(sampleCount, 1);
    if (sameSize(achieved, sample.requested)) {
        next.honoredCount = saturatingSum(honoredCount, 1);
    } else {
        next.constrainedCount = saturatingSum(constrainedCount, 1);
        const Size lowest = floor.value_or(achieved);
        next.floor = {std::min(lowest.width, achieved.width), std::min(lowest.height, achieved.height)};
    }
    if (!firstAchieved) {
        next.firstAchieved = achieved;
    } else if (!sameSize(achieved, *firstAchieved)) {
        next.achievedVaries = true;
    }
    next.lastRequested = sample.requested;
    next.lastAchieved = achieved;
    return next;
}

AppSizeBehavior::Classification AppSizeBehavior::classification() const {
    if (constrainedCount == 0 || sampleCount == 0) {
        return Flexible{};
    }
    if (honoredCount == 0 && !achievedVaries && sampleCount >= 2 && firstAchieved) {
        return FixedSize{*firstAchieved};
    }
    if (floor && (honoredCount > 0 || achievedVaries)) {
        return MinClamped{*floor};
    }
    return Flexible{};
}

void to_json(nlohmann::json& json, const AppSizeBehavior& behavior) {
    json = {{"bundleID", behavior.bundleID},
            {"sampleCount", behavior.sampleCount},
            {"honoredCount", behavior.honoredCount},
            {"constrainedCount", behavior.constrainedCount},
            {"achievedVaries", behavior.achievedVaries}};
    JsonCoding::put(json, "firstAchieved", behavior.firstAchieved);
    JsonCoding::put(json, "floor", behavior.floor);
    JsonCoding::put(json, "lastRequested", behavior.lastRequested);
    JsonCoding::put(json, "lastAchieved", behavior.lastAchieved);
}

void from_json(const nlohmann::json& json, AppSizeBehavior& behavior) {
    behavior = {.bundleID = JsonCoding::required<std::string>(json, "bundleID"),
                .sampleCount = JsonCoding::required<std::int64_t>(json, "sampleCount"),
                .honoredCount = JsonCoding::required<std::int64_t>(json, "honoredCount"),
                .constrainedCount = JsonCoding::required<std::int64_t>(json, "constrainedCount"),
                .achievedVaries = JsonCoding::required<bool>(json, "achievedVaries"),
                .firstAchieved = JsonCoding::optional<Size>(json, "firstAchieved"),
                .floor = JsonCoding::optional<Size>(json, "floor"),
                .lastRequested = JsonCoding::optional<Size>(json, "lastRequested"),
                .lastAchieved = JsonCoding::optional<Size>(json, "lastAchieved")};
}

void to_json(nlohmann::json& json, const AppSizeBehavior::Classification& classification) {
    const auto sized = [&](const char* kind, Size size) {
        json = {{"kind", kind}, {"width", size.width}, {"height", size.height}};
    };
    if (const auto* fixed = std::get_if<AppSizeBehavior::FixedSize>(&classification)) {
        sized("fixedSize", fixed->size);
    } else if (const auto* clamped = std::get_if<AppSizeBehavior::MinClamped>(&classification)) {
        sized("minClamped", clamped->size);
    } else {
        json = {{"kind", "flexible"}};
    }
}

void from_json(const nlohmann::json& json, AppSizeBehavior::Classification& classification) {
    const auto kind = JsonCoding::required<std::string>(json, "kind");
    const auto size = [&] {
        return Size{JsonCoding::required<double>(json, "width"),
                    JsonCoding::required<double>(json, "height")};
    };
    if (kind == "fixedSize") {
        classification = AppSizeBehavior::FixedSize{size()};
    } else if (kind == "minClamped") {
        classification = AppSizeBehavior::MinClamped{size()};
    } else if (kind == "flexible") {
        classification = AppSizeBehavior::Flexible{};
    } else {
        throw JsonCoding::Error("unknown size classification " + kind);
    }
}

} // namespace vantrel
