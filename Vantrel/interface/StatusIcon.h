// The status item: an icon in the desktop's tray that shows the phase, with the context menu.
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

// Lives on the main thread; the controller outlives it. Qt takes the desktop's own kind of tray: a
// StatusNotifierItem where there is a host for it, else an XEmbed icon.
class StatusIcon {
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
    void offerMissionControlFix(std::function<void()> fix);

private:
    void refresh();
    void fill(QMenu& menu, const std::vector<StatusItemMenuEntry>& entries, Tray tray);
    [[nodiscard]] std::vector<StatusItemMenuEntry> wantedEntries() const;
    [[nodiscard]] const std::function<void()>& actionOf(StatusItem::Notice::Kind kind) const;
    [[nodiscard]] bool isOffered(const StatusItemMenuEntry& entry) const;
    void perform(const StatusItemMenuEntry& entry);
    // Shows beside the icon why an entry did nothing.
    [[nodiscard]] RestoreOutcome::Done tellRefusal();

    AppController& m_controller;
    Actions m_actions;
    std::function<void()> m_fixMissionControl;
    QMenu m_menu;
    // What a left click opens while there is no panel.
    QMenu m_popup;
    Tray m_tray = Tray::xembed;
    std::optional<QSystemTrayIcon> m_icon;
    std::optional<Phase> m_shownPhase;
    std::optional<std::vector<StatusItemMenuEntry>> m_shownEntries;
    Publisher::ObserverID m_observer;
    // Expires with this object, for restores that end later.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
