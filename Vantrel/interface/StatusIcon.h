// The status item: an icon in the desktop's tray that shows the phase, with the context menu.
#pragma once

#include "Vantrel/interface/StatusItemContextMenu.h"

#include <functional>
#include <optional>

namespace vantrel {

// Lives on the main thread; the controller outlives it. Qt takes the desktop's own kind of tray: a
// StatusNotifierItem where there is a host for it, else an XEmbed icon.
class StatusIcon {
public:
    using Tray = StatusItemContextMenu::Tray;
    using Actions = StatusItemContextMenu::Actions;

    StatusIcon(AppController& controller, Actions actions);
    ~StatusIcon();
    StatusIcon(const StatusIcon&) = delete;
    StatusIcon& operator=(const StatusIcon&) = delete;

    // To be called when there is a tray, and not before: Qt 6.4 decides once and for all which kind it is.
    // From then on the icon comes back by itself when the tray goes and comes.
    void show(Tray tray);

    // The bus that the icon was on is gone: until it is shown again there is none.
    void leaveStatusNotifier();

    // Offers to set Mission Control's settings right, until it is called with null.
    void offerMissionControlFix(std::function<void()> fix) { m_menu.offerMissionControlFix(std::move(fix)); }

private:
    void refresh();

    AppController& m_controller;
    StatusItemContextMenu m_menu;
    Tray m_tray = Tray::xembed;
    std::optional<QSystemTrayIcon> m_icon;
    std::optional<Phase> m_shownPhase;
    Publisher::ObserverID m_observer;
};

} // namespace vantrel
