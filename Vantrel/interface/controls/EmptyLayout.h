// Removes everything from a layout. The widgets are deleted later, as one of them may be handling an event.
#pragma once

#include <QLayout>
#include <QWidget>

#include <memory>

namespace vantrel {

inline void emptyLayout(QLayout& layout) {
    while (const std::unique_ptr<QLayoutItem> item{layout.takeAt(0)}) {
        if (item->widget() != nullptr) {
            item->widget()->hide();
            item->widget()->deleteLater();
        }
    }
}

} // namespace vantrel
