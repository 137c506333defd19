// vantrel: the program itself, and the only place that chooses adapters and wires objects together.
#include "Vantrel/Vendor.h"
#include "Vantrel/commands/ControlNames.h"
#include "Vantrel/commands/ControlService.h"
#include "Vantrel/controller/AppController.h"
#include "Vantrel/controller/AppLog.h"
#include "Vantrel/diagnostics/CrashTest.h"
#include "Vantrel/diagnostics/CrashUploader.h"
#include "Vantrel/diagnostics/UpdateChecker.h"
#include "Vantrel/diagnostics/VendorServer.h"
#include "Vantrel/interface/HUDOverlay.h"
#include "Vantrel/interface/StatusIcon.h"
#include "Vantrel/licensing/LicenseManager.h"
#include "Vantrel/platform/gio/DesktopFocusReader.h"
#include "Vantrel/platform/ical/IcalCalendarReader.h"
#include "Vantrel/platform/linux/HardwareModel.h"
#include "Vantrel/platform/linux/ProgramBuild.h"
#include "Vantrel/platform/pictures/DesktopPicturesChoice.h"
#include "Vantrel/platform/posix/AutostartFile.h"
#include "Vantrel/platform/posix/CrashReporter.h"
#include "Vantrel/platform/posix/MachineIDFile.h"
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "Vantrel/platform/posix/SystemClock.h"
#include "Vantrel/platform/posix/SystemZone.h"
#include "Vantrel/platform/posix/ThreadBackground.h"
#include "Vantrel/platform/qt/DBusSystemEvents.h"
#include "Vantrel/platform/qt/OperatingSystemName.h"
#include "Vantrel/platform/qt/QtHttpClient.h"
#include "Vantrel/platform/qt/QtMainQueue.h"
#include "Vantrel/platform/qt/QtUserDefaults.h"
#include "Vantrel/platform/qt/StatusNotifierHost.h"
#include "Vantrel/platform/qt/TerminationSignals.h"
#include "Vantrel/platform/qt/UserFolders.h"
#include "Vantrel/platform/x11/X11Accessibility.h"
#include "Vantrel/platform/x11/X11Connection.h"
#include "Vantrel/platform/x11/X11DisplayServices.h"
#include "Vantrel/platform/x11/X11HotKeys.h"
#include "Vantrel/platform/x11/X11Workspace.h"
#include "Vantrel/platform/x11/XEmbedTray.h"

#include <CLI/CLI.hpp>
#include <QApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDesktopServices>
#include <QUrl>

#include <cstdio>
#include <cstdlib>
#include <fmt/format.h>

