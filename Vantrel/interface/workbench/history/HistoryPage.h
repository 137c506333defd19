// The tab History: restores or applications in the list, the chosen one opened beside it.
#pragma once

#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/desk/DeskView.h"
#include "Vantrel/interface/lists/ListRowsView.h"
#include "Vantrel/interface/workbench/WorkbenchPage.h"
#include "Vantrel/interface/workbench/history/DayBars.h"
#include "Vantrel/interface/workbench/history/HistoryContent.h"

#include <functional>
#include <string>

class QLineEdit;
class QPushButton;
class QScrollArea;

namespace vantrel {

struct HistoryActions {
    // The moment, the zone, the log and the applications; what is searched and chosen is left empty.
    std::function<HistoryContent::Context()> context = [] { return HistoryContent::Context{.now = {}}; };
    std::function<void()> undo = [] {};
    std::function<void(const std::string& text)> copy = [](const auto&) {};
};

class HistoryPage final : public WorkbenchPage {
public:
    // `looks` outlives the page.
    HistoryPage(ApplicationLooks& looks, HistoryActions actions, QWidget* parent = nullptr);

    void show(const PublishedState& state, Topics changed) override;
    using WorkbenchPage::show;
    [[nodiscard]] QLineEdit* searchField() const override { return m_search; }
    void focusFirst() override;
    [[nodiscard]] std::vector<std::pair<QString, QString>> keys() const override;

    [[nodiscard]] const HistoryContent& content() const { return m_content; }
    [[nodiscard]] ListRowsView& rows() { return *m_rows; }
    [[nodiscard]] DeskView& drawing() { return *m_drawing; }
    void showList(HistoryContent::List list);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QWidget* listSide();
    [[nodiscard]] QWidget* filters(QWidget* parent);
    [[nodiscard]] QWidget* totals(QWidget* parent);
    [[nodiscard]] QWidget* detailSide();
    [[nodiscard]] QWidget* emptyHint();
    void refresh();
    void showDetail();
    [[nodiscard]] int points(double length) const;

    ApplicationLooks& m_looks;
    HistoryActions m_actions;
    const PublishedState* m_state = nullptr;
    HistoryContent m_content;
    HistoryContent::List m_list = HistoryContent::List::restores;
    // Of each list.
    std::string m_chosenRestore;
    std::string m_chosenApp;
    bool m_showsInPlace = false;

    QPushButton* m_restores = nullptr;
    QPushButton* m_apps = nullptr;
    QLineEdit* m_search = nullptr;
    QPushButton* m_problems = nullptr;
    ListRowsView* m_rows = nullptr;
    DayBars* m_days = nullptr;
    Label* m_daysText = nullptr;
    Label* m_usage = nullptr;
    QScrollArea* m_scroll = nullptr;
    QWidget* m_detail = nullptr;
    Label* m_title = nullptr;
    Label* m_subtitle = nullptr;
    ActionButton* m_copy = nullptr;
    ActionButton* m_undo = nullptr;
    DeskView* m_drawing = nullptr;
    QWidget* m_legend = nullptr;
    ListRowsView* m_lines = nullptr;
    ActionButton* m_inPlace = nullptr;
    QWidget* m_empty = nullptr;
    Label* m_emptyTitle = nullptr;
    Label* m_emptyText = nullptr;
};

} // namespace vantrel
