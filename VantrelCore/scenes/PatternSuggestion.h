// Notices when the user arranges a desk the same way on several days, so that saving the arrangement as a
// scene can be suggested.
#pragma once

#include "VantrelCore/model/DailyLayoutObservation.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/model/LocalTime.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace vantrel::PatternSuggestion {

// Distinct days on which an arrangement must have been seen.
inline constexpr std::size_t requiredDays = 3;
// Frames are coarsened to this grid, in points.
inline constexpr double frameGrid = 24.0;
inline constexpr std::chrono::days maxAgeDays{21};
inline constexpr std::size_t maxLogEntries = 60;

// One text per window, "bundleID|x,y,wxh" in steps of the grid (halves away from zero), sorted by bytes.
// Ghosts are left out: they are places, not windows that the user arranged.
[[nodiscard]] std::vector<std::string> signature(const Layout& layout);

// "yyyy-MM-dd".
[[nodiscard]] std::string dayString(std::chrono::year_month_day day);

// The log with the observation added and what is more than 21 calendar days older than `now` dropped; of more
// than 60 entries the newest days' stay. An equal observation is moved to the end rather than kept twice, so
// that a desk which stands still all day cannot fill the log.
[[nodiscard]] std::vector<DailyLayoutObservation> recording(const DailyLayoutObservation& observation,
                                                            std::vector<DailyLayoutObservation> log,
                                                            const LocalTime& now);

// True when the desk was seen with this signature on at least three days.
[[nodiscard]] bool qualifies(const std::string& configID, const std::vector<std::string>& signature,
                             const std::vector<DailyLayoutObservation>& observations);

} // namespace vantrel::PatternSuggestion
