// Reads and sets the desktop picture of each screen through the shared workspace.
#pragma once

#include "VantrelCore/ports/DesktopPictures.h"
#include "VantrelCore/ports/DisplayServices.h"
#include "VantrelCore/ports/MainQueue.h"

#include <chrono>
#include <functional>

namespace vantrel {

// The workspace only works on the main thread, so calls from other threads wait for it.
class MacDesktopPictures final : public DesktopPictures {
public:
    using Log = std::function<void(const std::string& message)>;

    static constexpr std::chrono::milliseconds deadline{5000};

    // Uses `displays` on the main thread. Calls `log` there if a picture cannot be set.
    MacDesktopPictures(DisplayServices& displays, MainQueue& queue, Log log)
        : m_displays(displays), m_queue(queue), m_log(std::move(log)) {}

    [[nodiscard]] std::optional<std::string> picture(const DisplayInfo& display) override;
    // Keeps the current scaling options.
    bool setPicture(const DisplayInfo& display, const std::string& picture) override;

private:
    DisplayServices& m_displays;
    MainQueue& m_queue;
    Log m_log;
};

} // namespace vantrel
