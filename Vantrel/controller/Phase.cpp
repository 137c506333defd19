#include "Vantrel/controller/Phase.h"

#include "Vantrel/controller/ControllerText.h"

#include <fmt/format.h>

namespace vantrel::StatusPhase {

namespace {

std::string counted(std::int64_t windows) {
    return ControllerText::windows(static_cast<std::size_t>(windows));
}

struct Text {
    std::string operator()(const Phase::Saved& saved) const { return counted(saved.windows) + " remembered"; }
    std::string operator()(const Phase::Restoring& restoring) const {
        return "putting back " + counted(restoring.windows);
    }
    std::string operator()(const Phase::Restored& restored) const {
        return fmt::format("{} put back in {:.1f} s", counted(restored.windows), restored.seconds);
    }
    std::string operator()(const Phase::Off&) const { return "switched off"; }
    std::string operator()(const Phase::Empty&) const { return "nothing remembered for this desk yet"; }
    std::string operator()(const Phase::NeedsPermission&) const {
        return "permission to move windows is missing";
    }
};

} // namespace

Phase resting(bool hasPermission, bool isEnabled, std::optional<std::int64_t> storedWindows) {
    if (!hasPermission) {
        return {Phase::NeedsPermission{}};
    }
    if (!isEnabled) {
        return {Phase::Off{}};
    }
    return storedWindows ? Phase{Phase::Saved{*storedWindows}} : Phase{Phase::Empty{}};
}

std::string text(const Phase& phase) {
    return std::visit(Text{}, phase.value);
}

} // namespace vantrel::StatusPhase
