// The context menu of the status item: shows the entries of StatusItemMenuBuilder and runs their actions.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "VantrelCore/commands/StatusItemMenu.h"
#include "VantrelCore/ports/MenuBarItem.h"

#include <QMenu>
#include <QSystemTrayIcon>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

// Lives on the main thread; the controller outlives it.
class StatusItemContextMenu {
public:
    // The menu bar is macOS's, which opens a native menu with menuBarEntries().
    enum class Tray : std::uint8_t { statusNotifier, xembed, menuBar };

    struct Actions {
        // Null while these windows do not exist: their entries are then left out, and a left click opens the
        // menu.
        std::function<void()> openPanel{};
        std::function<void()> openLayouts{};
        std::function<void()> openSettings{};
        std::function<void()> purchase{};
        // Null when there is nobody to ask.
        std::function<void()> checkForUpdates{};
        std::function<void()> quit{};
        // Says why an entry did nothing; null shows a message next to the icon.
        std::function<void(const std::string&)> tell{};
    };

    StatusItemContextMenu(AppController& controller, Actions actions);
    ~StatusItemContextMenu();
    StatusItemContextMenu(const StatusItemContextMenu&) = delete;
    StatusItemContextMenu& operator=(const StatusItemContextMenu&) = delete;

    // Attaches the menu to the icon of a tray of this kind, until uninstall().
    void install(QSystemTrayIcon& icon, Tray tray);
    void uninstall() { m_icon = nullptr; }

    // Fills the menu for a menu bar that opens it now. The entries work until the next call.
    [[nodiscard]] std::vector<MenuBarItem::Entry> menuBarEntries();

    // Handles a left click on the icon: opens the panel, or the menu while there is no panel.
    void clicked();

    // When the fix of Mission Control's settings takes effect.
    enum class FixTime : std::uint8_t { atOnce, nextLogin };

    // Offers to fix Mission Control's settings; null withdraws the offer.
    void offerMissionControlFix(std::function<void()> fix, FixTime time);

private:
    void refresh();
    void willOpen();
    void hasClosed();
    void fill(QMenu& menu, const std::vector<StatusItemMenuEntry>& entries, Tray tray);
    [[nodiscard]] std::vector<StatusItemMenuEntry> wantedEntries() const;
    [[nodiscard]] const std::function<void()>& actionOf(StatusItem::Notice::Kind kind) const;
    [[nodiscard]] bool isOffered(const StatusItemMenuEntry& entry) const;
    void perform(const StatusItemMenuEntry& entry);
    void applyScene(const std::string& id);
    void joinOfferedDesk();
    // Says why an entry did nothing.
    void tell(const std::string& text);
    [[nodiscard]] RestoreOutcome::Done showRefusal();

    AppController& m_controller;
    Actions m_actions;
    std::function<void()> m_fixMissionControl;
    FixTime m_fixTime = FixTime::atOnce;
    QMenu m_menu;
    // Opened by a left click while there is no panel.
    QMenu m_popup;
    // Null while not attached.
    QSystemTrayIcon* m_icon = nullptr;
    Tray m_tray = Tray::xembed;
    std::optional<std::vector<StatusItemMenuEntry>> m_shownEntries;
    // A menu that a tray shows does not count as visible.
    bool m_isOpen = false;
    // Trays need not say that they have closed the menu.
    QTimer m_openEnds;
    Publisher::ObserverID m_observer;
    // Expires with this object, for restores that end later.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
