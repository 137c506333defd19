// Everything that the program shows, tied together: the heads-up display, the panel with the introduction,
// the workbench, the quick switcher, the status item, and the notification of problems.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "Vantrel/interface/HUDOverlay.h"
#include "Vantrel/interface/StatusIcon.h"
#include "Vantrel/interface/desk/PicturedWindows.h"
#include "Vantrel/interface/notifications/ProblemNotifier.h"
#include "Vantrel/interface/panel/PanelPresenter.h"
#include "Vantrel/interface/switcher/QuickSwitcher.h"
#include "Vantrel/interface/workbench/Workbench.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vantrel {

// Lives on the main thread; the controller, and what the services refer to, outlive it. At first it shows
// nothing but events of the controller.
class Surfaces {
public:
    struct Services {
        // Without `trayIcon`, `quit` and what opens the workbench, which are set here.
        PanelPresenter::Services panel{};
        // Without `keyCode` and `showIntroduction`, which are set here.
        SettingsActions::Services settings{};
        // Identifiers and names of the installed applications; where it is null, the scene editor lists those
        // that Vantrel has seen.
        std::function<std::vector<std::pair<std::string, std::string>>()> installedApplications{};
        // Without `recents`, which are set where they are needed.
        WallpaperServices wallpapers{};
        // Called when the workbench opens and when it has closed.
        std::function<void(bool isOpen)> workbenchOpenChanged = [](bool) {};
        // Null where the quick switcher is a window that takes the keys itself.
        HeldKeyboard* keyboard = nullptr;
        // Null when there is nobody to ask.
        std::function<void()> checkForUpdates{};
        // Receives the sentence that says why a menu entry did nothing.
        enum class Refusals : std::uint8_t { besideTheIcon, onTheOverlay };
        Refusals refusals = Refusals::besideTheIcon;
    };

    Surfaces(AppController& controller, const Services& services);
    ~Surfaces();
    Surfaces(const Surfaces&) = delete;
    Surfaces& operator=(const Surfaces&) = delete;

    [[nodiscard]] HUDOverlay& overlay() { return m_overlay; }
    [[nodiscard]] PanelPresenter& panel() { return m_panel; }
    [[nodiscard]] StatusIcon& statusIcon() { return m_statusIcon; }

    // Reports problems until stopTelling(), which must be called before the notifications are destroyed.
    void tellProblems(Notifications& notifications);
    void stopTelling() { m_notifier.reset(); }

    // Both the menu and the panel offer it; null withdraws the offer.
    void offerMissionControlFix(const std::function<void()>& fix, StatusIcon::FixTime time);

private:
    [[nodiscard]] PanelPresenter::Services panelServices(PanelPresenter::Services given);
    [[nodiscard]] StatusIcon::Actions menuActions(const Services& services);
    [[nodiscard]] Workbench::Services workbenchServices(const Services& services);
    // Null when the workbench has no such tab.
    [[nodiscard]] std::function<void()> openTab(WorkbenchTab tab);
    // The panel has its own line for the last restore.
    void showHistory();

    std::function<void()> m_fixMissionControl;
    AppController& m_controller;
    // None without pictures of windows.
    std::optional<PicturedWindows> m_picturedWindows;
    HUDOverlay m_overlay;
    StatusIcon m_statusIcon;
    Workbench m_workbench;
    PanelPresenter m_panel;
    QuickSwitcher m_switcher;
    std::optional<ProblemNotifier> m_notifier;
};

} // namespace vantrel
