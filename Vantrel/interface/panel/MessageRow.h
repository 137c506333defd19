// A message in the panel, with its actions and a button that dismisses it.
#pragma once

#include "Vantrel/interface/panel/PanelActions.h"

#include <QWidget>

namespace vantrel {

class MessageRow final : public QWidget {
public:
    // `actions` outlives the row.
    MessageRow(const PanelContent::Message& message, const PanelActions& actions, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QWidget* actionButton(const PanelContent::Message::Action& action);
    // Shows a field for the license key below the text.
    void askForKey();
    // Shows a recorder for the quick switcher's shortcut below the text, and begins to record.
    void recordSwitcherShortcut();

    QLayout* m_column = nullptr;
    HotKeyRecorder* m_recorder = nullptr;
    PanelContent::Message m_message;
    const PanelActions& m_actions;
};

} // namespace vantrel
