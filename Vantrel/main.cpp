// vantrel: the program itself, and the only place that chooses adapters and wires objects together.
#include "Vantrel/LaunchAtLogin.h"
#include "Vantrel/StartChecks.h"
#include "Vantrel/StartSentences.h"
#include "Vantrel/Vendor.h"
#include "Vantrel/VendorServices.h"
#include "Vantrel/commands/ControlNames.h"
#include "Vantrel/commands/ControlService.h"
#include "Vantrel/commands/verbs/TranslatedHelp.h"
#include "Vantrel/commands/verbs/UsageMistake.h"
#include "Vantrel/controller/AppController.h"
#include "Vantrel/controller/AppLog.h"
#include "Vantrel/controller/DefaultsWithNotes.h"
#include "Vantrel/diagnostics/CrashTest.h"
#include "Vantrel/diagnostics/CrashUploader.h"
#include "Vantrel/diagnostics/UpdateChecker.h"
#include "Vantrel/interface/Surfaces.h"
#include "Vantrel/licensing/LicenseManager.h"
#include "Vantrel/platform/gio/DesktopFocusReader.h"
#include "Vantrel/platform/gio/DesktopMotion.h"
#include "Vantrel/platform/ical/IcalCalendarReader.h"
#include "Vantrel/platform/icons/InstalledApplications.h"
#include "Vantrel/platform/icons/ThemeIcons.h"
#include "Vantrel/platform/linux/HardwareModel.h"
#include "Vantrel/platform/linux/ProgramBuild.h"
#include "Vantrel/platform/pictures/DesktopPicturesChoice.h"
#include "Vantrel/platform/posix/CrashReporter.h"
#include "Vantrel/platform/posix/InstanceLock.h"
#include "Vantrel/platform/posix/MachineIDFile.h"
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "Vantrel/platform/posix/SystemClock.h"
#include "Vantrel/platform/posix/SystemZone.h"
#include "Vantrel/platform/posix/ThreadBackground.h"
#include "Vantrel/platform/posix/WallpaperFolders.h"
#include "Vantrel/platform/posix/ZoneDatabase.h"
#include "Vantrel/platform/qt/BusMembership.h"
#include "Vantrel/platform/qt/BusNotifications.h"
#include "Vantrel/platform/qt/DBusSystemEvents.h"
#include "Vantrel/platform/qt/GuardedApplication.h"
#include "Vantrel/platform/qt/OperatingSystemName.h"
#include "Vantrel/platform/qt/QtHttpClient.h"
#include "Vantrel/platform/qt/QtMainQueue.h"
#include "Vantrel/platform/qt/QtUserDefaults.h"
#include "Vantrel/platform/qt/SecondStartWatch.h"
#include "Vantrel/platform/qt/StatusNotifierHost.h"
#include "Vantrel/platform/qt/TerminationSignals.h"
#include "Vantrel/platform/qt/UserFolders.h"
#include "Vantrel/platform/qtx11/OwnWindows.h"
#include "Vantrel/platform/qtx11/X11WindowPictures.h"
#include "Vantrel/platform/thumbnails/ThumbnailStore.h"
#include "Vantrel/platform/x11/DesktopLauncher.h"
#include "Vantrel/platform/x11/Registration.h"
#include "Vantrel/platform/x11/UnrestrictedStart.h"
#include "Vantrel/platform/x11/X11Connection.h"
#include "Vantrel/platform/x11/X11Desk.h"
#include "Vantrel/platform/x11/X11DisplayServices.h"
#include "Vantrel/platform/x11/X11HotKeys.h"
#include "Vantrel/platform/x11/X11Workspace.h"
#include "Vantrel/platform/x11/XEmbedTray.h"
#include "VantrelCore/ports/PatientFileSystem.h"
#include "VantrelCore/ports/SessionLanguage.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/windows/AXPermission.h"

#include <CLI/CLI.hpp>
#include <QApplication>
#include <QDBusConnection>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <QUrl>

#include <cstdio>
#include <cstdlib>
#include <fmt/format.h>

