// Exchanges the windows of two displays of the current desk.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/RestoreRunner.h"
#include "VantrelCore/windows/DisplaySwap.h"

#include <expected>
#include <string>

namespace vantrel {

class DisplaySwapFlow {
public:
    DisplaySwapFlow(ControllerContext& context, RestoreRunner& runner)
        : m_context(context), m_runner(runner) {}

    // The displays by their labels; if both are empty, the desk's only two equal displays. If there are no
    // such displays, the error is a sentence for people; otherwise `done` is called once with the outcome.
    std::expected<void, std::string> swap(const std::string& first, const std::string& second,
                                          const RestoreOutcome::Done& done);

private:
    ControllerContext& m_context;
    RestoreRunner& m_runner;
};

} // namespace vantrel
