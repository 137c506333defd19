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

// How many distinct days an arrangement must be seen on.
inline constexpr std::size_t requiredDays = 3;
// Frames are rounded to this grid, in points.
inline constexpr double frameGrid = 24.0;
inline constexpr std::chrono::days maxAgeDays{21};
inline constexpr std::size_t maxLogEntries = 60;

// One string per window, "bundleID|x,y,wxh" in grid steps (halves away from zero), sorted by bytes. Ghosts
// are left out: the user did not arrange them.
[[nodiscard]] std::vector<std::string> signature(const Layout& layout);

// "yyyy-MM-dd".
[[nodiscard]] std::string dayString(std::chrono::year_month_day day);

// The log with the observation added and entries more than 21 calendar days older than `now` dropped; beyond
// 60 entries the oldest days are dropped. A repeated observation moves to the end instead of being added
// again, so that an unchanged desk cannot fill the log.
[[nodiscard]] std::vector<DailyLayoutObservation> recording(const DailyLayoutObservation& observation,
                                                            std::vector<DailyLayoutObservation> log,
                                                            const LocalTime& now);

// True if the desk was seen with this signature on at least three days.
[[nodiscard]] bool qualifies(const std::string& configID, const std::vector<std::string>& signature,
                             const std::vector<DailyLayoutObservation>& observations);

} // namespace vantrel::PatternSuggestion
