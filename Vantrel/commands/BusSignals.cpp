#include "Vantrel/commands/BusSignals.h"

#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/ReportMessage.h"
#include "Vantrel/commands/ScenesMessage.h"

namespace vantrel {

namespace {

nlohmann::json describe(const LastRestore& restore) {
    nlohmann::json report = restore.report;
    report["reason"] = restore.reason;
    report["configID"] = restore.configID;
    return report;
}

// The keys whose values differ, and those that only one of the two has.
nlohmann::json changedKeys(const std::map<std::string_view, DefaultsValue>& former,
                           const std::map<std::string_view, DefaultsValue>& present) {
    auto keys = nlohmann::json::array();
    for (const auto& [key, value] : present) {
        const auto found = former.find(key);
        if (found == former.end() || found->second != value) {
            keys.push_back(key);
        }
    }
    for (const auto& [key, value] : former) {
        if (!present.contains(key)) {
            keys.push_back(key);
        }
    }
    return keys;
}

} // namespace

BusSignals::BusSignals(const PublishedState& state)
    : m_phase(state.phase), m_lastRestore(state.lastRestore), m_driftNudge(state.driftNudge),
      m_preferences(state.preferences) {}

std::vector<BusSignals::Signal> BusSignals::after(const PublishedState& state, Topics changed) {
    std::vector<Signal> sent;
    if (m_phase != state.phase) {
        m_phase = state.phase;
        sent.push_back({"PhaseChanged", ControlAnswers::phase(state.phase)});
    }
    if (m_lastRestore != state.lastRestore) {
        m_lastRestore = state.lastRestore;
        if (m_lastRestore) {
            sent.push_back({"RestoreFinished", describe(*m_lastRestore)});
        }
    }
    if (m_driftNudge != state.driftNudge) {
        m_driftNudge = state.driftNudge;
        sent.push_back(
            {"DriftChanged", m_driftNudge ? nlohmann::json(*m_driftNudge) : nlohmann::json::object()});
    }
    if (m_preferences != state.preferences) {
        sent.push_back({"SettingsChanged", {{"keys", changedKeys(m_preferences, state.preferences)}}});
        m_preferences = state.preferences;
    }
    // These signals carry no data: clients ask for what they need.
    if (changed.contains(Topic::scenes)) {
        sent.push_back({"ScenesChanged", {{"version", state.scenesVersion + state.triggersVersion}}});
    }
    if (changed.contains(Topic::layouts)) {
        sent.push_back({"LayoutsChanged",
                        {{"configID", state.configID},
                         {"activeLayoutName", state.activeLayoutName},
                         {"activePinned", state.activePinned}}});
    }
    if (changed.contains(Topic::desks)) {
        sent.push_back({"DesksChanged", {{"version", state.desksVersion}}});
    }
    if (changed.contains(Topic::rules)) {
        sent.push_back({"RulesChanged", {{"version", state.rulesVersion}}});
    }
    return sent;
}

} // namespace vantrel
