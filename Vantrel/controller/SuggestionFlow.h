// Records the desk's arrangement once a day, and suggests saving a recurring one as a scene.
#pragma once

#include "Vantrel/controller/ControllerContext.h"

#include <optional>
#include <string>
#include <vector>

namespace vantrel {

class SuggestionFlow {
public:
    // How long a snoozed suggestion stays hidden.
    static constexpr double snoozeSeconds = 7 * 24 * 3600;

    explicit SuggestionFlow(ControllerContext& context) : m_context(context) {}

    // `layout` is stored, and the current desk matches it.
    void recordPatternObservationIfNeeded(const Layout& layout);

    // Stops suggestions for a week. Returns false when that could not be written.
    bool snooze();
    // Stops suggestions for good.
    bool stop();
    // Resumes suggestions that were snoozed or stopped.
    bool resume();

    // Checks settings and scenes again.
    void refresh();

private:
    [[nodiscard]] bool isWanted(const PatternSuggestionInfo& pattern);

    ControllerContext& m_context;
    // The last recorded observation, and whether it recurs.
    std::optional<DailyLayoutObservation> m_last;
    bool m_recurs = false;
};

} // namespace vantrel
