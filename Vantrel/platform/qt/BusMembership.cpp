#include "Vantrel/platform/qt/BusMembership.h"

#include <QDBusConnectionInterface>

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

constexpr int firstPauseMilliseconds = 500;
constexpr int longestPauseMilliseconds = 30'000;

} // namespace

BusMembership::BusMembership(const QDBusConnection& bus, QString name, Handlers handlers)
    : m_name(std::move(name)), m_handlers(std::move(handlers)) {
    m_nextAttempt.setSingleShot(true);
    QObject::connect(&m_nextAttempt, &QTimer::timeout, this, [this] { tryToJoin(); });
    watch(bus);
}

void BusMembership::watch(QDBusConnection bus) {
    // libdbus reports the end of the connection with a local signal.
    bus.connect({}, "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local", "Disconnected", this,
                SLOT(disconnected()));
}

void BusMembership::disconnected() {
    m_handlers.log("session bus: lost; windows are still watched, but commands do not work until it is back");
    m_handlers.lost();
    m_nextAttempt.start(firstPauseMilliseconds);
}

void BusMembership::tryToJoin() {
    const auto connection = QString("vantrel-session-%1").arg(++m_connections);
    const auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connection);
    if (!bus.isConnected()) {
        QDBusConnection::disconnectFromBus(connection);
        m_nextAttempt.start(std::min(2 * m_nextAttempt.interval(), longestPauseMilliseconds));
        return;
    }
    watch(bus);
    m_handlers.joined(bus);
    m_handlers.log("session bus: connected again");
    takeName(bus);
}

void BusMembership::takeName(const QDBusConnection& bus) {
    auto* const daemon = bus.interface();
    QObject::connect(daemon, &QDBusConnectionInterface::serviceRegistered, this, [this](const QString& name) {
        if (name == m_name) {
            m_handlers.log("session bus: vantrel owns the name " + m_name.toStdString() + " again");
        }
    });
    // Queue for the name: if another program has taken it, we get it when that program releases it.
    const auto taken = daemon->registerService(m_name, QDBusConnectionInterface::QueueService,
                                               QDBusConnectionInterface::DontAllowReplacement);
    if (!taken.isValid() || taken.value() != QDBusConnectionInterface::ServiceRegistered) {
        m_handlers.log("session bus: another program has the name " + m_name.toStdString() +
                       "; vantrelctl works again once that program exits");
    }
}

} // namespace vantrel
