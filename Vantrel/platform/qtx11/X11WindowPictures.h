// WindowPictures of an X server.
#pragma once

#include "Vantrel/interface/ports/WindowPictures.h"
#include "Vantrel/platform/x11/WindowCapture.h"

#include <QTimer>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantrel {

class X11WindowPictures final : public WindowPictures {
public:
    // An empty name is the display of the environment.
    explicit X11WindowPictures(std::string displayName = {});

    void follow(const std::vector<WindowID>& windows, Freshness freshness) override;
    [[nodiscard]] QImage picture(WindowID window) const override;

private:
    void take(WindowID window, const QImage& picture);

    std::vector<WindowID> m_followed;
    std::map<WindowID, QImage> m_pictures;
    // Tells of pictures that arrive together once, as each costs a painting.
    QTimer m_news;
    // Expires with this object, for pictures that are on their way.
    std::shared_ptr<X11WindowPictures*> m_self = std::make_shared<X11WindowPictures*>(this);
    // Ends first.
    WindowCapture m_capture;
};

} // namespace vantrel
