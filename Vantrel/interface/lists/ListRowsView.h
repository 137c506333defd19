// A list of rows of which one can be chosen.
#pragma once

#include "Vantrel/interface/lists/ListRowDelegate.h"
#include "Vantrel/interface/lists/ListRowsModel.h"

#include <QListView>

#include <functional>
#include <string>

namespace vantrel {

class ListRowsView final : public QListView {
public:
    // `looks` outlives the view; null for lists without applications.
    explicit ListRowsView(ApplicationLooks* looks, QWidget* parent = nullptr);

    // Selection and scroll position stay with their rows.
    void show(const std::vector<ListRow>& rows);
    using QWidget::show;
    [[nodiscard]] ListRowsModel& rows() { return m_model; }
    [[nodiscard]] ListRowDelegate& delegate() { return m_delegate; }

    // Empty without a selection.
    [[nodiscard]] std::string chosen() const;
    void choose(const std::string& id);

    // Makes the view as high as all its rows, for use inside a scroll area.
    void setShowsAll();

    // Called when another row is chosen, not by choose().
    std::function<void(const std::string& id)> onChosen = [](const auto&) {};
    // Called on Return and on a double click.
    std::function<void(const std::string& id)> onActivated = [](const auto&) {};
    // Called on the menu key and on a right click, with a place on the screen.
    std::function<void(const std::string& id, QPoint place)> onMenu = [](const auto&, QPoint) {};

    // Lets the user drag rows, and move the chosen one with Alt and the arrows. `before` is empty for the
    // end.
    void setMovable(std::function<void(const std::string& id, const std::string& before)> move);

    // Lets the user drag rows to another widget.
    void setSource();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
    void changeEvent(QEvent* event) override;

private:
    void moveChosen(int step);
    void fitHeight();

    ApplicationLooks* m_looks;
    ListRowsModel m_model;
    ListRowDelegate m_delegate;
    bool m_isChoosing = false;
    bool m_showsAll = false;
};

} // namespace vantrel
