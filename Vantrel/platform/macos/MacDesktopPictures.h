// The desktop picture of each screen, through the shared workspace.
#pragma once

#include "VantrelCore/ports/DesktopPictures.h"
#include "VantrelCore/ports/DisplayServices.h"
#include "VantrelCore/ports/MainQueue.h"

#include <chrono>
#include <functional>

namespace vantrel {

// The workspace shows pictures on the main thread only, so a call waits for that.
class MacDesktopPictures final : public DesktopPictures {
public:
    using Log = std::function<void(const std::string& message)>;

    static constexpr std::chrono::milliseconds deadline{5000};

    // `displays` is used on the main thread. `log` hears on the main thread why a picture was not taken.
    MacDesktopPictures(DisplayServices& displays, MainQueue& queue, Log log)
        : m_displays(displays), m_queue(queue), m_log(std::move(log)) {}

    [[nodiscard]] std::optional<std::string> picture(const DisplayInfo& display) override;
    // How the picture fills the screen stays as it is.
    bool setPicture(const DisplayInfo& display, const std::string& picture) override;

private:
    DisplayServices& m_displays;
    MainQueue& m_queue;
    Log m_log;
};

} // namespace vantrel
