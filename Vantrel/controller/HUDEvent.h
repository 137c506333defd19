// Events shown on the heads-up display as they happen.
#pragma once

#include "VantrelCore/model/HotKeyCombo.h"
#include "VantrelCore/windows/RestoreTally.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vantrel {

namespace HUD {

struct Restoring {
    // Names the displays that came back if they are the cause: "LG UltraFine reconnected"; else empty.
    std::string cause;
    bool operator==(const Restoring&) const = default;
};
struct Done {
    RestoreTally windows;
    double seconds = 0;
    // As in Restoring, which may have been shown too briefly to read; "Undone" after an undo.
    std::string cause;
    bool operator==(const Done&) const = default;
};
// The desk was saved at the user's request.
struct Saved {
    std::int64_t windows = 0;
    bool operator==(const Saved&) const = default;
};
// The desk was put aside.
struct Stashed {
    std::int64_t windows = 0;
    // Brings it back.
    std::optional<HotKeyCombo> shortcut;
    bool operator==(const Stashed&) const = default;
};
// Nothing came of a request of the user's.
struct Refused {
    // Sentences, the first of which says what prevents it.
    std::string text;
    // For a desk without a saved layout: saves it.
    std::optional<HotKeyCombo> saveShortcut = std::nullopt;
    bool operator==(const Refused&) const = default;
};
// A window of a newly started application was moved to its place.
struct AppPlaced {
    std::string app;
    std::string desk;
    bool operator==(const AppPlaced&) const = default;
};

// A scene was applied; see SceneApplyCaption.
struct SceneApplied {
    std::string name;
    std::int64_t moved = 0;
    std::int64_t opened = 0;
    std::int64_t notOpen = 0;
    double seconds = 0;
    bool operator==(const SceneApplied&) const = default;
};
// The wait for the applications that a scene opened is over; see SceneSettlementCaption.
struct SceneSettled {
    std::string name;
    std::int64_t opened = 0;
    std::int64_t placed = 0;
    // Names of the applications that did not finish opening.
    std::vector<std::string> stragglers;
    bool operator==(const SceneSettled&) const = default;
};

} // namespace HUD

using HUDEvent = std::variant<HUD::Restoring, HUD::Done, HUD::Saved, HUD::Stashed, HUD::Refused,
                              HUD::AppPlaced, HUD::SceneApplied, HUD::SceneSettled>;

} // namespace vantrel
