// The status item: an icon in the tray or in the menu bar that shows the phase and has the context menu.
#pragma once

#include "Vantrel/interface/StatusItemContextMenu.h"

#include <functional>
#include <memory>
#include <optional>

namespace vantrel {

// Lives on the main thread; the controller outlives it. Qt chooses the kind of tray: a StatusNotifierItem if
// it has a host, else an XEmbed icon.
class StatusIcon {
public:
    using Tray = StatusItemContextMenu::Tray;
    using FixTime = StatusItemContextMenu::FixTime;
    using Actions = StatusItemContextMenu::Actions;

    StatusIcon(AppController& controller, Actions actions);
    ~StatusIcon();
    StatusIcon(const StatusIcon&) = delete;
    StatusIcon& operator=(const StatusIcon&) = delete;

    // Call only once there is a tray: Qt 6.4 chooses its kind once and for all. From then on the icon
    // reappears automatically when the tray goes away and comes back.
    void show(Tray tray);

    // The same in a menu bar, which is a Mac's. `item` outlives this.
    void showInMenuBar(MenuBarItem& item);

    // The bus that the icon was on has been lost: removes the icon until it is shown again.
    void leaveStatusNotifier();

    // Where the icon is on the screen; none while it is not shown. Empty when the tray does not say.
    [[nodiscard]] std::optional<QRect> place() const;

    // Offers to fix Mission Control's settings; null withdraws the offer.
    void offerMissionControlFix(std::function<void()> fix, FixTime time) {
        m_menu.offerMissionControlFix(std::move(fix), time);
    }

private:
    class PaletteWatch;

    void refresh();

    AppController& m_controller;
    StatusItemContextMenu m_menu;
    Tray m_tray = Tray::xembed;
    std::optional<QSystemTrayIcon> m_icon;
    MenuBarItem* m_item = nullptr;
    std::optional<Phase> m_shownPhase;
    Publisher::ObserverID m_observer;
    std::unique_ptr<PaletteWatch> m_paletteWatch;
};

} // namespace vantrel
