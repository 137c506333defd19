// Sleep and locks as logind tells of them on the system bus, and screen savers on the session bus.
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

// Without a bus, or without logind, what they would tell goes unnoticed; `log` is told so once.
class DBusSystemEvents final : public QObject, public SystemEvents {
    Q_OBJECT

public:
    // A program that asks logind to lock the session, and no locker that says it did, count as locked for so
    // many milliseconds only: where no locker runs, nobody would ever unlock.
    static constexpr int requestMilliseconds = 15'000;

    DBusSystemEvents(QDBusConnection systemBus, QDBusConnection sessionBus,
                     std::function<void(const std::string&)> log);

    void setHandlers(Handlers handlers) override;

    // The session bus is another one now; what screen savers said on the old one has no voice any more.
    void setSessionBus(const QDBusConnection& bus);

private Q_SLOTS:
    // Of logind's manager.
    void prepareForSleep(bool isGoing);
    // Of logind's session.
    void lockRequested();
    void unlockRequested();
    void sessionChanged(const QString& interface, const QVariantMap& changed, const QStringList& invalidated);
    // Of any screen saver.
    void screenSaverChanged(bool isActive, const QDBusMessage& message);

private:
    void watchLogind();
    // Asks a logind that has come up, at the start or later, for what goes with it.
    void askLogind();
    void watchScreenSavers();
    // Has logind wait with the next sleep until we let go.
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
    // Tells when a screen saver that has locked the session goes away.
    QDBusServiceWatcher m_screenSavers;
    QDBusServiceWatcher m_logind;
};

} // namespace vantrel
