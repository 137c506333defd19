// Applies a scene automatically: a time of day, a Focus that turns on, a video call about to start.
#pragma once

#include "VantrelCore/model/Date.h"

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <variant>

namespace vantrel {

// Every day at this local time.
struct ScheduleTrigger {
    // 0 to 23.
    std::int64_t hour = 0;
    // 0 to 59.
    std::int64_t minute = 0;

    bool operator==(const ScheduleTrigger&) const = default;
};

// A Focus of this name turns on.
struct FocusModeTrigger {
    std::string name;

    bool operator==(const FocusModeTrigger&) const = default;
};

// A calendar event with a video-meeting link is about to start.
struct CalendarVideoEventTrigger {
    bool operator==(const CalendarVideoEventTrigger&) const = default;
};

struct SceneTrigger {
    using Schedule = ScheduleTrigger;
    using FocusMode = FocusModeTrigger;
    using CalendarVideoEvent = CalendarVideoEventTrigger;
    using Kind = std::variant<Schedule, FocusMode, CalendarVideoEvent>;

    std::string id;
    Kind kind;
    // The scene to apply.
    std::string sceneID;
    // A disabled trigger never fires.
    bool enabled = true;
    Date createdAt;
    // Absent until the first firing.
    std::optional<Date> lastFiredAt;

    bool operator==(const SceneTrigger&) const = default;
};

// "kind" is an object with a single key that names the kind: {"schedule": {"hour": 7, "minute": 30}},
// {"focusMode": {"name": …}} or {"calendarVideoEvent": {}}. Any other number of keys, or any other kind,
// fails to decode.
void to_json(nlohmann::json& json, const SceneTrigger& trigger);
void from_json(const nlohmann::json& json, SceneTrigger& trigger);

} // namespace vantrel
