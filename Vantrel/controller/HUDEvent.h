// What the heads-up display is told while it happens.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace vantrel {

namespace HUD {

struct Restoring {
    // Which displays came back, where that is the cause: "LG UltraFine reconnected"; else empty.
    std::string cause;
    bool operator==(const Restoring&) const = default;
};
struct Done {
    std::int64_t windows = 0;
    double seconds = 0;
    // As in Restoring: it may have been shown too briefly to be read.
    std::string cause;
    bool operator==(const Done&) const = default;
};
// The user asked for the desk to be remembered, and it was.
struct Saved {
    std::int64_t windows = 0;
    bool operator==(const Saved&) const = default;
};
// A window of an application that was just started was moved to its place.
struct AppPlaced {
    std::string app;
    std::string desk;
    bool operator==(const AppPlaced&) const = default;
};

// A scene took the desk; see SceneApplyCaption.
struct SceneApplied {
    std::string name;
    std::int64_t moved = 0;
    std::int64_t opened = 0;
    std::int64_t notOpen = 0;
    double seconds = 0;
    bool operator==(const SceneApplied&) const = default;
};
// The applications that a scene opened have been waited for; see SceneSettlementCaption.
struct SceneSettled {
    std::string name;
    std::int64_t opened = 0;
    std::int64_t placed = 0;
    // Names of the applications that did not finish opening.
    std::vector<std::string> stragglers;
    bool operator==(const SceneSettled&) const = default;
};

} // namespace HUD

using HUDEvent =
    std::variant<HUD::Restoring, HUD::Done, HUD::Saved, HUD::AppPlaced, HUD::SceneApplied, HUD::SceneSettled>;

} // namespace vantrel
