// What the introduction shows, as values: the checks, the answers, the shortcuts.
#pragma once

#include "Vantrel/controller/PublishedState.h"
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

// How often displays come and go, as the user answered.
enum class DockFrequency : std::uint8_t { severalTimesADay, onceADay, nowAndThen };

struct OnboardingContent {
    struct Check {
        std::string title;
        std::string detail;
        bool isThere = true;
        // Of the button that leads to where it can be permitted; empty without one.
        std::string action{};

        bool operator==(const Check&) const = default;
    };

    struct Answer {
        DockFrequency frequency = DockFrequency::onceADay;
        std::string title;
        // What its suggestion means.
        std::string detail;
    };

    // The settings that suit an answer.
    struct Suggestion {
        // In seconds.
        double settleDelay = 0.5;
        bool startsWithSession = true;
        // Offers to save recurring arrangements as scenes.
        bool suggestsScenes = true;
        // Says when windows have moved away from a scene.
        bool nudges = true;

        bool operator==(const Suggestion&) const = default;
    };

    struct Shortcut {
        HotKeySurface surface;
        std::string symbol;
        std::string title;
        std::string detail;
        // "Super+Shift+R".
        std::string keys{};
        // Another program holds it.
        bool isRefused = false;

        bool operator==(const Shortcut&) const = default;
    };

    // What this desktop has.
    struct Desktop {
        bool hasBus = true;
        bool hasTray = true;
        // Without a tray, the panel opens at start.
        bool opensPanelAtStart = true;
    };

    [[nodiscard]] static std::vector<Check> checks(const PublishedState& state, const Desktop& desktop);
    // On a Mac. The icon is not shown where the menu bar has no room for it.
    [[nodiscard]] static std::vector<Check> macChecks(const PublishedState& state, bool isIconShown);
    // "Three things of your desktop. Two are there."
    [[nodiscard]] static std::string checkSummary(const std::vector<Check>& checks);
    [[nodiscard]] static std::vector<Answer> answers();
    [[nodiscard]] static Suggestion suggestion(DockFrequency frequency);
    [[nodiscard]] static std::vector<Shortcut> shortcuts(const PublishedState& state);
    // As stored: "onceADay".
    [[nodiscard]] static std::string_view stored(DockFrequency frequency);
    [[nodiscard]] static std::optional<DockFrequency> frequency(std::string_view stored);
};

} // namespace vantrel
