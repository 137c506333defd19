#include "Vantrel/interface/notifications/ProblemNotification.h"

#include "VantrelCore/scenes/SceneTriggerFormatting.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <fmt/format.h>
#include <vector>

namespace vantrel {

namespace {

struct Problem {
    std::string title;
    std::string body;
};

// "Mail, Notes and 3 more."
std::string applications(const RestoreReport& report) {
    constexpr std::size_t most = 3;
    std::vector<std::string> names;
    for (const RestoreReport::Item& item : report.items) {
        if (item.outcome.kind == RestoreReport::Kind::failed &&
            std::ranges::find(names, item.appName) == names.end()) {
            names.push_back(item.appName);
        }
    }
    const std::size_t shown = std::min(names.size(), most);
    std::string text;
    for (std::size_t index = 0; index < shown; ++index) {
        text += (index == 0 ? "" : ", ") + names[index];
    }
    return names.size() > most ? trf("{} and {} more.", text, names.size() - most) : text + ".";
}

} // namespace

std::optional<ProblemNotification> ProblemNotification::of(const PublishedState& state, Date now) {
    std::vector<Problem> problems;
    const auto& restore = state.lastRestore;
    const bool isOver = restore && restore->isAutomatic && secondsBetween(restore->date, now) >= patience;
    const bool hasFailed = isOver && restore->configID == state.configID && restore->report.failedCount() > 0;
    if (hasFailed) {
        problems.push_back({trn("{} window could not be put back", "{} windows could not be put back",
                                static_cast<std::int64_t>(restore->report.failedCount())),
                            applications(restore->report)});
    }
    for (const FileIncident& incident : state.fileIncidents) {
        if (incident.isTrouble()) {
            problems.push_back({FileIncidentText::headline(incident), FileIncidentText::sentence(incident)});
        }
    }
    if (state.calendarAccessNeeded) {
        problems.push_back(
            {tr("A calendar cannot be read"), tr(SceneTriggerFormatting::calendarAccessNeeded)});
    }
    if (problems.empty()) {
        return std::nullopt;
    }
    ProblemNotification result{.title = problems.front().title,
                               .body = problems.front().body,
                               .offersUndo = hasFailed && state.applicableUndo() != nullptr};
    for (std::size_t index = 1; index < problems.size(); ++index) {
        result.body += fmt::format("\n{}. {}", problems[index].title, problems[index].body);
    }
    return result;
}

} // namespace vantrel
