// The workbench's window: the tabs in a sidebar, the page of the chosen one, and the bar for what was
// deleted.
#pragma once

#include "Vantrel/interface/lists/ListRowsView.h"
#include "Vantrel/interface/workbench/NoticeBar.h"
#include "Vantrel/interface/workbench/WorkbenchPage.h"

#include <QWidget>

#include <functional>
#include <utility>
#include <vector>

class QStackedWidget;

namespace vantrel {

class WorkbenchWindow final : public QWidget {
public:
    using MakePage = std::function<WorkbenchPage*(QWidget* parent)>;

    WorkbenchWindow();

    // In the order of the tabs; at least one before the window is shown. The page is made when its tab is
    // first shown.
    void add(WorkbenchTab tab, MakePage make);

    // `state` must stay valid as long as the window, or until the next call.
    void show(const PublishedState& state, Topics changed);
    using QWidget::show;

    [[nodiscard]] bool has(WorkbenchTab tab) const { return entryOf(tab) != nullptr; }
    // Nothing happens if there is no such tab.
    void choose(WorkbenchTab tab);
    [[nodiscard]] WorkbenchTab tab() const { return m_tab; }
    // Null while no tab was chosen.
    [[nodiscard]] WorkbenchPage* page() const;
    [[nodiscard]] NoticeBar& notices() { return *m_notices; }
    // The size for a window that was never resized.
    [[nodiscard]] QSize usualSize() const;
    void toggleHelp();

    // Called when another tab is shown, and when the window is minimised or brought back.
    std::function<void()> onSeenChanged = [] {};
    // Called when the user has closed the window.
    std::function<void()> onClosed = [] {};

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class KeptLine;

    struct Entry {
        WorkbenchTab tab = WorkbenchTab::scenes;
        MakePage make{};
        // Null until the tab is first shown.
        WorkbenchPage* page = nullptr;
        // What has changed while it was not seen.
        Topics missed{};
    };

    [[nodiscard]] const Entry* entryOf(WorkbenchTab tab) const;
    [[nodiscard]] Entry* entryOf(WorkbenchTab tab);
    [[nodiscard]] QWidget* sidebar();
    void addKeys();
    void showPage(Entry& entry);
    void makeRoom();
    [[nodiscard]] int points(double length) const;

    std::vector<Entry> m_entries;
    WorkbenchTab m_tab = WorkbenchTab::scenes;
    bool m_hasTab = false;
    const PublishedState* m_state = nullptr;
    QWidget* m_sidebar = nullptr;
    ListRowsView* m_tabs = nullptr;
    QStackedWidget* m_pages = nullptr;
    KeptLine* m_kept = nullptr;
    NoticeBar* m_notices = nullptr;
    QWidget* m_help = nullptr;
};

} // namespace vantrel
