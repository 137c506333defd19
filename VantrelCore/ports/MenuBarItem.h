// Port: the program's item in a menu bar that the system draws, as on a Mac.
#pragma once

#include "VantrelCore/model/Geometry.h"
#include "VantrelCore/model/HotKeyCombo.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

// Used on the main thread.
class MenuBarItem {
public:
    // An entry of the menu; without a title, a separator.
    struct Entry {
        std::string title;
        bool isEnabled = true;
        bool isChecked = false;
        // Shown beside the title, and works while the menu is open.
        std::optional<HotKeyCombo> shortcut{};
        std::function<void()> perform;
    };

    struct Handlers {
        // A click with the main button.
        std::function<void()> clicked;
        // A click with another button, or with the Control key held. Returns the entries of the menu, which
        // stay as they are until it closes.
        std::function<std::vector<Entry>()> menu;
    };

    MenuBarItem() = default;
    MenuBarItem(const MenuBarItem&) = delete;
    MenuBarItem& operator=(const MenuBarItem&) = delete;
    virtual ~MenuBarItem() = default;

    virtual void setHandlers(Handlers handlers) = 0;

    // One square picture in several resolutions, as PNG data. Only its opacity counts: the system colours it
    // to suit the menu bar.
    virtual void setPicture(const std::vector<std::string>& resolutions) = 0;

    // Shown when the pointer rests on the item, and spoken by screen readers.
    virtual void setDescription(const std::string& text) = 0;

    // In global points, origin at the top left of the primary display. None while it is not on a screen.
    [[nodiscard]] virtual std::optional<Rect> frame() = 0;
};

} // namespace vantrel
