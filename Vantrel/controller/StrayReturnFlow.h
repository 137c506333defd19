// Puts windows in place that a restore could not reach, once the user goes to their Space. Those that have
// moved since are left alone.
#pragma once

#include "Vantrel/controller/ControllerContext.h"

#include <memory>
#include <vector>

namespace vantrel {

class StrayReturnFlow {
public:
    explicit StrayReturnFlow(ControllerContext& context) : m_context(context) {}

    void spaceChanged();

private:
    [[nodiscard]] bool isWanted();
    void awaitTurn();
    void putBack();

    ControllerContext& m_context;
    std::vector<std::unique_ptr<ScheduledWork>> m_looks;
    // The pending check, if any.
    std::unique_ptr<ScheduledWork> m_turn;
};

} // namespace vantrel
