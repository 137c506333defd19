#include "Vantrel/interface/desk/DeskAccessible.h"

#include "Vantrel/interface/desk/AccessibleDrawing.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <QScrollArea>

#include <vector>

namespace vantrel::DeskAccessible {

namespace {

// One part of the drawing, by its place in the reading order.
class Item final : public QAccessibleInterface {
public:
    Item(QWidget* widget, AccessibleDrawing* drawing, std::size_t place)
        : m_widget(widget), m_drawing(drawing), m_place(place) {}

    [[nodiscard]] bool isValid() const override { return m_widget && m_place < m_drawing->itemCount(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(m_widget);
    }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? m_drawing->item(m_place).name : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override {
        return isValid() ? m_drawing->item(m_place).frame.translated(m_widget->mapToGlobal(QPoint()))
                         : QRect();
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        state.readOnly = true;
        if (isValid()) {
            const auto item = m_drawing->item(m_place);
            state.focusable = item.isWindow;
            state.selectable = item.isWindow;
            state.selected = item.isSelected;
            state.focused = item.isSelected && m_widget->hasFocus();
        }
        return state;
    }

private:
    QPointer<QWidget> m_widget;
    AccessibleDrawing* m_drawing;
    std::size_t m_place;
};

class Drawing final : public QAccessibleWidget {
public:
    Drawing(QWidget* widget, AccessibleDrawing* drawing)
        : QAccessibleWidget(widget, QAccessible::List), m_drawing(drawing) {}
    ~Drawing() override {
        for (const QAccessible::Id id : m_items) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    [[nodiscard]] int childCount() const override { return static_cast<int>(m_drawing->itemCount()); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount()) {
            return nullptr;
        }
        while (m_items.size() <= static_cast<std::size_t>(index)) {
            m_items.push_back(
                QAccessible::registerAccessibleInterface(new Item(widget(), m_drawing, m_items.size())));
        }
        return QAccessible::accessibleInterface(m_items[static_cast<std::size_t>(index)]);
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        for (std::size_t i = 0; i < m_items.size(); ++i) {
            if (QAccessible::accessibleInterface(m_items[i]) == child) {
                return static_cast<int>(i);
            }
        }
        return -1;
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override {
        for (std::size_t i = 0; i < m_drawing->itemCount(); ++i) {
            if (m_drawing->item(i).isSelected) {
                return child(static_cast<int>(i));
            }
        }
        return nullptr;
    }

private:
    AccessibleDrawing* m_drawing;
    mutable std::vector<QAccessible::Id> m_items;
};

QAccessibleInterface* make(const QString& key, QObject* object) {
    if (auto* const drawing = dynamic_cast<AccessibleDrawing*>(object)) {
        return new Drawing(qobject_cast<QWidget*>(object), drawing);
    }
    // Qt 6.4's own crashes when a screen reader asks for a scroll bar that has just disappeared.
    auto* const area = key == "QScrollArea" ? qobject_cast<QScrollArea*>(object) : nullptr;
    return area != nullptr ? new QAccessibleWidget(area, QAccessible::Client) : nullptr;
}

} // namespace

void install() {
    // Qt asks once for every class in an object's hierarchy; without a class of its own the view is a
    // QWidget.
    static const bool isInstalled = [] {
        QAccessible::installFactory(make);
        return true;
    }();
    static_cast<void>(isInstalled);
}

} // namespace vantrel::DeskAccessible
