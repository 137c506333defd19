// Looks again after an automatic restore, because window managers go on moving windows for seconds after a
// display change, and puts back what was displaced, unless the user has moved it since or nothing can tell
// whether the user has.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/RestoreFollowUp.h"

#include <functional>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace vantrel {

class RestoreFollowUpFlow {
public:
    // `onPutBack` is told which items of the report, by index, belong to windows that were put back.
    RestoreFollowUpFlow(ControllerContext& context,
                        std::function<void(const std::vector<std::size_t>& items)> onPutBack)
        : m_context(context), m_onPutBack(std::move(onPutBack)) {}

    // Looks at these windows 1, 3 and 7 seconds from now, as long as snapshots are suspended.
    void begin(std::vector<RestoreFollowUp::Moved> landed);

    // A newer change or restore has begun.
    void end();

private:
    void look();
    // These windows are not looked at any more.
    void leaveAlone(const std::vector<std::size_t>& items, std::string_view how);

    ControllerContext& m_context;
    std::function<void(const std::vector<std::size_t>&)> m_onPutBack;
    // Those that are still to be kept at their places.
    std::vector<RestoreFollowUp::Moved> m_landed;
    std::vector<std::unique_ptr<ScheduledWork>> m_looks;
    std::int64_t m_epoch = 0;
};

} // namespace vantrel
