#include "Vantrel/controller/Phase.h"
#include "VantrelCore/text/NumberText.h"
#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>

namespace vantrel::StatusPhase {

namespace {

struct Text {
    std::string operator()(const Phase::Saved& saved) const {
        return trn("{} window remembered", "{} windows remembered", saved.windows);
    }
    std::string operator()(const Phase::Restoring& restoring) const {
        return trn("putting back {} window", "putting back {} windows", restoring.windows);
    }
    std::string operator()(const Phase::Restored& restored) const {
        return trn("{0} window put back in {1} s", "{0} windows put back in {1} s", restored.windows,
                   NumberText::oneDecimal(restored.seconds));
    }
    std::string operator()(const Phase::Off&) const { return tr("switched off"); }
    std::string operator()(const Phase::Empty&) const { return tr("nothing remembered for this desk yet"); }
    std::string operator()(const Phase::NeedsPermission&) const {
        return tr("permission to move windows is missing");
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
