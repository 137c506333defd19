// A running application as an accessibility element: its windows, and what must be off while they are moved.
#pragma once

#include "Vantrel/platform/macos/AXAttribute.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace vantrel {

// May be used from any thread.
class MacApplication {
public:
    // Any question to an application is given up after this long.
    static constexpr float messagingTimeoutSeconds = 1.0F;

    explicit MacApplication(std::int32_t pid);

    // In the application's order; empty when it gives no list. Items of the list that are no elements are
    // left out.
    [[nodiscard]] std::vector<CFRef<AXUIElementRef>> windows() const;

    // Keep what it returns while windows of this application are moved, one or many. Applications that run
    // with an enhanced interface for assistive programs animate their moves and report frames on the way; the
    // enhancement is off as long as anybody holds the result, and on again afterwards if it was on.
    [[nodiscard]] std::shared_ptr<void> beginMoves();

private:
    class PlainInterface;

    CFRef<AXUIElementRef> m_element;
    std::mutex m_lock;
    std::weak_ptr<PlainInterface> m_plain;
};

} // namespace vantrel
