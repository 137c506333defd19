#include "Vantrel/controller/SuggestionFlow.h"

#include "VantrelCore/scenes/PatternSuggestion.h"

#include <algorithm>
#include <utility>

namespace vantrel {

void SuggestionFlow::recordPatternObservationIfNeeded(const Layout& layout) {
    const LocalTime now = m_context.ports.localZone.current().localTime(m_context.ports.clock.now());
    DailyLayoutObservation observation{.configID = layout.configID,
                                       .day = PatternSuggestion::dayString(now.day),
                                       .signature = PatternSuggestion::signature(layout)};
    if (!observation.signature.empty() && m_last != observation) {
        m_last = observation;
        auto log = m_context.settings.loadPatternObservations();
        if (std::ranges::find(log, observation) == log.end()) {
            log = PatternSuggestion::recording(observation, std::move(log), now);
            if (!m_context.settings.savePatternObservations(log)) {
                m_context.log("suggestions: today's arrangement could not be saved");
            }
        }
        m_recurs = PatternSuggestion::qualifies(observation.configID, observation.signature, log);
    }
    refresh();
}

bool SuggestionFlow::isWanted(const PatternSuggestionInfo& pattern) {
    const auto snoozedUntil = m_context.settings.patternSuggestionSnoozedUntil();
    if (m_context.settings.patternSuggestionsStopped() ||
        (snoozedUntil && m_context.ports.clock.now() < *snoozedUntil)) {
        return false;
    }
    // An arrangement that is already a scene needs no suggestion.
    return std::ranges::none_of(m_context.state().scenes, [&](const Scene& scene) {
        return scene.configID == pattern.configID &&
               PatternSuggestion::signature(scene.layout) == pattern.signature;
    });
}

void SuggestionFlow::refresh() {
    std::optional<PatternSuggestionInfo> suggestion;
    if (m_last && m_recurs && m_last->configID == m_context.state().configID) {
        suggestion = {.configID = m_last->configID, .signature = m_last->signature};
        if (!isWanted(*suggestion)) {
            suggestion.reset();
        }
    }
    m_context.publisher.publish<ScenesTopic>([&](auto& scenes) { scenes.patternSuggestion = suggestion; });
}

bool SuggestionFlow::snooze() {
    const Date until = dateAfter(m_context.ports.clock.now(), snoozeSeconds);
    const bool isWritten = m_context.settings.setPatternSuggestionSnoozedUntil(until);
    refresh();
    return isWritten;
}

bool SuggestionFlow::stop() {
    const bool isWritten = m_context.settings.setPatternSuggestionsStopped(true);
    refresh();
    return isWritten;
}

bool SuggestionFlow::resume() {
    const bool isGoingOn = m_context.settings.setPatternSuggestionsStopped(false);
    const bool isWritten = m_context.settings.setPatternSuggestionSnoozedUntil(std::nullopt) && isGoingOn;
    refresh();
    return isWritten;
}

} // namespace vantrel
