// Looks again after an automatic restore, because window managers go on moving windows for seconds after a
// display change, and puts back what was displaced.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/RestoreFollowUp.h"

#include <memory>
#include <vector>

namespace vantrel {

class RestoreFollowUpFlow {
public:
    explicit RestoreFollowUpFlow(ControllerContext& context) : m_context(context) {}

    // Looks at these windows 1, 3 and 7 seconds from now, as long as snapshots are suspended.
    void begin(std::vector<RestoreFollowUp::Landed> landed);

    // A newer change or restore has begun.
    void end();

private:
    void look();

    ControllerContext& m_context;
    std::vector<RestoreFollowUp::Landed> m_landed;
    std::vector<std::unique_ptr<ScheduledWork>> m_looks;
    std::int64_t m_epoch = 0;
};

} // namespace vantrel
