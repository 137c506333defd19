// xfce4-panel along the upper edge of the private desk, with a tray and nothing else.
#pragma once

#include "tools/desk/PrivateDesk.h"

#include <cstdint>

namespace vantrel::tools {

class Panel {
public:
    static constexpr double thickness = 30;

    enum class Look : std::uint8_t { light, dark };

    // Does not start the panel yet. The panel's settings service belongs to the desk, so a desk has one look
    // only.
    Panel(PrivateDesk& desk, Look look);

    // Returns when the panel is on screen.
    void start();
    void end();

private:
    PrivateDesk& m_desk;
    ChildProcess* m_process = nullptr;
};

} // namespace vantrel::tools
