#include "VantrelCore/scenes/PatternSuggestion.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <set>
#include <string_view>

namespace vantrel::PatternSuggestion {

namespace {

std::int64_t gridSteps(double points) {
    return wholePoints(std::round(points / frameGrid));
}

} // namespace

std::vector<std::string> signature(const Layout& layout) {
    std::vector<std::string> texts;
    for (const auto& window : layout.windows) {
        if (!window.isGhost.value_or(false)) {
            texts.push_back(fmt::format("{}|{},{},{}x{}", window.bundleID, gridSteps(window.frame.minX()),
                                        gridSteps(window.frame.minY()), gridSteps(window.frame.width()),
                                        gridSteps(window.frame.height())));
        }
    }
    std::ranges::sort(texts);
    return texts;
}

std::string dayString(std::chrono::year_month_day day) {
    return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                       static_cast<unsigned>(day.day()));
}

std::vector<DailyLayoutObservation> recording(const DailyLayoutObservation& observation,
                                              std::vector<DailyLayoutObservation> log, const LocalTime& now) {
    std::erase(log, observation);
    log.push_back(observation);
    const std::string cutoff = dayString(std::chrono::sys_days{now.day} - maxAgeDays);
    std::erase_if(log, [&](const DailyLayoutObservation& entry) { return entry.day < cutoff; });
    if (log.size() > maxLogEntries) {
        std::ranges::stable_sort(log, {}, &DailyLayoutObservation::day);
        log.erase(log.begin(), log.end() - maxLogEntries);
    }
    return log;
}

bool qualifies(const std::string& configID, const std::vector<std::string>& signature,
               const std::vector<DailyLayoutObservation>& observations) {
    std::set<std::string_view> days;
    for (const auto& observation : observations) {
        if (observation.configID == configID && observation.signature == signature) {
            days.insert(observation.day);
        }
    }
    return days.size() >= requiredDays;
}

} // namespace vantrel::PatternSuggestion
