// Vantrel on macOS: the program itself, and the only place that chooses adapters and wires objects together.
#include "Vantrel/StartSentences.h"
#include "Vantrel/Vendor.h"
#include "Vantrel/VendorServices.h"
#include "Vantrel/commands/IntentsBridge.h"
#include "Vantrel/controller/AppController.h"
#include "Vantrel/controller/AppLog.h"
#include "Vantrel/diagnostics/CrashTest.h"
#include "Vantrel/diagnostics/CrashUploader.h"
#include "Vantrel/diagnostics/UpdateChecker.h"
#include "Vantrel/interface/ShortcutText.h"
#include "Vantrel/interface/ShownWindows.h"
#include "Vantrel/interface/Surfaces.h"
#include "Vantrel/interface/desk/PictureIcons.h"
#include "Vantrel/interface/symbols/Symbols.h"
#include "Vantrel/licensing/LicenseManager.h"
#include "Vantrel/platform/macos/ApplicationPictures.h"
#include "Vantrel/platform/macos/CarbonHotKeys.h"
#include "Vantrel/platform/macos/FocusFilterReader.h"
#include "Vantrel/platform/macos/FocusReturn.h"
#include "Vantrel/platform/macos/LaunchNotice.h"
#include "Vantrel/platform/macos/LoginItem.h"
#include "Vantrel/platform/macos/MacAccessibility.h"
#include "Vantrel/platform/macos/MacCalendarReader.h"
#include "Vantrel/platform/macos/MacDesktopPictures.h"
#include "Vantrel/platform/macos/MacDisplayServices.h"
#include "Vantrel/platform/macos/MacFolders.h"
#include "Vantrel/platform/macos/MacLocalZone.h"
#include "Vantrel/platform/macos/MacMachineIdentity.h"
#include "Vantrel/platform/macos/MacMainQueue.h"
#include "Vantrel/platform/macos/MacMenuBarItem.h"
#include "Vantrel/platform/macos/MacNotifications.h"
#include "Vantrel/platform/macos/MacSystemEvents.h"
#include "Vantrel/platform/macos/MacSystemSymbols.h"
#include "Vantrel/platform/macos/MacUserDefaults.h"
#include "Vantrel/platform/macos/MacWork.h"
#include "Vantrel/platform/macos/MacWorkspace.h"
#include "Vantrel/platform/macos/MissionControlFixer.h"
#include "Vantrel/platform/macos/MissionControlReader.h"
#include "Vantrel/platform/macos/ObjCExceptions.h"
#include "Vantrel/platform/macos/ProgramPresence.h"
#include "Vantrel/platform/macos/ReopenNotice.h"
#include "Vantrel/platform/macos/RunningApplications.h"
#include "Vantrel/platform/macos/Screens.h"
#include "Vantrel/platform/macos/SessionState.h"
#include "Vantrel/platform/macos/StandardUpdater.h"
#include "Vantrel/platform/macos/SystemFacts.h"
#include "Vantrel/platform/posix/CrashReporter.h"
#include "Vantrel/platform/posix/InstanceLock.h"
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "Vantrel/platform/posix/SystemClock.h"
#include "Vantrel/platform/posix/ThreadBackground.h"
#include "Vantrel/platform/posix/WallpaperFolders.h"
#include "Vantrel/platform/qt/OperatingSystemName.h"
#include "Vantrel/platform/qt/QtHttpClient.h"
#include "Vantrel/platform/thumbnails/ThumbnailStore.h"
#include "VantrelCore/ports/PatientFileSystem.h"
#include "VantrelCore/scenes/SystemWallpaperCatalog.h"
#include "VantrelCore/windows/AXPermission.h"
#include "VantrelCore/windows/AccessibilityDesk.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>

#include <cstdlib>
#include <fmt/format.h>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace {

using namespace vantrel;

constexpr const char* ownBundleID = "org.vantrel.Vantrel";

