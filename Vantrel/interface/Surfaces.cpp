#include "Vantrel/interface/Surfaces.h"

#include <QCoreApplication>

#include <utility>

namespace vantrel {

// The status item is made before the panel, which asks for its place; its entries reach the panel only when
// somebody chooses them.
Surfaces::Surfaces(AppController& controller, const Services& services)
    : m_controller(controller), m_statusIcon(controller, menuActions(services)),
      m_workbench(controller, workbenchServices(services)),
      m_panel(controller, panelServices(services.panel)),
      m_switcher(controller, {.icons = services.panel.icons,
                              .windowPictures = services.panel.windowPictures,
                              .keyboard = services.keyboard}) {
    if (services.panel.windowPictures != nullptr) {
        m_picturedWindows.emplace(controller, *services.panel.windowPictures);
    }
    m_overlay.follow(m_controller);
    m_controller.setPanelHandler([this] { m_panel.open(); });
    m_controller.setWorkbenchHandler(
        [this](std::optional<WorkbenchTab> tab) { return m_workbench.open(tab); });
}

Surfaces::~Surfaces() {
    m_controller.setPanelHandler({});
    m_controller.setWorkbenchHandler({});
    m_controller.setHUDHandler({});
}

PanelPresenter::Services Surfaces::panelServices(PanelPresenter::Services given) {
    given.trayIcon = [this] { return m_statusIcon.place(); };
    given.openWorkbench = [this] { m_controller.showWorkbench({}); };
    given.openSettings = openTab(WorkbenchTab::settings);
    given.showHistory = [this] { showHistory(); };
    given.quit = [] { QCoreApplication::quit(); };
    return given;
}

StatusIcon::Actions Surfaces::menuActions(const Services& services) {
    StatusIcon::Actions actions;
    actions.openPanel = [this] { m_panel.toggle(); };
    actions.openLayouts = openTab(WorkbenchTab::desks);
    actions.openSettings = openTab(WorkbenchTab::settings);
    actions.purchase = services.panel.purchase;
    actions.checkForUpdates = services.checkForUpdates;
    actions.quit = [] { QCoreApplication::quit(); };
    if (services.refusals == Services::Refusals::onTheOverlay) {
        actions.tell = [this](const std::string& text) { m_overlay.show({text, "", "warn"}); };
    }
    return actions;
}

void Surfaces::tellProblems(Notifications& notifications) {
    m_notifier.emplace(m_controller, notifications,
                       ProblemNotifier::Panel{.isOpen = [this] { return m_panel.isOpen(); },
                                              .open = [this] { showHistory(); }});
}

Workbench::Services Surfaces::workbenchServices(const Services& services) {
    Workbench::Services found{.icons = services.panel.icons,
                              .windowPictures = services.panel.windowPictures,
                              .keyCode = services.panel.keyCode,
                              .settings = services.settings,
                              .installedApplications = services.installedApplications,
                              .wallpapers = services.wallpapers,
                              .openChanged = services.workbenchOpenChanged};
    found.settings.keyCode = services.panel.keyCode;
    found.settings.showIntroduction = [this] { m_panel.openIntroduction(); };
    found.settings.missionControlFix = [this] { return m_fixMissionControl; };
    return found;
}

std::function<void()> Surfaces::openTab(WorkbenchTab tab) {
    return Workbench::has(tab) ? std::function<void()>([this, tab] { m_controller.showWorkbench(tab); })
                               : nullptr;
}

void Surfaces::showHistory() {
    if (!m_controller.showWorkbench(WorkbenchTab::history)) {
        m_controller.showPanel();
    }
}

void Surfaces::offerMissionControlFix(const std::function<void()>& fix, StatusIcon::FixTime time) {
    m_statusIcon.offerMissionControlFix(fix, time);
    m_panel.offerMissionControlFix(fix);
    m_fixMissionControl = fix;
}

} // namespace vantrel
