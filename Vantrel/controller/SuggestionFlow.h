// Notes once a day how the desk stands, and suggests to save an arrangement that recurs as a scene.
#pragma once

#include "Vantrel/controller/ControllerContext.h"

#include <optional>
#include <string>
#include <vector>

namespace vantrel {

class SuggestionFlow {
public:
    // How long a suggestion that is put off stays away.
    static constexpr double snoozeSeconds = 7 * 24 * 3600;

    explicit SuggestionFlow(ControllerContext& context) : m_context(context) {}

    // The present desk stands as this layout was learned.
    void recordPatternObservationIfNeeded(const Layout& layout);

    // No suggestions for a week. False when that could not be written.
    bool snooze();
    // No suggestions ever.
    bool stop();
    // Suggestions again, neither put off nor stopped.
    bool resume();

    // Looks at settings and scenes again.
    void refresh();

private:
    [[nodiscard]] bool isWanted(const PatternSuggestionInfo& pattern);

    ControllerContext& m_context;
    // What was last noted, and whether it recurs.
    std::optional<DailyLayoutObservation> m_last;
    bool m_recurs = false;
};

} // namespace vantrel
