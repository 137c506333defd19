// A running application as an accessibility element.
#pragma once

#include "Vantrel/platform/macos/AXAttribute.h"
#include "Vantrel/platform/macos/OwnMoves.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace vantrel {

// Thread-safe.
class MacApplication {
public:
    // Requests to an application time out after this long.
    static constexpr float messagingTimeoutSeconds = 1.0F;

    // `ownMoves` must not be null.
    MacApplication(std::int32_t pid, std::shared_ptr<OwnMoves> ownMoves);

    // In the application's order. Empty if it gives no list. Skips items that are not elements.
    [[nodiscard]] std::vector<CFRef<AXUIElementRef>> windows() const;

    // Hold the result while moving windows of this application. Applications with the enhanced user interface
    // on, which is for assistive programs, animate moves and report intermediate frames. It is switched off
    // while anyone holds a result, and then switched back on if it was on.
    [[nodiscard]] std::shared_ptr<void> beginMoves();

    [[nodiscard]] const std::shared_ptr<OwnMoves>& ownMoves() const { return m_ownMoves; }

private:
    class PlainInterface;

    CFRef<AXUIElementRef> m_element;
    std::shared_ptr<OwnMoves> m_ownMoves;
    std::mutex m_lock;
    std::weak_ptr<PlainInterface> m_plain;
};

} // namespace vantrel
