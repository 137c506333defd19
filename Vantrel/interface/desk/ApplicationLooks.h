// How applications look in a drawing: the icon, drawn if there is none, and the colour that goes with it.
#pragma once

#include "Vantrel/interface/ports/ApplicationIcons.h"

#include <QColor>
#include <QIcon>

#include <map>
#include <string>

namespace vantrel {

class ApplicationLooks {
public:
    struct Look {
        QIcon icon;
        // The icon's dominant colour, as it is.
        QColor color;
    };

    // `icons` outlives this object; null draws every icon.
    explicit ApplicationLooks(ApplicationIcons* icons) : m_icons(icons) {}

    // The name gives a drawn icon its letter.
    [[nodiscard]] const Look& of(const std::string& bundleID, const std::string& name);

    // Reads the icons again, after the icon theme has changed.
    void forget() { m_looks.clear(); }

private:
    ApplicationIcons* m_icons;
    std::map<std::string, Look> m_looks;
};

} // namespace vantrel
