// How applications and their windows look in a drawing: the icon, drawn if there is none, the colour that
// goes with it, and a picture of the window where there is one.
#pragma once

#include "Vantrel/interface/ports/ApplicationIcons.h"
#include "Vantrel/interface/ports/WindowPictures.h"

#include <QColor>
#include <QIcon>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace vantrel {

class ApplicationLooks {
public:
    struct Look {
        QIcon icon;
        // The icon's dominant colour, as it is.
        QColor color;
    };

    // Both outlive this object; null draws every icon, or has no pictures.
    explicit ApplicationLooks(ApplicationIcons* icons, WindowPictures* pictures = nullptr)
        : m_icons(icons), m_pictures(pictures) {}

    // The name gives a drawn icon its letter.
    [[nodiscard]] const Look& of(const std::string& bundleID, const std::string& name);

    // Null without one.
    [[nodiscard]] QImage picture(WindowID window) const {
        return m_pictures != nullptr ? m_pictures->picture(window) : QImage();
    }
    // Calls `changed` after pictures of windows have come or gone, until the result is released.
    [[nodiscard]] std::shared_ptr<void> onPicturesChanged(std::function<void()> changed) {
        return m_pictures != nullptr ? m_pictures->onChanged(std::move(changed)) : nullptr;
    }

    // Reads the icons again, after the icon theme has changed.
    void forget() { m_looks.clear(); }

private:
    ApplicationIcons* m_icons;
    WindowPictures* m_pictures;
    std::map<std::string, Look> m_looks;
};

} // namespace vantrel
