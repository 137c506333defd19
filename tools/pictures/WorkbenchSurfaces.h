// What the pictures of the workbench's tabs have in common.
#pragma once

#include "Vantrel/interface/workbench/WorkbenchWindow.h"
#include "VantrelCore/model/Date.h"

#include <memory>

namespace vantrel::pictures {

// When the pictures are taken.
inline constexpr Date workbenchNow{std::chrono::sys_days(std::chrono::year(2026) / 11 / 24) +
                                   std::chrono::hours(9)};

[[nodiscard]] ApplicationLooks& workbenchLooks();

// The window with every tab, one of them chosen. `state` outlives it.
[[nodiscard]] std::unique_ptr<WorkbenchWindow> workbench(const PublishedState& state, WorkbenchTab tab);

// Pages on sample data.
[[nodiscard]] WorkbenchPage* rulesPage(QWidget* parent);
[[nodiscard]] WorkbenchPage* settingsPage(QWidget* parent);

} // namespace vantrel::pictures
