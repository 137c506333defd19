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
    // On a desk that it shares with other adapters. Never null.
    explicit X11Accessibility(std::shared_ptr<X11Desk> desk) : m_desk(std::move(desk)) {}

    // While connected, and a window manager runs that moves windows on request. X11 asks no user for
    // permission.
    [[nodiscard]] bool isTrusted() override;

    bool prompt() override { return isTrusted(); }

    [[nodiscard]] std::unique_ptr<DeskReading> beginReading() override;
    bool awaitQuiet() override;

private:
    std::shared_ptr<X11Desk> m_desk;
};

} // namespace vantrel
