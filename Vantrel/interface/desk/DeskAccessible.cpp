#include "Vantrel/interface/desk/DeskAccessible.h"

#include "Vantrel/interface/desk/DeskView.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <QScrollArea>

#include <algorithm>
#include <vector>

namespace vantrel::DeskAccessible {

namespace {

// One window of the drawing, by its place in the reading order.
class Item final : public QAccessibleInterface {
public:
    Item(DeskView* view, std::size_t place) : m_view(view), m_place(place) {}

    [[nodiscard]] bool isValid() const override { return m_view && m_place < m_view->order().size(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(m_view);
    }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid()
                   ? QString::fromStdString(DeskSpeech::window(shown(), m_view->picture().displays))
                   : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override {
        return isValid() ? m_view->frameOf(index()).translated(m_view->mapToGlobal(QPoint())) : QRect();
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        state.focusable = true;
        state.selectable = true;
        state.readOnly = true;
        state.selected = isValid() && m_view->selectedWindow() == index();
        state.focused = state.selected && m_view->hasFocus();
        return state;
    }

private:
    [[nodiscard]] std::size_t index() const { return m_view->order()[m_place]; }
    [[nodiscard]] const DeskPicture::Window& shown() const { return m_view->picture().windows[index()]; }

    QPointer<DeskView> m_view;
    std::size_t m_place;
};

class Drawing final : public QAccessibleWidget {
public:
    explicit Drawing(DeskView* view) : QAccessibleWidget(view, QAccessible::List), m_view(view) {}
    ~Drawing() override {
        for (const QAccessible::Id id : m_items) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    [[nodiscard]] int childCount() const override { return static_cast<int>(m_view->order().size()); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount()) {
            return nullptr;
        }
        while (m_items.size() <= static_cast<std::size_t>(index)) {
            m_items.push_back(QAccessible::registerAccessibleInterface(new Item(m_view, m_items.size())));
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
        const auto& order = m_view->order();
        const auto at = std::ranges::find(order, m_view->selectedWindow());
        return at == order.end() ? nullptr : child(static_cast<int>(at - order.begin()));
    }

private:
    DeskView* m_view;
    mutable std::vector<QAccessible::Id> m_items;
};

QAccessibleInterface* make(const QString& key, QObject* object) {
    if (auto* const view = dynamic_cast<DeskView*>(object)) {
        return new Drawing(view);
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