namespace {

using namespace vantrel;

using StartChecks::complain;
using StartChecks::ExitCode;
using StartChecks::say;

// In seconds. At login, a panel may come up long after the programs of the session.
constexpr double patienceWithTrays = 10;

constexpr const char* ownBundleID = "org.vantrel.Vantrel";

constexpr const char* footer = marked(
    "Runs until stopped (Ctrl+C, SIGTERM, or the end of the X session). Control it with vantrelctl.\n"
    "Settings: $XDG_CONFIG_HOME/vantrel/settings.conf   Layouts: $XDG_DATA_HOME/vantrel   Log: "
    "$XDG_STATE_HOME/vantrel\n"
    "Exit codes: 0 stopped on request, 1 failed, 2 usage error, 3 another vantrel is already running.");

SystemDescription systemDescription() {
    return {.version = VANTREL_VERSION,
            .build = programBuild(),
            .operatingSystem = operatingSystemName(),
            .hardware = hardwareModel()};
}

constexpr const char* serverIsGone = marked("The connection to the X server was lost.");

struct Running {
    AppLog& log;
    AppController& controller;
};

// None before and after a desk is watched.
std::optional<Running>& running() {
    static std::optional<Running> running;
    return running;
}

// Qt's connection to the X server calls exit() when it is lost, possibly before ours has noticed, while
// every object is still in use.
void endWithTheServer() {
    if (running()) {
        complain(tr(serverIsGone));
        running()->controller.finishWriting();
        running()->log.write("end: the connection to the X server was lost");
        std::_Exit(static_cast<int>(ExitCode::failed));
    }
}

// The texts that are installed beside the program.
std::filesystem::path installedTexts() {
    const std::filesystem::path program = QCoreApplication::applicationFilePath().toStdString();
    return program.parent_path().parent_path() / "share" / "vantrel";
}

// A page or a file; false if no program opens it.
bool openPage(const std::string& url) {
    return (UnrestrictedStart::isNeeded() && UnrestrictedStart::run({"xdg-open", url})) ||
           QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
}

// A file or folder; false if no program opens it.
bool openFile(const std::filesystem::path& file) {
    return openPage(QUrl::fromLocalFile(QString::fromStdString(file.string())).toString().toStdString());
}

// All objects of the program, in order of construction: each outlives those that use it.
class Program {
public:
    Program(StartChecks::OwnFolders folders, std::shared_ptr<X11Connection> connection, QDBusConnection bus,
            SystemDescription system)
        : m_folders(std::move(folders)), m_system(std::move(system)), m_connection(std::move(connection)),
          m_bus(std::move(bus)) {}

    // Runs until it is told to quit.
    ExitCode run() {
        if (const auto refusal = construct()) {
            return *refusal;
        }
        startEngine();
        showSurfaces();
        fmt::print("{}\n", trf("vantrel is watching this desk. Log: {}", m_log.file().string()));
        std::fflush(stdout);
        QApplication::exec();
        running().reset();
        if (m_result == ExitCode::done) {
            m_log.write("end: stopped on request");
        }
        return m_result;
    }

private:
    // Up to here nothing watches or moves windows, so a second vantrel quits before it touches the first
    // one's desk. Its shortcuts are registered, but those the first one holds are refused.
    std::optional<ExitCode> construct() {
        m_license.start();
        m_updates.startup();
        const ControllerPorts ports{m_desk,  m_displays,  m_workspace,  m_systemEvents, m_defaults,
                                    m_clock, m_queue,     m_background, m_localZone,    m_calendar,
                                    m_focus, *m_pictures, m_hotKeys,    m_license};
        auto controller = AppController::create(
            ports, {m_files, &m_incidents}, m_log,
            {.supportDirectory = m_supportDirectory,
             .stateDirectory = m_stateDirectory,
             .ownBundleID = ownBundleID,
             .version = VANTREL_VERSION,
             .setLaunchAtLogin = [this](bool launches) { return m_launchAtLogin.set(launches, m_bus); },
             .settingsWithoutEffect = {"showDockIcon", "missionControlFixApplied"}});
        if (!controller) {
            return complain(folderIsUnusable(m_supportDirectory, controller.error()));
        }
        m_controller = std::move(*controller);
        if (!serve()) {
            return complain(objectIsRefused());
        }
        if (!m_bus.registerService(ControlNames::service)) {
            if (StartChecks::isServiceRegistered(m_bus)) {
                return StartChecks::raiseFirstInstance();
            }
            return complain(trf("The session bus refused the name {}: {}", ControlNames::service,
                                m_bus.lastError().message().toStdString()));
        }
        return std::nullopt;
    }

