#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/EmptyLayout.h"
#include "Vantrel/interface/panel/MessageRow.h"
#include "Vantrel/interface/panel/PanelView.h"

#include <QAction>
#include <QLineEdit>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace vantrel {

namespace {

void showButton(ActionButton& view, const PanelContent::Button& button) {
    view.setTexts(qt(button.text), qt(button.detail));
    view.setEnabled(button.isEnabled);
    view.setToolTip(qt(button.reason));
}

} // namespace

void PanelView::show(const PanelContent& content) {
    const bool isFirst = m_phase->text().isEmpty();
    const PanelContent before = std::exchange(m_content, content);
    if (isFirst || (before.deskName != content.deskName && !m_deskName->isModified())) {
        showDeskName();
    }
    m_deskName->setReadOnly(!content.canRename);
    m_deskName->setFocusPolicy(content.canRename ? Qt::StrongFocus : Qt::NoFocus);
    m_phase->show(qt(content.phaseText));
    m_symbol->update();
    m_switch->setChecked(content.isOn);
    m_switch->setToolTip(content.isOn ? qtr("Vantrel learns and restores") : qtr("Vantrel is switched off"));
    if (isFirst || before.messages != content.messages) {
        showMessages();
    }
    m_drawing->show(content.drawing);
    showButtons();
    showLayouts();
    if (isFirst || before.scenes != content.scenes || before.otherScenes != content.otherScenes) {
        showScenes();
    }
    m_sceneField->setEnabled(content.canSaveScene);
    if (before.lastResult != content.lastResult) {
        m_told.reset();
    }
    showResult();
}

void PanelView::showDeskName() {
    const QString name = qt(m_content.deskName);
    const int room =
        m_deskName->width() - 2 * m_deskName->style()->pixelMetric(QStyle::PM_DefaultFrameWidth) - points(4);
    const QString shown =
        m_deskName->hasFocus() ? name : m_deskName->fontMetrics().elidedText(name, Qt::ElideRight, room);
    m_deskName->setText(shown);
    m_deskName->setCursorPosition(0);
    const QString hint = m_content.canRename ? qtr("Click to rename this desk") : QString();
    m_deskName->setToolTip(shown == name ? hint : name);
}

void PanelView::tell(const PanelContent::Result& result) {
    m_told = result;
    showResult();
}

void PanelView::startSavingScene() {
    m_sceneField->setFocus(Qt::OtherFocusReason);
}

void PanelView::focusMainButton() {
    ActionButton* const main = m_content.isEmpty ? m_remember : m_restore;
    QWidget* const target = main->isEnabled() ? static_cast<QWidget*>(main) : m_switch;
    target->setFocus();
}

void PanelView::showMessages() {
    // Else the focus would go to whatever comes next.
    if (m_messages->isAncestorOf(focusWidget())) {
        focusMainButton();
    }
    emptyLayout(*m_messages->layout());
    for (const auto& message : m_content.messages) {
        m_messages->layout()->addWidget(new MessageRow(message, m_actions, m_messages));
    }
    m_messages->setVisible(!m_content.messages.empty());
}

void PanelView::showButtons() {
    showButton(*m_restore, m_content.restore);
    showButton(*m_save, m_content.save);
    showButton(*m_remember, m_content.save);
    showButton(*m_stash, m_content.stash);
    showButton(*m_undo, m_content.undo);
    m_emptyHint->setVisible(m_content.isEmpty);
    const bool hadFocus = m_remember->hasFocus() || m_restore->hasFocus();
    m_remember->setVisible(m_content.isEmpty);
    m_restore->setVisible(!m_content.isEmpty);
    m_secondary->setVisible(!m_content.isEmpty);
    // One takes the other's place when the desk is remembered.
    if (hadFocus) {
        focusMainButton();
    }
}

void PanelView::showLayouts() {
    m_layouts->setVisible(m_content.layouts.has_value());
    if (m_content.layouts) {
        m_layouts->setLayouts(*m_content.layouts);
    }
}

// Rows stay, so that focus and half-typed names survive.
void PanelView::fillScenes(QBoxLayout& column, const std::vector<PanelContent::SceneRow>& rows) {
    for (const auto& row : rows) {
        SceneRowView*& view = m_rows[row.id];
        if (view == nullptr) {
            view = new SceneRowView(row, m_actions, m_body);
            view->onRemoved = [this](const std::string& name) { offerUndo(name, m_actions.scenes.putBack); };
        } else {
            view->show(row);
        }
        column.addWidget(view);
        view->QWidget::show();
    }
}

void PanelView::showScenes() {
    const auto isShown = [this](const std::string& id) {
        const auto has = [&](const std::vector<PanelContent::SceneRow>& rows) {
            return std::ranges::find(rows, id, &PanelContent::SceneRow::id) != rows.end();
        };
        return has(m_content.scenes) || (!m_otherList->isHidden() &&
                                         std::ranges::any_of(m_content.otherScenes, [&](const auto& group) {
                                             return has(group.scenes);
                                         }));
    };
    std::erase_if(m_rows, [&](const auto& row) {
        if (isShown(row.first)) {
            return false;
        }
        row.second->hide();
        row.second->deleteLater();
        return true;
    });
    fillScenes(static_cast<QBoxLayout&>(*m_sceneList->layout()), m_content.scenes);
    m_scenesHint->setVisible(m_content.scenes.empty() && m_content.otherScenes.empty());
    m_others->setVisible(!m_content.otherScenesText.empty());
    m_others->setTexts(qt(m_content.otherScenesText), "");
    if (m_otherList->isHidden()) {
        return;
    }
    // The rows of other desks are few; their headings are made anew.
    auto& column = static_cast<QBoxLayout&>(*m_otherList->layout());
    for (auto* const heading : m_otherList->findChildren<Label*>(QString(), Qt::FindDirectChildrenOnly)) {
        heading->hide();
        heading->deleteLater();
    }
    for (const auto& group : m_content.otherScenes) {
        auto* const heading = new Label(Label::Role::group, m_otherList);
        heading->show(qt(group.deskName));
        heading->setContentsMargins(points(10), points(8), points(10), points(4));
        column.addWidget(heading);
        heading->QWidget::show();
        fillScenes(column, group.scenes);
    }
}

void PanelView::offerUndo(const std::string& name, std::function<void()> undo) {
    m_undoDeletion = std::move(undo);
    m_undoText->show(qtr("“%1” was deleted.").arg(qt(name)));
    m_undoLine->show();
    m_undoEnds.start();
}

void PanelView::sceneNameEdited() {
    const std::string name = m_sceneField->text().trimmed().toStdString();
    const auto problem = name.empty() ? std::nullopt : m_actions.scenes.problemWithName(name);
    m_sceneProblem->show(qt(problem.value_or("")));
    m_sceneProblem->setVisible(problem.has_value());
    m_sceneSave->setVisible(!name.empty() && !problem);
}

void PanelView::showResult() {
    const auto& result = m_told ? m_told : m_content.lastResult;
    m_resultLine->setVisible(result.has_value());
    if (result) {
        m_result->setTexts(qt(result->text), "");
        m_result->setSymbol(result->isProblem ? "warn" : "check");
    }
}

std::vector<SceneRowView*> PanelView::sceneRows() const {
    std::vector<SceneRowView*> rows;
    for (const auto& scene : m_content.scenes) {
        if (const auto found = m_rows.find(scene.id); found != m_rows.end()) {
            rows.push_back(found->second);
        }
    }
    return rows;
}

} // namespace vantrel
