// The status item: an icon in the desktop's tray that shows the phase, with the context menu.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "VantrelCore/commands/StatusItemMenu.h"

#include <QMenu>
#include <QSystemTrayIcon>
#include <QTimer>

#include <functional>
#include <optional>
#include <vector>

namespace vantrel {

// Lives on the main thread; the controller outlives it. Qt takes the desktop's own kind of tray: a
// StatusNotifierItem where there is a host for it, else an XEmbed icon. A tray that appears later is found.
class StatusIcon {
public:
    struct Actions {
        // Absent as long as there are no such windows: their entries are then left out, and a left click
        // opens the menu.
        std::function<void()> openPanel{};
        std::function<void()> openLayouts{};
        std::function<void()> openSettings{};
        std::function<void()> purchase{};
        std::function<void()> checkForUpdates{};
        std::function<void()> quit{};
    };

    StatusIcon(AppController& controller, Actions actions);
    ~StatusIcon();
    StatusIcon(const StatusIcon&) = delete;
    StatusIcon& operator=(const StatusIcon&) = delete;

private:
    void showWhenThereIsATray();
    void refresh();
    void fillMenu(const std::vector<StatusItemMenuEntry>& entries);
    [[nodiscard]] bool isOffered(const StatusItemMenuEntry& entry) const;
    void perform(const StatusItemMenuEntry& entry);

    AppController& m_controller;
    Actions m_actions;
    QMenu m_menu;
    QSystemTrayIcon m_icon;
    QTimer m_search;
    std::optional<Phase> m_shownPhase;
    std::optional<std::vector<StatusItemMenuEntry>> m_shownEntries;
    Publisher::ObserverID m_observer;
};

} // namespace vantrel
