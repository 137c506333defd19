// The context menu of the status item: shows the entries of StatusItemMenuBuilder and does what they say.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "VantrelCore/commands/StatusItemMenu.h"

#include <QMenu>
#include <QSystemTrayIcon>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

// Lives on the main thread; the controller outlives it.
class StatusItemContextMenu {
public:
    // The menu bar is a Mac's; there Qt opens the menu itself on every kind of click.
    enum class Tray : std::uint8_t { statusNotifier, xembed, menuBar };

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

    StatusItemContextMenu(AppController& controller, Actions actions);
    ~StatusItemContextMenu();
    StatusItemContextMenu(const StatusItemContextMenu&) = delete;
    StatusItemContextMenu& operator=(const StatusItemContextMenu&) = delete;

    // Hangs the menu on the icon of a tray of this kind, until uninstall().
    void install(QSystemTrayIcon& icon, Tray tray);
    void uninstall() { m_icon = nullptr; }

    // What a left click on the icon does: opens the panel, or the menu while there is none.
    void clicked();

    // Offers to set Mission Control's settings right, until it is called with null.
    void offerMissionControlFix(std::function<void()> fix);

private:
    void refresh();
    void fill(QMenu& menu, const std::vector<StatusItemMenuEntry>& entries, Tray tray);
    [[nodiscard]] std::vector<StatusItemMenuEntry> wantedEntries() const;
    [[nodiscard]] const std::function<void()>& actionOf(StatusItem::Notice::Kind kind) const;
    [[nodiscard]] bool isOffered(const StatusItemMenuEntry& entry) const;
    void perform(const StatusItemMenuEntry& entry);
    void applyScene(const std::string& id);
    // Shows beside the icon why an entry did nothing.
    [[nodiscard]] RestoreOutcome::Done tellRefusal();

    AppController& m_controller;
    Actions m_actions;
    std::function<void()> m_fixMissionControl;
    QMenu m_menu;
    // What a left click opens while there is no panel.
    QMenu m_popup;
    // Null while it hangs on none.
    QSystemTrayIcon* m_icon = nullptr;
    Tray m_tray = Tray::xembed;
    std::optional<std::vector<StatusItemMenuEntry>> m_shownEntries;
    Publisher::ObserverID m_observer;
    // Expires with this object, for restores that end later.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