    void startEngine() {
        m_eventErrors = m_connection->onThrown([this](const std::string& message) { logSoon(message); });
        m_loss = m_connection->onLoss([this] { m_queue.post([this] { endWithoutServer(); }); });
        if (!m_connection->isConnected()) {
            m_queue.post([this] { endWithoutServer(); });
        }
        if (!AXPermission::isGranted(m_desk)) {
            say(tr("No window manager that can move windows is running yet; waiting for one."));
        }
        CrashReporter::installExceptionHandler();
        m_updates.setChangeHandler([this] { m_controller->setLatestAvailable(m_updates.latestAvailable()); });
        m_log.write("start: vantrel " VANTREL_VERSION);
        for (const std::string& line : m_folders.moves) {
            m_log.write(line);
        }
        if (const auto problem = m_folders.problem()) {
            m_log.write("start: the data folder cannot be locked; a second vantrel on another session bus "
                        "would overwrite the files of this one: " +
                        problem.message());
        }
        running().emplace(m_log, *m_controller);
        m_surfaces.emplace(*m_controller, surfaceServices());
        m_surfaces->panel().welcome();
        m_controller->watchForPermission();
        m_controller->startEngine();
    }

    void tellOfSecondStart() {
        log("start: a second vantrel was started on another session bus and has quit");
        m_surfaces->panel().addSessionNote(
            {tr("Vantrel was started in another session too"),
             tr("Both sessions share one data folder, so it runs only in this one."),
             PanelContent::Message::Kind::sharedFolder});
    }

    void showSurfaces() {
        m_secondStart.emplace({m_supportDirectory, m_stateDirectory}, [this] { tellOfSecondStart(); });
        watchNotifierHost();
        tellOfProblems();
        m_xembedTray.emplace(m_connection, m_queue, [this] { showIn(StatusIcon::Tray::xembed); });
        m_crashUploader.uploadPendingReportsAfterDelay();
        m_crashTest = CrashTest::schedule(m_queue, std::getenv(CrashTest::environmentVariable));
        m_trayWait = m_queue.after(patienceWithTrays, [this] { m_surfaces->panel().openWithoutTray(); });
        m_membership.emplace(m_bus, ControlNames::service,
                             BusMembership::Handlers{
                                 .lost = [this] { leaveBus(); },
                                 .joined = [this](const QDBusConnection& bus) { joinBus(bus); },
                                 .log = [this](const std::string& message) { log(message); },
                             });
    }

    Surfaces::Services surfaceServices() {
        Surfaces::Services services{.installedApplications = installedApplications, .keyboard = &m_hotKeys};
        offerVendor(services, m_vendor, m_updates, m_crashUploader, openPage);
        PanelPresenter::Services& panel = services.panel;
        panel.icons = &m_icons;
        panel.windowPictures = &m_windowPictures;
        panel.keyCode = [this](const QKeyEvent& event) {
            return m_hotKeys.virtualKeyCode(event.nativeScanCode());
        };
        panel.permissionTitle = tr("No window manager");
        panel.permissionDetail =
            tr("Windows cannot be moved without one. Start your desktop session, then check again.");
        if (StartChecks::isWaylandSession()) {
            panel.sessionNotes.push_back(
                {tr("This is a Wayland session"), tr("Only programs that use X11 can be seen and moved.")});
        }
        if (m_folders.problem()) {
            panel.sessionNotes.push_back(
                {tr("The data folder cannot be locked"),
                 tr("A second Vantrel on another session bus would overwrite what this one remembers."),
                 PanelContent::Message::Kind::sharedFolder});
        }
        panel.wantsMotion = DesktopMotion::isWanted;
        panel.openFile = openFile;
        services.settings.supportDirectory = m_supportDirectory;
        services.settings.logFile = m_log.file();
        services.settings.textsDirectory = installedTexts();
        services.settings.files = &m_files;
        services.settings.operatingSystem = m_system.operatingSystem;
        services.settings.open = openFile;
        services.wallpapers.thumbnails = &m_thumbnails;
        services.wallpapers.readSystem = [this](const auto& done) { readWallpapers(done); };
        return services;
    }

    void readWallpapers(const std::function<void(WallpaperServices::List)>& done) {
        m_background.run(WorkPriority::userInitiated,
                         [this, done, folders = posix::WallpaperFolders::in(UserFolders::allData()),
                          languages = WallpaperLists::languagesOf(QLocale::system().name().toStdString())] {
                             m_queue.post([done, found = folders.read(languages)] { done(found); });
                         });
    }

