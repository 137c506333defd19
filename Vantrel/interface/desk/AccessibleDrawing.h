// What assistive technology reads of a drawing: its windows, and whatever else it consists of, as a list.
#pragma once

#include <QRect>
#include <QString>

#include <cstddef>
#include <optional>

namespace vantrel {

// Implemented by a widget that is made accessible by DeskAccessible.
class AccessibleDrawing {
public:
    struct Item {
        QString name;
        // On the widget.
        QRect frame;
        // Only a window can be selected.
        bool isWindow = true;
        bool isSelected = false;
    };

    virtual ~AccessibleDrawing() = default;

    // In reading order.
    [[nodiscard]] virtual std::size_t itemCount() = 0;
    [[nodiscard]] virtual Item item(std::size_t place) = 0;
};

} // namespace vantrel
