#include "Vantrel/LaunchAtLogin.h"

#include "Vantrel/platform/posix/AutostartWay.h"
#include "Vantrel/platform/qt/SessionUnit.h"
#include "Vantrel/platform/qt/UserFolders.h"

#include <utility>
#include <vector>

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace vantrel {

LaunchAtLogin::LaunchAtLogin(FileSystem& files, const std::string& program)
    : m_program(program), m_entry(files, UserFolders::autostartFile(), program) {}

std::string LaunchAtLogin::set(bool launches, const QDBusConnection& bus) {
    using AutostartWay::UnitChange;
    const SessionUnit unit(bus, m_program);
    const auto state = unit.state();
    auto plan = AutostartWay::plan({.isWanted = launches,
                                    .isChange = std::exchange(m_isChange, true),
                                    .isUnitUsable = state.isUsable,
                                    .isUnitEnabled = state.isEnabled,
                                    .isEntryTheUsers = m_entry.isTheUsers()});
    std::vector<std::string> messages;
    if (plan.unit != UnitChange::nothing) {
        const bool enables = plan.unit == UnitChange::enable;
        const auto error = unit.setEnabled(enables);
        plan.wantsEntry = plan.wantsEntry || (enables && !error.empty());
        messages.push_back(
            error.empty() ? fmt::format("autostart: vantrel.service {}", enables ? "enabled" : "disabled")
                          : "autostart: vantrel.service could not be changed: " + error);
    } else if (!launches && state.isEnabled) {
        messages.emplace_back(
            "autostart: vantrel.service is enabled although launchAtLogin is off, and is left alone");
    }
    if (auto entry = m_entry.setLaunchAtLogin(plan.wantsEntry); !entry.empty()) {
        messages.push_back(std::move(entry));
    }
    return fmt::format("{}", fmt::join(messages, "; "));
}

} // namespace vantrel
