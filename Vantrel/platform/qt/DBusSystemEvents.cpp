#include "Vantrel/platform/qt/DBusSystemEvents.h"

#include "Vantrel/platform/qt/BusCall.h"

#include <QDBusObjectPath>
#include <QDBusVariant>

#include <utility>

namespace vantrel {

namespace {

constexpr const char* logind = "org.freedesktop.login1";
constexpr const char* managerPath = "/org/freedesktop/login1";
constexpr const char* managerInterface = "org.freedesktop.login1.Manager";
constexpr const char* sessionInterface = "org.freedesktop.login1.Session";
constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";
constexpr const char* lockedHint = "LockedHint";

// KDE's interface and those of the desktops that have their own.
constexpr const char* screenSaverInterfaces[] = {"org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver",
                                                 "org.cinnamon.ScreenSaver", "org.mate.ScreenSaver",
                                                 "org.xfce.ScreenSaver"};

// SessionLock sources. Screen savers use their bus names instead.
constexpr const char* requestSource = "request";
constexpr const char* hintSource = "hint";

QDBusMessage callOf(const char* path, const char* interface, const char* method,
                    const QVariantList& arguments) {
    QDBusMessage message = QDBusMessage::createMethodCall(logind, path, interface, method);
    message.setArguments(arguments);
    // Do not start logind if it is not running.
    message.setAutoStartService(false);
    return message;
}

} // namespace

DBusSystemEvents::DBusSystemEvents(QDBusConnection systemBus, QDBusConnection sessionBus,
                                   std::function<void(const std::string&)> log)
    : m_systemBus(std::move(systemBus)), m_sessionBus(std::move(sessionBus)), m_log(std::move(log)) {
    m_requestLapse.setSingleShot(true);
    m_requestLapse.setInterval(requestMilliseconds);
    QObject::connect(&m_requestLapse, &QTimer::timeout, this, [this] { setLocked(requestSource, false); });
    m_screenSavers.setConnection(m_sessionBus);
    m_screenSavers.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    QObject::connect(&m_screenSavers, &QDBusServiceWatcher::serviceUnregistered, this,
                     [this](const QString& service) {
                         m_screenSavers.removeWatchedService(service);
                         setLocked(service.toStdString(), false);
                     });
    m_logind.setConnection(m_systemBus);
    m_logind.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    QObject::connect(&m_logind, &QDBusServiceWatcher::serviceOwnerChanged, this,
                     [this](const QString& /*service*/, const QString& /*before*/, const QString& now) {
                         // The inhibitor lock ended with the previous owner.
                         m_inhibitor = {};
                         if (!now.isEmpty()) {
                             queryLogind();
                         }
                     });
}

void DBusSystemEvents::setHandlers(Handlers handlers) {
    m_handlers = std::move(handlers);
    if (!std::exchange(m_isWatching, true)) {
        watchLogind();
        watchScreenSavers();
    }
}

void DBusSystemEvents::setSessionBus(const QDBusConnection& bus) {
    for (const auto& saver : m_screenSavers.watchedServices()) {
        setLocked(saver.toStdString(), false);
    }
    m_screenSavers.setWatchedServices({});
    m_screenSavers.setConnection(bus);
    m_sessionBus = bus;
    if (m_isWatching) {
        watchScreenSavers();
    }
}

void DBusSystemEvents::watchLogind() {
    if (!m_systemBus.isConnected()) {
        complain("there is no system bus");
        return;
    }
    m_systemBus.connect(logind, managerPath, managerInterface, "PrepareForSleep", this,
                        SLOT(prepareForSleep(bool)));
    m_logind.addWatchedService(logind);
    queryLogind();
}

void DBusSystemEvents::queryLogind() {
    inhibitSleep();
    const QString own = qEnvironmentVariable("XDG_SESSION_ID", "auto");
    BusCall::send<QDBusObjectPath>(m_systemBus, callOf(managerPath, managerInterface, "GetSession", {own}),
                                   this, [this](const QDBusPendingReply<QDBusObjectPath>& reply) {
                                       if (reply.isError()) {
                                           complain(reply.error().message());
                                       } else {
                                           watchSession(reply.value().path());
                                       }
                                   });
}

void DBusSystemEvents::inhibitSleep() {
    BusCall::send<QDBusUnixFileDescriptor>(
        m_systemBus,
        callOf(managerPath, managerInterface, "Inhibit",
               {"sleep", "vantrel", "Stops learning before the machine sleeps", "delay"}),
        this, [this](const QDBusPendingReply<QDBusUnixFileDescriptor>& reply) {
            if (reply.isError()) {
                complain(reply.error().message());
            } else {
                m_inhibitor = reply.value();
            }
        });
}

void DBusSystemEvents::watchSession(const QString& path) {
    m_systemBus.connect(logind, path, sessionInterface, "Lock", this, SLOT(lockRequested()));
    m_systemBus.connect(logind, path, sessionInterface, "Unlock", this, SLOT(unlockRequested()));
    m_systemBus.connect(logind, path, propertiesInterface, "PropertiesChanged", this,
                        SLOT(sessionChanged(QString, QVariantMap, QStringList)));
    BusCall::send<QDBusVariant>(
        m_systemBus,
        callOf(path.toUtf8().constData(), propertiesInterface, "Get", {sessionInterface, lockedHint}), this,
        [this](const QDBusPendingReply<QDBusVariant>& reply) {
            setLocked(hintSource, !reply.isError() && reply.value().variant().toBool());
        });
}

void DBusSystemEvents::watchScreenSavers() {
    for (const char* const interface : screenSaverInterfaces) {
        m_sessionBus.connect({}, {}, interface, "ActiveChanged", this,
                             SLOT(screenSaverChanged(bool, QDBusMessage)));
    }
}

void DBusSystemEvents::prepareForSleep(bool isGoing) {
    const auto& handler = isGoing ? m_handlers.willSleep : m_handlers.didWake;
    if (handler) {
        handler();
    }
    if (isGoing) {
        m_inhibitor = {};
    } else {
        inhibitSleep();
    }
}

void DBusSystemEvents::lockRequested() {
    setLocked(requestSource, true);
    m_requestLapse.start();
}

void DBusSystemEvents::unlockRequested() {
    m_requestLapse.stop();
    setLocked(requestSource, false);
}

void DBusSystemEvents::sessionChanged(const QString& interface, const QVariantMap& changed,
                                      const QStringList& /*invalidated*/) {
    const auto hint = changed.constFind(lockedHint);
    if (interface == sessionInterface && hint != changed.constEnd()) {
        setLocked(hintSource, hint->toBool());
    }
}

void DBusSystemEvents::screenSaverChanged(bool isActive, const QDBusMessage& message) {
    const QString service = message.service();
    setLocked(service.toStdString(), isActive);
    if (!isActive) {
        m_screenSavers.removeWatchedService(service);
        return;
    }
    m_screenSavers.addWatchedService(service);
    // It may have exited before the watch was set up. The bus replies to this call after it has processed the
    // watch.
    auto call = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                               "org.freedesktop.DBus", "NameHasOwner");
    call.setArguments({service});
    BusCall::send<bool>(m_sessionBus, call, this, [this, service](const QDBusPendingReply<bool>& reply) {
        if (reply.isValid() && !reply.value()) {
            m_screenSavers.removeWatchedService(service);
            setLocked(service.toStdString(), false);
        }
    });
}

void DBusSystemEvents::complain(const QString& reason) {
    if (!std::exchange(m_hasComplained, true)) {
        m_log("system events: sleep or locks may go unnoticed: " + reason.toStdString());
    }
}

void DBusSystemEvents::setLocked(const std::string& source, bool isLocked) {
    const auto change = m_lock.set(source, isLocked);
    if (isLocked && source != requestSource) {
        // The locker has carried out the request.
        m_requestLapse.stop();
        m_lock.set(requestSource, false);
    }
    const auto& handler =
        change == SessionLock::Change::locked ? m_handlers.sessionLocked : m_handlers.sessionUnlocked;
    if (change != SessionLock::Change::none && handler) {
        handler();
    }
}

} // namespace vantrel
