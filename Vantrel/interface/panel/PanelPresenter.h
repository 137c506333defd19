// Opens and closes the panel, keeps it in step with what the controller publishes, and passes on what the
// user does in it.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "Vantrel/interface/onboarding/OnboardingWindow.h"
#include "Vantrel/interface/panel/PanelWindow.h"

#include <QTimer>

#include <cstddef>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vantrel {

// Lives on the main thread; the controller outlives it. The window exists only while it is shown; only then
// are the live windows captured.
class PanelPresenter {
public:
    struct Services {
        // Outlives the presenter; null draws every icon.
        ApplicationIcons* icons = nullptr;
        // Outlives the panel; null for no pictures of windows.
        WindowPictures* windowPictures = nullptr;
        HotKeyRecorder::KeyReader keyCode = [](const QKeyEvent&) { return std::nullopt; };
        // Where the tray icon is: none without one, empty when the tray does not say.
        std::function<std::optional<QRect>()> trayIcon = [] { return std::nullopt; };
        // What is missing when windows cannot be moved.
        std::string permissionTitle{};
        std::string permissionDetail{};
        // Opens the system's settings where the user permits it; null on systems that do not ask for that.
        // Where they do, the introduction checks what a Mac needs.
        std::function<void()> openPermissionSettings{};
        std::vector<PanelContent::SessionNote> sessionNotes{};
        std::function<std::size_t()> crashReports = [] { return std::size_t{0}; };
        // Null when there is nobody to send them to. Calls back when it has tried them all.
        std::function<void(std::function<void()> done)> sendCrashReports{};
        // Whether the desktop wants anything to move by itself.
        std::function<bool()> wantsMotion = [] { return true; };
        std::function<void()> purchase{};
        std::function<void()> showUpdate = [] {};
        // Opens the settings file in an editor; false if that is not possible.
        std::function<bool(const std::filesystem::path& file)> openFile = [](const auto&) { return false; };
        std::function<void()> openWorkbench{};
        std::function<void()> openSettings{};
        std::function<void()> showHistory{};
        std::function<void()> quit = [] {};
    };

    PanelPresenter(AppController& controller, Services services);
    ~PanelPresenter();
    PanelPresenter(const PanelPresenter&) = delete;
    PanelPresenter& operator=(const PanelPresenter&) = delete;

    // Opens the panel, or raises it; while the introduction is shown, raises that.
    void open();
    // At the start of the program: shows the introduction to those who have not seen it.
    void welcome();
    // At the start of the program on a desktop without a tray: opens the panel, unless the user does not want
    // that.
    void openWithoutTray();
    // Shows what has changed outside of published state, such as the tray.
    void refresh();
    // Shows a note among those about the session, again if it was dismissed.
    void addSessionNote(const PanelContent::SessionNote& note);
    // Offers to fix Mission Control's settings; null withdraws the offer.
    void offerMissionControlFix(std::function<void()> fix);
    // For a click on the tray icon: opens it, or closes an open one.
    void toggle();
    void close();
    // Shows the introduction; the panel opens after it.
    void openIntroduction();
    [[nodiscard]] OnboardingWindow* introduction() const { return m_introduction.get(); }
    [[nodiscard]] bool isOpen() const { return m_window != nullptr; }
    // Null while it is closed.
    [[nodiscard]] PanelWindow* window() const { return m_window.get(); }

private:
    [[nodiscard]] PanelActions actions();
    void addLayoutChanges(PanelActions& actions);
    void perform(PanelContent::Message::Deed deed, const std::string& typed);
    void dismiss(PanelContent::Message::Kind kind);
    void countCrashReports();
    // Stores the settings that suit the answer.
    [[nodiscard]] PanelActions::Problem take(DockFrequency answer);
    // Stops at the first setting that cannot be stored.
    [[nodiscard]] PanelActions::Problem
    store(std::initializer_list<std::pair<const char*, DefaultsValue>> settings);
    [[nodiscard]] OnboardingWindow::Actions introductionActions();
    void closed();
    void tell(const std::string& text, bool isProblem = true);
    // Says why a restore did not happen.
    [[nodiscard]] RestoreOutcome::Done tellRefusal();

    AppController& m_controller;
    Services m_services;
    ApplicationLooks m_looks;
    std::set<PanelContent::Message::Kind> m_dismissed;
    std::unique_ptr<PanelWindow> m_window;
    std::unique_ptr<OnboardingWindow> m_introduction;
    std::shared_ptr<void> m_live;
    std::optional<Publisher::ObserverID> m_observer;
    // Lets ages grow while the panel is open.
    QTimer m_aging;
    // When it was last closed, since some epoch: the click that closes it may be one on the tray icon.
    qint64 m_closedAt = 0;
    // The layout that was deleted in the open panel.
    std::optional<RecentDeletions::ID> m_removedLayout;
    std::size_t m_crashReports = 0;
    std::function<void()> m_fixMissionControl;
    // Expires with this object, for restores that end later.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
