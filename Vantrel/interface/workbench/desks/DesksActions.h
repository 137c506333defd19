// The operations of the tab Desks.
#pragma once

#include "Vantrel/interface/SceneActions.h"
#include "Vantrel/interface/workbench/desks/DesksContent.h"

#include <functional>
#include <string>

namespace vantrel {

struct DesksActions {
    using Problem = SceneActions::Problem;

    // Every stored layout.
    std::function<std::vector<Layout>()> layouts = [] { return std::vector<Layout>(); };
    std::function<Date()> now = [] { return Date{}; };
    std::function<TimeZone()> zone = [] { return TimeZone::utc(); };

    std::function<Problem(const std::string& configID, const std::string& name)> problemWithName =
        [](const auto&, const auto&) { return std::nullopt; };
    std::function<Problem(const std::string& configID, const std::string& name)> rename =
        [](const auto&, const auto&) { return std::nullopt; };
    std::function<void(const std::string& configID)> forget = [](const auto&) {};

    // Of this desk.
    std::function<void(const std::string& layout)> switchLayout = [](const auto&) {};
    std::function<void(const std::string& layout)> saveLayoutAs = [](const auto&) {};
    std::function<Problem(const std::string& layout)> problemWithLayoutName = [](const auto&) {
        return std::nullopt;
    };
    std::function<void()> restore = [] {};

    // Of any desk.
    std::function<void(const std::string& configID, const std::string& layout)> applyLayout =
        [](const auto&, const auto&) {};
    std::function<Problem(const std::string& configID, const std::string& layout, const std::string& name)>
        renameLayout = [](const auto&, const auto&, const auto&) { return std::nullopt; };
    std::function<void(const std::string& configID, const std::string& layout)> removeLayout =
        [](const auto&, const auto&) {};
    std::function<void(const std::string& configID, const std::string& layout, bool isPinned)> setPinned =
        [](const auto&, const auto&, bool) {};

    std::function<void(const std::string& stash)> bringBack = [](const auto&) {};
    std::function<void(const std::string& stash)> discardStash = [](const auto&) {};

    using PreviewDone = std::function<void(const std::expected<RestorePreview, std::string>&)>;
    // What restoring this desk, or applying another desk's layout here, would do now.
    std::function<void(const std::string& configID, const std::string& layout, const PreviewDone&)> preview =
        [](const auto&, const auto&, const auto&) {};
};

} // namespace vantrel
