// What a tab of the workbench shows. A page is made when its tab is first shown and lives as long as the
// window, so half-typed text, selection and scroll position survive a change of tab.
#pragma once

#include "Vantrel/controller/PublishedState.h"

#include <QLineEdit>
#include <QString>
#include <QWidget>

#include <functional>
#include <utility>
#include <vector>

namespace vantrel {

class WorkbenchPage : public QWidget {
public:
    using QWidget::QWidget;
    using QWidget::show;

    // Called before the page is first seen, after every change of what is published while it is seen, and
    // when it is seen again; `changed` is what has changed since the last call.
    virtual void show(const PublishedState& state, Topics changed) = 0;

    // Focuses the search field, so that typing replaces what is in it.
    virtual void focusSearch() {
        if (QLineEdit* const field = searchField()) {
            field->setFocus(Qt::ShortcutFocusReason);
            field->selectAll();
        }
    }

    // Focuses the page's first control for keyboard users.
    virtual void focusFirst() = 0;

    // Whether the page shows live windows, which are then captured while it is visible.
    [[nodiscard]] virtual bool wantsLiveWindows() const { return false; }

    // Whether the page takes the place of the tabs too.
    [[nodiscard]] virtual bool wantsWholeWindow() const { return false; }
    // Called by the page when that has changed.
    std::function<void()> onWholeWindow = [] {};

    // Null without one.
    [[nodiscard]] virtual QLineEdit* searchField() const { return nullptr; }

    // The page's own keys and what they do, for the help: "Alt+Up" and "Move the scene up".
    [[nodiscard]] virtual std::vector<std::pair<QString, QString>> keys() const { return {}; }
};

} // namespace vantrel