int complain(const std::string& sentence) {
    fmt::print(stderr, "Vantrel: {}\n", sentence);
    // A menu-bar program's windows open behind those of the active one.
    ProgramPresence::activate();
    QMessageBox::critical(nullptr, "Vantrel", QString::fromStdString(sentence));
    return 1;
}

SystemDescription systemDescription() {
    return {.version = VANTREL_VERSION,
            .build = SystemFacts::programBuild(),
            .operatingSystem = operatingSystemName(),
            .hardware = SystemFacts::hardwareModel()};
}

const char* describe(MissionControlConfig::Classification classification) {
    switch (classification) {
    case MissionControlConfig::Classification::winning:
        return "winning";
    case MissionControlConfig::Classification::losing:
        return "losing";
    case MissionControlConfig::Classification::unknown:
        break;
    }
    return "unknown";
}

// All objects of the program, in order of construction: each outlives those that use it.
class Program {
public:
    Program(const std::filesystem::path& supportDirectory, const SystemDescription& system)
        : m_supportDirectory(supportDirectory), m_system(system), m_log(supportDirectory, m_files, m_clock) {}

    // Called before launching finishes. Returns a sentence on failure.
    [[nodiscard]] std::optional<std::string> construct() {
        m_license.start();
        m_updater = StandardUpdater::start();
        m_updates.attach(m_updater.get());
        m_updates.startup();
        m_log.write(std::string("mission control config: ") +
                    describe(MissionControlReader::read().classification()));
        const ControllerPorts ports{m_desk,  m_displays, m_workspace,  m_systemEvents, m_defaults,
                                    m_clock, m_queue,    m_background, m_localZone,    m_calendar,
                                    m_focus, m_pictures, m_hotKeys,    m_license};
        auto controller = AppController::create(
            ports, {m_files, &m_incidents}, m_log,
            {.supportDirectory = m_supportDirectory,
             .ownBundleID = ownBundleID,
             .version = VANTREL_VERSION,
             .setLaunchAtLogin = LoginItem::setLaunchAtLogin,
             .settingsWithoutEffect = {"calendarFolders", "showPanelWithoutTray", "showWindowPreviews"}});
        if (!controller) {
            return folderIsUnusable(m_supportDirectory, controller.error());
        }
        m_controller = std::move(*controller);
        m_updates.setChangeHandler([this] { m_controller->setLatestAvailable(m_updates.latestAvailable()); });
        m_controller->setLatestAvailable(m_updates.latestAvailable());
        m_intents.emplace(*m_controller, [this](const auto& name) { m_focus.filterRan(name); });
        m_surfaces.emplace(*m_controller, surfaceServices());
        ProgramPresence::showOnEverySpace(m_surfaces->overlay().winId());
        return std::nullopt;
    }

    // Called when launching has finished.
    void finishedLaunching() {
        ProgramPresence::setShown(Settings(m_defaults).showDockIcon().value_or(false));
        CrashReporter::installExceptionHandler(CrashReporter::OtherExceptions::reportedByRuntime);
        ObjCExceptions::reportUncaught(CrashReporter::reportUncaught);
        if (!AXPermission::isGranted(m_desk)) {
            AXPermission::prompt(m_desk);
        }
        m_surfaces->panel().welcome();
        m_controller->watchForPermission();
        m_controller->startEngine();
        showSurfaces();
        offerMissionControlFix();
        m_crashUploader.uploadPendingReportsAfterDelay();
        m_crashTest = CrashTest::schedule(m_queue, std::getenv(CrashTest::environmentVariable));
        m_log.write("network: " + QtHttpClient::tlsSupport());
        m_log.write("start: vantrel " VANTREL_VERSION);
    }

private:
    Surfaces::Services surfaceServices() {
        Surfaces::Services services{.refusals = Surfaces::Services::Refusals::onTheOverlay};
        offerVendor(services, m_vendor, m_updates, m_crashUploader, ProgramPresence::openPage,
                    m_updater != nullptr);
        PanelPresenter::Services& panel = services.panel;
        panel.icons = &m_icons;
        panel.keyCode = [](const QKeyEvent& event) { return std::optional(event.nativeVirtualKey()); };
        panel.permissionTitle = "Vantrel needs Accessibility access";
        panel.permissionDetail = "Allow Vantrel in System Settings, Privacy & Security, Accessibility.";
        panel.openPermissionSettings = ProgramPresence::openAccessibilitySettings;
        panel.wantsMotion = ProgramPresence::wantsMotion;
        services.settings.supportDirectory = m_supportDirectory;
        services.settings.logFile = m_log.file();
        services.settings.files = &m_files;
        services.settings.operatingSystem = m_system.operatingSystem;
        services.wallpapers.thumbnails = &m_thumbnails;
        services.wallpapers.readSystem = [this](const auto& done) { readWallpapers(done); };
        // The Dock has an icon while it is open.
        services.workbenchOpenChanged = [this](bool isOpen) {
            ProgramPresence::setShown(isOpen || Settings(m_defaults).showDockIcon().value_or(false));
        };
        return services;
    }