    [[nodiscard]] bool serve() {
        m_service.reset();
        m_service.emplace(*m_controller, m_supportDirectory, m_bus,
                          [this](const std::string& message) { log(message); });
        return m_service->start();
    }

    [[nodiscard]] static std::string objectIsRefused() {
        return trf("The session bus refused the object {}.", ControlNames::path);
    }

    void watchNotifierHost() {
        m_notifierHost.emplace(m_bus, [this] { showIn(StatusIcon::Tray::statusNotifier); });
    }

    void showIn(StatusIcon::Tray tray) {
        m_surfaces->statusIcon().show(tray);
        m_surfaces->panel().refresh();
    }

    void tellOfProblems() {
        m_surfaces->stopTelling();
        m_notifications.emplace(m_bus, ownBundleID);
        m_surfaces->tellProblems(*m_notifications);
    }

    void leaveBus() {
        m_surfaces->stopTelling();
        m_notifierHost.reset();
        m_surfaces->statusIcon().leaveStatusNotifier();
    }

    void joinBus(const QDBusConnection& bus) {
        m_bus = bus;
        if (!serve()) {
            log("session bus: " + inEnglish([] { return objectIsRefused(); }));
        }
        m_systemEvents.setSessionBus(m_bus);
        watchNotifierHost();
        tellOfProblems();
    }

    void endWithoutServer() {
        m_result = complain(tr(serverIsGone));
        m_log.write("end: the connection to the X server was lost");
        QCoreApplication::quit();
    }

    void log(const std::string& message) { m_log.write(message); }

    // Callable from any thread.
    void logSoon(const std::string& message) {
        m_queue.post([this, message] { log(message); });
    }

    std::filesystem::path m_supportDirectory = UserFolders::supportDirectory();
    std::filesystem::path m_stateDirectory = UserFolders::stateDirectory();
    // Locked until everything that writes files has been destroyed.
    StartChecks::OwnFolders m_folders;
    SystemDescription m_system;
    std::shared_ptr<X11Connection> m_connection;
    QDBusConnection m_bus;
    ExitCode m_result = ExitCode::done;
    PosixFileSystem m_disk;
    SystemClock m_clock;
    PatientFileSystem m_files{m_disk, m_clock};
    QtMainQueue m_queue{[this](const std::string& message) { log(message); }};
    AppLog m_log{m_stateDirectory, m_files, m_clock};
    FileIncidents m_incidents{[this](const std::string& message) { log(message); }};
    QtUserDefaults m_settingsFile{UserFolders::settingsFile(), m_files, m_incidents,
                                  [this](const std::string& message) { log(message); }};
    DefaultsWithNotes m_defaults{m_settingsFile, m_stateDirectory, {m_files, &m_incidents}, m_queue};
    QtHttpClient m_http{"vantrel/" VANTREL_VERSION};
    MachineIDFile m_machine{m_files};
    Vendor m_vendor = vendor();
    LicenseManager m_license{{.supportDirectory = m_supportDirectory,
                              .recordCopy = UserFolders::settingsFile().parent_path() / "license-record.json",
                              .apiServer = m_vendor.apiServer,
                              .publicKey = m_vendor.licensePublicKey,
                              .log = [this](const std::string& message) { log(message); }},
                             {m_files, &m_incidents},
                             m_clock,
                             m_queue,
                             m_http,
                             m_machine};
    std::shared_ptr<X11Context> m_x11 = std::make_shared<X11Context>(m_connection);
    X11Desk m_desk{m_x11};
    X11DisplayServices m_displays{m_connection};
    X11Workspace m_workspace{m_x11, m_queue};
    DBusSystemEvents m_systemEvents{QDBusConnection::systemBus(), m_bus,
                                    [this](const std::string& message) { log(message); }};
    SystemZone m_localZone{[this](const std::string& message) { log(message); }};
    DesktopFocusReader m_focus{m_queue};
    // Used by the calendar reader, in the background.
    ZoneDatabase m_zones;
    // Reads and logs in the background.
    IcalCalendarReader m_calendar{UserFolders::home(), UserFolders::data(),
                                  [this](const std::string& name) { return m_zones.named(name); },
                                  [this](const std::string& message) { logSoon(message); }};
    std::unique_ptr<DesktopPictures> m_pictures =
        desktopPictures(StartChecks::environment("XDG_CURRENT_DESKTOP"), m_connection);
    X11HotKeys m_hotKeys{m_connection, m_queue};
    // Destroyed before the adapters that its work uses.
    ThreadBackground m_background{[this](const std::string& message) { logSoon(message); }};
    LaunchAtLogin m_launchAtLogin{m_files, QCoreApplication::applicationFilePath().toStdString()};
    CrashUploader m_crashUploader{m_files,
                                  m_defaults,
                                  m_http,
                                  m_queue,
                                  m_log,
                                  {.crashesDirectory = CrashReporter::crashesDirectory(m_supportDirectory),
                                   .apiServer = m_vendor.apiServer,
                                   .system = m_system}};
    std::unique_ptr<ScheduledWork> m_crashTest;
    UpdateChecker m_updates{{.currentVersion = VANTREL_VERSION,
                             .apiServer = m_vendor.apiServer,
                             .website = m_vendor.website,
                             .openPage = openPage},
                            m_defaults,
                            m_clock,
                            m_queue,
                            m_http,
                            m_log};
    std::unique_ptr<AppController> m_controller;
    std::optional<ControlService> m_service;
    TerminationSignals m_termination{[] { QCoreApplication::quit(); }};
    Registration m_loss;
    Registration m_eventErrors;
    ThemeIcons m_icons;
    X11WindowPictures m_windowPictures;
    ThumbnailStore m_thumbnails{ThumbnailCache(UserFolders::thumbnails())};
    std::optional<BusNotifications> m_notifications;
    std::optional<Surfaces> m_surfaces;
    std::optional<SecondStartWatch> m_secondStart;
    std::optional<StatusNotifierHost> m_notifierHost;
    std::optional<XEmbedTray> m_xembedTray;
    std::unique_ptr<ScheduledWork> m_trayWait;
    std::optional<BusMembership> m_membership;
};

} // namespace

