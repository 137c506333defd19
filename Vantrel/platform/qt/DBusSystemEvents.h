// Reports sleep and session locks, from logind on the system bus and screen savers on the session bus.
#pragma once

#include "VantrelCore/model/SessionLock.h"
#include "VantrelCore/ports/SystemEvents.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QVariantMap>

#include <functional>
#include <string>

namespace vantrel {

// Without a bus or logind, their events are missed. Logs that once.
class DBusSystemEvents final : public QObject, public SystemEvents {
    Q_OBJECT

public:
    // If a program asks logind to lock the session but no locker confirms, the session counts as locked only
    // for this long. Without a locker, nothing would ever unlock it.
    static constexpr int requestMilliseconds = 15'000;

    DBusSystemEvents(QDBusConnection systemBus, QDBusConnection sessionBus,
                     std::function<void(const std::string&)> log);

    void setHandlers(Handlers handlers) override;

    // Switches to a new session bus. Discards the lock states of screen savers on the old one.
    void setSessionBus(const QDBusConnection& bus);

private Q_SLOTS:
    // Signal of logind's manager.
    void prepareForSleep(bool isGoing);
    // Signals of logind's session.
    void lockRequested();
    void unlockRequested();
    void sessionChanged(const QString& interface, const QVariantMap& changed, const QStringList& invalidated);
    // Signal of any screen saver.
    void screenSaverChanged(bool isActive, const QDBusMessage& message);

private:
    void watchLogind();
    // Inhibits sleep and finds our session. Called whenever logind appears, at start or later.
    void queryLogind();
    void watchScreenSavers();
    // Makes logind delay the next sleep until we release the inhibitor.
    void inhibitSleep();
    void watchSession(const QString& path);
    void complain(const QString& reason);
    void setLocked(const std::string& source, bool isLocked);

    QDBusConnection m_systemBus;
    QDBusConnection m_sessionBus;
    std::function<void(const std::string&)> m_log;
    Handlers m_handlers;
    bool m_isWatching = false;
    bool m_hasComplained = false;
    SessionLock m_lock;
    QDBusUnixFileDescriptor m_inhibitor;
    QTimer m_requestLapse;
    // Watches for the exit of a screen saver that has locked the session.
    QDBusServiceWatcher m_screenSavers;
    QDBusServiceWatcher m_logind;
};

} // namespace vantrel