    void readWallpapers(const std::function<void(WallpaperServices::List)>& done) {
        m_background.run(WorkPriority::userInitiated, [this, done] {
            const posix::WallpaperFolders folders{
                .pictures = {SystemWallpaperCatalog::directory, "/Library/Desktop Pictures"}};
            m_queue.post([done, found = folders.read({})] { done(found); });
        });
    }

    void showSurfaces() {
        m_menuBarItem.emplace();
        m_surfaces->statusIcon().showInMenuBar(*m_menuBarItem);
        m_reopen.emplace([this] { m_surfaces->panel().open(); });
        m_surfaces->tellProblems(m_notifications);
    }

    void offerMissionControlFix() {
        using Classification = MissionControlConfig::Classification;
        using FixTime = StatusIcon::FixTime;
        const MissionControlConfig config = MissionControlReader::read();
        if (config.classification() != Classification::losing) {
            m_surfaces->offerMissionControlFix({}, FixTime::atOnce);
            return;
        }
        const FixTime time = config.isFixedAtLogin() ? FixTime::nextLogin : FixTime::atOnce;
        const auto fix = [this, time] {
            const bool isApplied = MissionControlFixer::apply();
            m_log.write(
                !isApplied ? "mission control: the settings could not be written"
                : time == FixTime::nextLogin
                    ? "mission control: settings fixed; each display has its own Spaces after the next login"
                    : "mission control: settings fixed so that windows stay in place");
            if (isApplied && !Settings(m_defaults).setMissionControlFixApplied(true)) {
                m_log.write("mission control: the fix could not be recorded in the settings");
            }
            // Deferred: this call removes the action that is running.
            m_queue.post([this] { offerMissionControlFix(); });
        };
        m_surfaces->offerMissionControlFix(fix, time);
    }

    void logSoon(const std::string& message) {
        m_queue.post([this, message] { m_log.write(message); });
    }