namespace {

using namespace vantrel;

enum class ExitCode : std::uint8_t { done = 0, failed = 1, usage = 2, runsAlready = 3 };

constexpr const char* ownBundleID = "org.vantrel.Vantrel";

constexpr const char* footer =
    "It runs until it is ended (Ctrl+C, SIGTERM, or the end of the X session). Talk to it with vantrelctl.\n"
    "Settings: $XDG_CONFIG_HOME/vantrel/settings.conf   Layouts and log: $XDG_DATA_HOME/Vantrel\n"
    "Exit codes: 0 ended on request, 1 failed, 2 wrong usage, 3 another vantrel runs already.";

void say(const std::string& sentence) {
    fmt::print(stderr, "vantrel: {}\n", sentence);
}

ExitCode complain(const std::string& sentence, ExitCode code = ExitCode::failed) {
    say(sentence);
    return code;
}

bool isSet(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

SystemDescription systemDescription() {
    return {.version = VANTREL_VERSION,
            .build = programBuild(),
            .operatingSystem = operatingSystemName(),
            .hardware = hardwareModel()};
}

// Which variable stands for what is the display server's affair, not this program's: said once, at the start.
void explainWayland() {
    if (isSet("WAYLAND_DISPLAY")) {
        say("This is a Wayland session: only the windows of X11 programs can be seen and moved here, Wayland "
            "programs keep theirs to themselves.");
    }
}

bool runsAlready(const QDBusConnection& bus) {
    return bus.interface()->isServiceRegistered(ControlNames::service);
}

ExitCode complainOfSecondStart() {
    return complain("It runs already. Ask it with: vantrelctl status", ExitCode::runsAlready);
}

constexpr const char* serverIsGone = "The X server has gone away.";

// The log of a running desk; null before and after.
AppLog*& runningLog() {
    static AppLog* log = nullptr;
    return log;
}

// Qt's connection to the X server calls exit() when that goes, maybe before ours has noticed, with every
// object still at work.
void endWithTheServer() {
    if (AppLog* const log = runningLog()) {
        complain(serverIsGone);
        log->write("end: the X server has gone away");
        std::_Exit(static_cast<int>(ExitCode::failed));
    }
}

void openPage(const std::string& url) {
    QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
}

// Runs until it is told to end.
ExitCode keepDesk(const std::shared_ptr<X11Connection>& connection, QDBusConnection bus,
                  const SystemDescription& system) {
    const auto supportDirectory = UserFolders::supportDirectory();
    PosixFileSystem files;
    SystemClock clock;
    QtMainQueue queue;
    AppLog log(supportDirectory, files, clock);
    QtUserDefaults defaults(UserFolders::settingsFile(), files,
                            [&log](const std::string& message) { log.write(message); });
    QtHttpClient http("vantrel/" VANTREL_VERSION);
    MachineIDFile machine(files);
    const Vendor vendor = vantrel::vendor();
    LicenseManager license({.supportDirectory = supportDirectory,
                            .recordCopy = UserFolders::settingsFile().parent_path() / "license-record.json",
                            .apiServer = vendor.apiServer,
                            .publicKey = vendor.licensePublicKey,
                            .log = [&log](const std::string& message) { log.write(message); }},
                           files, clock, queue, http, machine);
    license.start();
    UpdateChecker updates({.currentVersion = VANTREL_VERSION,
                           .apiServer = vendor.apiServer,
                           .website = vendor.website,
                           .openPage = openPage},
                          defaults, clock, queue, http, log);
    updates.startup();
    const auto desk = std::make_shared<X11Desk>(connection);
    X11Accessibility accessibility(desk);
    X11DisplayServices displays(connection);
    X11Workspace workspace(desk, queue);
    DBusSystemEvents systemEvents(QDBusConnection::systemBus(), bus,
                                  [&log](const std::string& message) { log.write(message); });
    SystemZone localZone;
    DesktopFocusReader focus(queue);
    IcalCalendarReader calendar(UserFolders::home(), UserFolders::data(), [&](const std::string& message) {
        queue.post([&log, message] { log.write(message); });
    });
    const char* const currentDesktop = std::getenv("XDG_CURRENT_DESKTOP");
    const auto pictures = desktopPictures(currentDesktop != nullptr ? currentDesktop : "", connection);
    X11HotKeys hotKeys(connection, queue);
    // Destroyed before the adapters that its work uses.
    ThreadBackground background;

    AutostartFile autostart(files, UserFolders::autostartFile(),
                            QCoreApplication::applicationFilePath().toStdString());
    const ControllerPorts ports{accessibility, displays,  workspace,  systemEvents, defaults,
                                clock,         queue,     background, localZone,    calendar,
                                focus,         *pictures, hotKeys,    license};
    auto controller = AppController::create(
        ports, files, log,
        {.supportDirectory = supportDirectory,
         .ownBundleID = ownBundleID,
         .version = VANTREL_VERSION,
         .setLaunchAtLogin = [&](bool launches) { return autostart.setLaunchAtLogin(launches); }});
    if (!controller) {
        return complain(fmt::format("The folder {} cannot be used: {}.", supportDirectory.string(),
                                    controller.error().message()));
    }
    ControlService service(**controller, supportDirectory, bus);
    if (!service.start()) {
        return complain("The session bus does not take the object " + std::string(ControlNames::path) + ".");
    }
    if (!bus.registerService(ControlNames::service)) {
        if (runsAlready(bus)) {
            return complainOfSecondStart();
        }
        return complain("The session bus does not give the name " + std::string(ControlNames::service) +
                        ": " + bus.lastError().message().toStdString());
    }

    auto result = ExitCode::done;
    const TerminationSignals termination([] { QCoreApplication::quit(); });
    const auto end = [&] {
        result = complain(serverIsGone);
        log.write("end: the X server has gone away");
        QCoreApplication::quit();
    };
    const auto loss = connection->onLoss([&] { queue.post(end); });
    if (!connection->isConnected()) {
        queue.post(end);
    }
    if (!accessibility.isTrusted()) {
        say("No window manager that moves windows on request is running yet; waiting for one.");
    }
    CrashReporter::installExceptionHandler();
    updates.setChangeHandler([&] { (*controller)->setLatestAvailable(updates.latestAvailable()); });
    HUDOverlay overlay;
    overlay.follow(**controller);
    log.write("start: vantrel " VANTREL_VERSION);
    runningLog() = &log;
    (*controller)->watchForPermission();
    (*controller)->startEngine();
    StatusIcon statusIcon(**controller,
                          {.purchase = [&] { openPage(VendorServer::purchasePage(vendor.apiServer)); },
                           .checkForUpdates = [&] { updates.checkForUpdates(); },
                           .quit = [] { QCoreApplication::quit(); }});
    const StatusNotifierHost notifierHost(bus, [&] { statusIcon.show(StatusIcon::Tray::statusNotifier); });
    const XEmbedTray xembedTray(connection, queue, [&] { statusIcon.show(StatusIcon::Tray::xembed); });
    CrashUploader crashUploader(files, defaults, http, queue, log,
                                {.crashesDirectory = CrashReporter::crashesDirectory(supportDirectory),
                                 .apiServer = vendor.apiServer,
                                 .system = system});
    crashUploader.uploadPendingReportsAfterDelay();
    const auto crashTest = CrashTest::schedule(queue, std::getenv(CrashTest::environmentVariable));
    fmt::print("vantrel is watching this desk. Log: {}\n", log.file().string());
    std::fflush(stdout);
    QApplication::exec();
    runningLog() = nullptr;
    if (result == ExitCode::done) {
        log.write("end: asked to");
    }
    return result;
}

} // namespace

int main(int argumentCount, char** arguments) {
    CLI::App app("Remembers where windows stand on every set of displays, and puts them back.", "vantrel");
    app.footer(footer);
    app.set_version_flag("--version", "vantrel " VANTREL_VERSION);
    app.failure_message([](const CLI::App* /*app*/, const CLI::Error& error) {
        return fmt::format("vantrel: {}. See: vantrel --help\n", error.what());
    });
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::ParseError& error) {
        return static_cast<int>(app.exit(error) == 0 ? ExitCode::done : ExitCode::usage);
    }

    const SystemDescription system = systemDescription();
    CrashReporter::install(UserFolders::supportDirectory(), system);
    explainWayland();
    auto connection = X11Connection::open();
    if (!connection) {
        return static_cast<int>(complain(connection.error()));
    }
    // Not without a server: Qt would end the process by abort().
    qputenv("QT_QPA_PLATFORM", "xcb");
    QApplication application(argumentCount, arguments);
    application.setQuitOnLastWindowClosed(false);
    application.setApplicationDisplayName("Vantrel");
    application.setDesktopFileName(ownBundleID);
    std::atexit(endWithTheServer);
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return static_cast<int>(complain("There is no session bus (DBUS_SESSION_BUS_ADDRESS): " +
                                         bus.lastError().message().toStdString()));
    }
    // Before anything of the running one is touched.
    return static_cast<int>(runsAlready(bus) ? complainOfSecondStart() : keepDesk(*connection, bus, system));
}