int main(int argumentCount, char** arguments) {
    useSessionLanguage();
    CLI::App app(marked("Remembers window positions for every set of displays and restores them."),
                 "vantrel");
    app.formatter(std::make_shared<TranslatedHelp>());
    app.footer(tr(footer));
    app.set_help_flag("-h,--help", marked("Show this help"));
    app.set_version_flag("-V,--version", "vantrel " VANTREL_VERSION, marked("Show the version"));
    // Used by this program itself; without a group, so that help does not list it.
    std::string startOnly;
    app.add_option(UnrestrictedStart::applicationOption, startOnly)->group("");
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::Success& question) {
        return app.exit(question);
    } catch (const CLI::ParseError& error) {
        return static_cast<int>(
            complain(trf("{} See: vantrel --help", UsageMistake::sentence(app, error)), ExitCode::usage));
    }
    if (!startOnly.empty()) {
        return static_cast<int>(DesktopLauncher::startHere(startOnly) ? ExitCode::done : ExitCode::failed);
    }

    const SystemDescription system = systemDescription();
    CrashReporter::install(UserFolders::supportDirectory(), system);
    StartChecks::explainWayland();
    auto connection = X11Connection::open();
    if (!connection) {
        return static_cast<int>(complain(connection.error()));
    }
    // Requires a server: without one Qt would abort the process.
    qputenv("QT_QPA_PLATFORM", "xcb");
    GuardedApplication<QApplication> application(argumentCount, arguments, [](const std::string& line) {
        if (running()) {
            running()->log.write(line);
        }
    });
    QTranslator standardTexts;
    if (standardTexts.load(QLocale(), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(&standardTexts);
    }
    application.setQuitOnLastWindowClosed(false);
    // Qt 6.4 gives it to the tray as the item's title and identifier.
    application.setApplicationName("Vantrel");
    application.setApplicationDisplayName("Vantrel");
    application.setDesktopFileName(ownBundleID);
    const OwnWindows ownWindows(ownBundleID);
    std::atexit(endWithTheServer);
    // Checked before touching anything that belongs to the running instance.
    const auto bus = StartChecks::joinSessionBus();
    if (!bus) {
        return static_cast<int>(bus.error());
    }
    auto folders = StartChecks::takeFolders();
    if (!folders) {
        return static_cast<int>(folders.error());
    }
    return static_cast<int>(Program(std::move(*folders), *connection, *bus, system).run());
}