    std::filesystem::path m_supportDirectory;
    SystemDescription m_system;
    PosixFileSystem m_disk;
    SystemClock m_clock;
    PatientFileSystem m_files{m_disk, m_clock};
    AppLog m_log;
    FileIncidents m_incidents{[this](const std::string& message) { m_log.write(message); }};
    MacMainQueue m_queue{[this](const std::string& message) { m_log.write(message); }};
    MacUserDefaults m_defaults{m_queue};
    QtHttpClient m_http{"vantrel/" VANTREL_VERSION};
    Vendor m_vendor = vendor();
    MacMachineIdentity m_machine;
    LicenseManager m_license{
        {.supportDirectory = m_supportDirectory,
         .recordCopy = m_supportDirectory.parent_path() / ownBundleID / "license-record.json",
         .apiServer = m_vendor.apiServer,
         .publicKey = m_vendor.licensePublicKey,
         .log = [this](const std::string& message) { m_log.write(message); }},
        {m_files, &m_incidents},
        m_clock,
        m_queue,
        m_http,
        m_machine};
    MacAccessibility m_accessibility{RunningApplications::read, m_clock};
    MacDisplayServices m_displays{Screens::read};
    MacWorkspace m_workspace{[this](const std::string& message) { logSoon(message); }};
    MacSystemEvents m_systemEvents{SessionState::isLocked, SessionState::areScreensAsleep, m_queue};
    MacLocalZone m_localZone;
    MacCalendarReader m_calendar;
    FocusFilterReader m_focus;
    MacDesktopPictures m_pictures{MacDisplayServices::activeDisplays, m_queue,
                                  [this](const std::string& message) { m_log.write(message); }};
    CarbonHotKeys m_hotKeys;
    // Destroyed before the adapters that its work uses.
    ThreadBackground m_background{[this](const std::string& message) { logSoon(message); }, MacWork::perform};
    AccessibilityDesk m_desk{m_accessibility, m_background};
    CrashUploader m_crashUploader{m_files,
                                  m_defaults,
                                  m_http,
                                  m_queue,
                                  m_log,
                                  {.crashesDirectory = CrashReporter::crashesDirectory(m_supportDirectory),
                                   .apiServer = m_vendor.apiServer,
                                   .system = m_system}};
    std::unique_ptr<ScheduledWork> m_crashTest;
    std::unique_ptr<StandardUpdater> m_updater;
    UpdateChecker m_updates{{.currentVersion = VANTREL_VERSION,
                             .apiServer = m_vendor.apiServer,
                             .website = m_vendor.website,
                             .activateApplication = ProgramPresence::activate,
                             .openPage = [](const std::string& url) { ProgramPresence::openPage(url); }},
                            m_defaults,
                            m_clock,
                            m_queue,
                            m_http,
                            m_log};
    std::unique_ptr<AppController> m_controller;
    std::optional<IntentsBridge> m_intents;
    PictureIcons m_icons{ApplicationPictures::read};
    // No other program shares a cache of thumbnails.
    ThumbnailStore m_thumbnails{ThumbnailCache({})};
    FocusReturn m_focusReturn;
    ShownWindows m_shownWindows{{.shown = [this] { m_focusReturn.windowShown(); },
                                 .lastClosed = [this] { m_focusReturn.lastWindowClosed(); }}};
    MacNotifications m_notifications;
    std::optional<MacMenuBarItem> m_menuBarItem;
    std::optional<Surfaces> m_surfaces;
    std::optional<ReopenNotice> m_reopen;
};

} // namespace

int main(int argumentCount, char** arguments) {
    QApplication application(argumentCount, arguments);
    application.setQuitOnLastWindowClosed(false);
    application.setApplicationDisplayName("Vantrel");
    ShortcutText::use(ShortcutText::Style::glyphs);
    MacSystemSymbols symbols;
    Symbols::useSystem(&symbols);
    const auto supportDirectory = MacFolders::supportDirectory();
    if (!supportDirectory) {
        return complain("macOS provides no Application Support folder for the layouts.");
    }
    const SystemDescription system = systemDescription();
    CrashReporter::install(*supportDirectory, system);
    if (const auto error = PosixFileSystem().createDirectories(*supportDirectory)) {
        return complain(folderIsUnusable(*supportDirectory, error));
    }
    // Held until everything that writes files has been destroyed.
    const auto lock = InstanceLock::take(*supportDirectory);
    if (!lock) {
        // Whoever starts it again wants to see it.
        ReopenNotice::send();
        fmt::print(stderr, "Vantrel is already running{}; its panel is open now.\n",
                   lock.error().empty() ? "" : " (" + lock.error() + ")");
        return 0;
    }
    Program program(*supportDirectory, system);
    if (const auto problem = program.construct()) {
        return complain(*problem);
    }
    const LaunchNotice launch([&] { program.finishedLaunching(); });
    return QApplication::exec();
}
