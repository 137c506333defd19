// The tab Rules: every application with its rule and what was learned about it.
#pragma once

#include "Vantrel/interface/workbench/WorkbenchPage.h"
#include "Vantrel/interface/workbench/rules/RuleRowView.h"
#include "Vantrel/interface/workbench/rules/RulesActions.h"
#include "Vantrel/interface/workbench/rules/RulesContent.h"

#include <vector>

class QLineEdit;
class QScrollArea;
class QVBoxLayout;

namespace vantrel {

class RulesPage final : public WorkbenchPage {
public:
    // `looks` outlives the page.
    RulesPage(ApplicationLooks& looks, RulesActions actions, QWidget* parent = nullptr);

    void show(const PublishedState& state, Topics changed) override;
    using QWidget::show;
    [[nodiscard]] QLineEdit* searchField() const override { return m_search; }
    void focusFirst() override;
    [[nodiscard]] bool wantsLiveWindows() const override { return true; }

    [[nodiscard]] const std::vector<RuleRowView*>& rows() const { return m_rows; }
    // Asks for the name of an application, or adds the one of that name.
    void startAdding(const QString& name = {});

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QWidget* head();
    [[nodiscard]] QWidget* adding();
    [[nodiscard]] QWidget* columnTitles();
    void refresh();
    void showRows();
    void addApplication();
    void endAdding();

    ApplicationLooks& m_looks;
    RulesActions m_actions;
    const PublishedState* m_state = nullptr;
    std::vector<AppFacts> m_facts;
    // Those that the user wants to give a rule, although they were never seen.
    std::vector<AppFacts> m_added;
    RulesContent m_content;
    RuleRowView::Columns m_columns;
    QLineEdit* m_search = nullptr;
    QWidget* m_adding = nullptr;
    QLineEdit* m_name = nullptr;
    Label* m_problem = nullptr;
    QScrollArea* m_scroll = nullptr;
    QVBoxLayout* m_list = nullptr;
    Label* m_empty = nullptr;
    std::vector<RuleRowView*> m_rows;
};

} // namespace vantrel
