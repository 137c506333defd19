// The names of the workbench's tabs in commands and in what the program remembers.
#pragma once

#include "Vantrel/controller/PublishedState.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace vantrel::WorkbenchTabs {

inline constexpr std::array<std::pair<WorkbenchTab, std::string_view>, 5> names{{
    {WorkbenchTab::scenes, "scenes"},
    {WorkbenchTab::desks, "desks"},
    {WorkbenchTab::history, "history"},
    {WorkbenchTab::rules, "rules"},
    {WorkbenchTab::settings, "settings"},
}};

[[nodiscard]] constexpr std::string_view name(WorkbenchTab tab) {
    return std::ranges::find(names, tab, &std::pair<WorkbenchTab, std::string_view>::first)->second;
}

[[nodiscard]] constexpr std::optional<WorkbenchTab> named(std::string_view name) {
    const auto* const found =
        std::ranges::find(names, name, &std::pair<WorkbenchTab, std::string_view>::second);
    return found == names.end() ? std::nullopt : std::optional(found->first);
}

} // namespace vantrel::WorkbenchTabs
