// Checks again after an automatic restore, because window managers keep moving windows for seconds after a
// display change. Puts displaced windows back and tries failed ones again, unless the user has moved them
// since, another program has had the window manager change them, or user moves cannot be detected.
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
    // `onPutBack` receives the indices of the report items whose windows were put back.
    RestoreFollowUpFlow(ControllerContext& context,
                        std::function<void(const std::vector<std::size_t>& items)> onPutBack)
        : m_context(context), m_onPutBack(std::move(onPutBack)) {}

    // Checks these windows 1, 3, 7 and 15 seconds from now, as long as the desk stays the same and the user
    // neither leaves nor edits what is stored.
    void begin(std::vector<RestoreFollowUp::Kept> kept);

    // Ends the follow-up because a newer change or restore has begun.
    void end();

private:
    void awaitTurn(bool isLast);
    void look(bool isLast);
    // Stops checking these windows.
    void leaveAlone(const std::vector<std::size_t>& items, std::string_view how);

    ControllerContext& m_context;
    std::function<void(const std::vector<std::size_t>&)> m_onPutBack;
    // The windows that are still kept in place.
    std::vector<RestoreFollowUp::Kept> m_kept;
    DeskGate::Moment m_begin;
    std::vector<std::unique_ptr<ScheduledWork>> m_looks;
    // The last look that is still waiting for its turn.
    std::unique_ptr<ScheduledWork> m_turn;
    std::int64_t m_epoch = 0;
};

} // namespace vantrel
