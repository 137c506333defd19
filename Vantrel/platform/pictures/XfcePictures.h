// The pictures of the Xfce desktop: one per monitor, kept by its settings daemon.
#pragma once

#include "Vantrel/platform/x11/X11Connection.h"
#include "VantrelCore/ports/DesktopPictures.h"

#include <memory>
#include <string>

namespace vantrel {

class XfcePictures final : public DesktopPictures {
public:
    explicit XfcePictures(std::shared_ptr<X11Connection> connection) : m_connection(std::move(connection)) {}

    [[nodiscard]] std::optional<std::string> picture(const DisplayInfo& display) override;
    // On every workspace of the display.
    bool setPicture(const DisplayInfo& display, const std::string& picture) override;

private:
    // Where the settings of the display's workspaces begin; none when it is not there any more.
    [[nodiscard]] std::optional<std::string> settingsOf(const DisplayInfo& display) const;

    std::shared_ptr<X11Connection> m_connection;
};

} // namespace vantrel
