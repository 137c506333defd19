// Reads and sets the desktop picture of each screen through the shared workspace.
#pragma once

#include "VantrelCore/displays/DisplayTopology.h"
#include "VantrelCore/ports/DesktopPictures.h"
#include "VantrelCore/ports/MainQueue.h"

#include <chrono>
#include <functional>
#include <utility>
#include <vector>

namespace vantrel {

// The workspace only works on the main thread, so calls from other threads wait for it.
class MacDesktopPictures final : public DesktopPictures {
public:
    using Log = std::function<void(const std::string& message)>;

    static constexpr std::chrono::milliseconds deadline{5000};

    using DisplayList = std::function<std::vector<ActiveDisplay>()>;

    // Calls `activeDisplays` on the main thread, and `log` if a picture cannot be set.
    MacDesktopPictures(DisplayList activeDisplays, MainQueue& queue, Log log)
        : m_activeDisplays(std::move(activeDisplays)), m_queue(queue), m_log(std::move(log)) {}

    // None for pictures that change by themselves, which the system cannot name.
    [[nodiscard]] std::optional<std::string> picture(const DisplayInfo& display) override;
    // Keeps the current scaling options.
    bool setPicture(const DisplayInfo& display, const std::string& picture) override;

private:
    DisplayList m_activeDisplays;
    MainQueue& m_queue;
    Log m_log;
};

} // namespace vantrel
