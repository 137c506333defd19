// The tab Desks: the chosen desk on top, and a card for every remembered one.
#pragma once

#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/lists/ListRowsView.h"
#include "Vantrel/interface/workbench/WorkbenchPage.h"
#include "Vantrel/interface/workbench/desks/DeskCardDelegate.h"
#include "Vantrel/interface/workbench/desks/DesksActions.h"

#include <memory>
#include <string>

class QLineEdit;
class QScrollArea;

namespace vantrel {

class DeskDetailView;

class DesksPage final : public WorkbenchPage {
public:
    // `looks` outlives the page.
    DesksPage(ApplicationLooks& looks, DesksActions actions, QWidget* parent = nullptr);

    void show(const PublishedState& state, Topics changed) override;
    using WorkbenchPage::show;
    [[nodiscard]] QLineEdit* searchField() const override { return m_search; }
    void focusFirst() override;
    [[nodiscard]] bool wantsLiveWindows() const override { return true; }
    [[nodiscard]] std::vector<std::pair<QString, QString>> keys() const override;

    [[nodiscard]] const DesksContent& content() const { return m_content; }
    [[nodiscard]] ListRowsView& cards() { return *m_cards; }
    [[nodiscard]] DeskDetailView& detail() { return *m_detail; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QWidget* header();
    [[nodiscard]] QWidget* body();
    void refresh();
    void askForPreview();
    void placeCards();
    [[nodiscard]] DeskPicture drawing(const std::string& configID) const;
    [[nodiscard]] int points(double length) const;

    ApplicationLooks& m_looks;
    DesksActions m_actions;
    const PublishedState* m_state = nullptr;
    DeskLibrary m_library;
    DesksContent m_content;
    std::string m_chosen;
    // Of the chosen desk, if it is absent; empty for its active one.
    std::string m_layout;
    DesksContent::Preview m_preview;
    // The desk and layout that the preview is of.
    std::pair<std::string, std::string> m_previewed;
    // A request is under way; what changes meanwhile asks again.
    bool m_isAsking = false;
    bool m_asksAgain = false;
    bool m_showsInPlace = false;
    QLineEdit* m_search = nullptr;
    QScrollArea* m_scroll = nullptr;
    QWidget* m_body = nullptr;
    DeskDetailView* m_detail = nullptr;
    ListRowsView* m_cards = nullptr;
    DeskCardDelegate* m_delegate = nullptr;
    Label* m_empty = nullptr;
    // Expires with the page, for previews that end later.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
