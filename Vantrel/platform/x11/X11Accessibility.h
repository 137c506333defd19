// The live desk of an X server with an EWMH window manager.
#pragma once

#include "Vantrel/platform/x11/X11Desk.h"
#include "VantrelCore/ports/Accessibility.h"

#include <memory>
#include <utility>

namespace vantrel {

class X11Accessibility final : public Accessibility {
public:
    explicit X11Accessibility(std::shared_ptr<X11Connection> connection);
    // Shares `desk` with other adapters; it must not be null.
    explicit X11Accessibility(std::shared_ptr<X11Desk> desk) : m_desk(std::move(desk)) {}

    // True while connected and a window manager runs that moves windows on request. X11 needs no permission
    // from the user.
    [[nodiscard]] bool isTrusted() override;

    bool prompt() override { return isTrusted(); }

    [[nodiscard]] std::unique_ptr<DeskReading> beginReading() override;
    bool awaitQuiet() override;

private:
    std::shared_ptr<X11Desk> m_desk;
};

} // namespace vantrel
