// Wallpapers on Xfce, whose settings daemon keeps one per monitor and workspace.
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
    // Sets the picture on every workspace of the display.
    bool setPicture(const DisplayInfo& display, const std::string& picture) override;

private:
    // The path prefix of the settings for the display's workspaces; none if the display is gone.
    [[nodiscard]] std::optional<std::string> settingsOf(const DisplayInfo& display) const;

    std::shared_ptr<X11Connection> m_connection;
};

} // namespace vantrel
