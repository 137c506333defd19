// What the introduction shows, as values: the checks, the answers, the shortcuts.
#pragma once

#include "Vantrel/controller/PublishedState.h"
#include "Vantrel/interface/desk/DeskPicture.h"

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

        bool operator==(const Check&) const = default;
    };

    struct Answer {
        DockFrequency frequency = DockFrequency::onceADay;
        std::string title;
        std::string detail;
    };

    struct Shortcut {
        std::string symbol;
        std::string title;
        std::string detail;
        // "Super", "Shift", "R"; empty without one.
        std::vector<std::string> keys;

        bool operator==(const Shortcut&) const = default;
    };

    // What this desktop has.
    struct Desktop {
        bool hasBus = true;
        bool hasTray = true;
    };

    [[nodiscard]] static std::vector<Check> checks(const PublishedState& state, const Desktop& desktop);
    // "Three things of your desktop. Two are there."
    [[nodiscard]] static std::string checkSummary(const std::vector<Check>& checks);
    [[nodiscard]] static std::vector<Answer> answers();
    [[nodiscard]] static std::vector<Shortcut> shortcuts(const PublishedState& state);
    // A display has come back, and the windows are about to go home.
    [[nodiscard]] static DeskPicture picture();

    // As stored: "onceADay".
    [[nodiscard]] static std::string_view stored(DockFrequency frequency);
    [[nodiscard]] static std::optional<DockFrequency> frequency(std::string_view stored);
};

} // namespace vantrel
