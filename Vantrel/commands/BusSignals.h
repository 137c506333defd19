// Which signals the service on the session bus sends when published state changes.
#pragma once

#include "Vantrel/controller/PublishedState.h"

#include <array>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace vantrel {

class BusSignals {
public:
    struct Signal {
        const char* name;
        nlohmann::json content;

        bool operator==(const Signal&) const = default;
    };

    // Every signal with the name of its argument, a string.
    static constexpr std::array<std::pair<const char*, const char*>, 8> names{{
        {"PhaseChanged", "phase"},
        {"RestoreFinished", "report"},
        {"ScenesChanged", "scenes"},
        {"LayoutsChanged", "layouts"},
        {"DriftChanged", "drift"},
        {"SettingsChanged", "settings"},
        {"DesksChanged", "desks"},
        {"RulesChanged", "rules"},
    }};

    explicit BusSignals(const PublishedState& state);

    // The signals to send after these topics have changed.
    [[nodiscard]] std::vector<Signal> after(const PublishedState& state, Topics changed);

private:
    using Preferences = std::map<std::string_view, DefaultsValue>;

    // As of the last signals.
    Phase m_phase;
    std::optional<LastRestore> m_lastRestore;
    std::optional<DriftNudgeInfo> m_driftNudge;
    Preferences m_preferences;
};

} // namespace vantrel
