// Watches a window for moves by the user or by another program.
#pragma once

#include "Vantrel/platform/macos/AXAttribute.h"
#include "Vantrel/platform/macos/OwnMoves.h"
#include "VantrelCore/ports/UserMoveWatch.h"

#include <memory>

namespace vantrel {

// A move while the mouse button is down, or just after, is the user's if the pointer is on the window. What
// happens within 250 ms of a move by Vantrel is taken for that. LoneMoveEvidence recognises other programs.
class MacUserMoveWatch final : public UserMoveWatch {
public:
    // Watches from the moment it returns. Returns null if the application does not report moves.
    [[nodiscard]] static std::unique_ptr<MacUserMoveWatch> begin(const CFRef<AXUIElementRef>& window,
                                                                 std::shared_ptr<const OwnMoves> ownMoves);
    ~MacUserMoveWatch() override;

    [[nodiscard]] bool hasSeenUser() override;
    [[nodiscard]] bool hasSeenRequest() const override;

private:
    struct State;
    explicit MacUserMoveWatch(std::shared_ptr<State> state);

    std::shared_ptr<State> m_state;
};

} // namespace vantrel
