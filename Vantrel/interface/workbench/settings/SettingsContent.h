// What the tab Settings shows, as a value: its sections, and what is chosen in them.
#pragma once

#include "Vantrel/controller/PublishedState.h"
#include "VantrelCore/commands/HotKeySurface.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

enum class SettingsSection : std::uint8_t {
    general,
    restoring,
    shortcuts,
    triggers,
    displays,
    privacy,
    license,
    about,
};

struct SettingsContent {
    // A choice that acts at once.
    struct Toggle {
        std::string_view key;
        std::string title;
        // Empty where the title says it all.
        std::string detail;
        bool isOn = false;
        // The switch is on when the setting is off.
        bool isInverted = false;

        bool operator==(const Toggle&) const = default;
    };

    struct Shortcut {
        HotKeySurface surface;
        std::string symbol;
        std::string title;
        // "Super+Shift+R"; empty for none.
        std::string keys;
        // Why it does not work; empty if it does.
        std::string problem;
        // It has a default, and another combination than that.
        bool canBeReset = false;

        bool operator==(const Shortcut&) const = default;
    };

    struct Trigger {
        std::string id;
        std::string symbol;
        // The event that fires the trigger.
        std::string title;
        // The time of day of one that waits for it.
        std::optional<std::string> time;
        std::string sceneID;
        // "next tomorrow at 9:00", or what keeps it from firing.
        std::string detail;
        bool isProblem = false;
        bool isOn = false;

        bool operator==(const Trigger&) const = default;
    };

    struct NamedScene {
        std::string id;
        std::string name;

        bool operator==(const NamedScene&) const = default;
    };

    struct Display {
        std::string name;
        // "2560 × 1440 at 0, 0 · built in".
        std::string detail;
        // What tells it apart from another of its kind; empty if there is none.
        std::string note;
        bool isBuiltin = false;

        bool operator==(const Display&) const = default;
    };

    std::vector<Toggle> general;
    std::vector<Toggle> restoring;
    // In seconds, and what it means.
    double settleDelay = 0.5;
    std::string settleDelayText;
    std::vector<Shortcut> shortcuts;
    // Those of the scenes of this desk.
    std::vector<Shortcut> sceneShortcuts;
    std::vector<Trigger> triggers;
    // Instead of triggers.
    std::string noTriggers;
    // For a new trigger.
    std::vector<NamedScene> scenes;
    std::vector<Display> displays;
    // Mission Control lets windows leave their places; only on systems that have it.
    enum class MissionControl : std::uint8_t { absent, fine, losing, fixed };
    MissionControl missionControl = MissionControl::absent;
    // Two displays of one kind, whose windows can be exchanged.
    bool canSwapDisplays = false;
    // The name of a remembered desk that may be this one; empty if there is none.
    std::string sameDesk;
    std::vector<Toggle> privacy;
    std::string license;
    bool isLicensed = false;
    bool canActivate = false;
    std::string version;
    // Empty if there is none, or none is known.
    std::string update;

    bool operator==(const SettingsContent&) const = default;

    struct Context {
        // Formats the date of a firing: "tomorrow at 9:00".
        std::function<std::string(Date)> dateText;
        std::function<bool(std::string_view key)> hasEffect = [](auto) { return true; };
        MissionControl missionControl = MissionControl::absent;
    };
    [[nodiscard]] static SettingsContent of(const PublishedState& state, const Context& context);
};

namespace SettingsSections {

struct Entry {
    SettingsSection section = SettingsSection::general;
    // As remembered between runs.
    const char* name = "";
    const char* title = "";
    const char* symbol = "";
};

// In reading order. The titles are not translated yet.
[[nodiscard]] const std::array<Entry, 8>& all();

[[nodiscard]] const Entry& entryOf(SettingsSection section);
[[nodiscard]] std::optional<SettingsSection> named(std::string_view name);

} // namespace SettingsSections

} // namespace vantrel
