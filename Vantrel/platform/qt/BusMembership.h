// Keeps the program on the session bus: detects when the bus is lost, reconnects when it is back and requests
// the program's name again.
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <string>

namespace vantrel {

// Use only on the main thread.
class BusMembership final : public QObject {
    Q_OBJECT

public:
    struct Handlers {
        // The bus was lost.
        std::function<void()> lost;
        // Connected again. Called before the name is requested, so that objects can be registered before
        // other programs see the name.
        std::function<void(const QDBusConnection& bus)> joined;
        std::function<void(const std::string& message)> log;
    };

    // `bus` must be connected and own the name.
    BusMembership(const QDBusConnection& bus, QString name, Handlers handlers);

private Q_SLOTS:
    // Signal of the connection itself.
    void disconnected();

private:
    void watch(QDBusConnection bus);
    void tryToJoin();
    void takeName(const QDBusConnection& bus);

    QString m_name;
    Handlers m_handlers;
    QTimer m_nextAttempt;
    // Qt needs a unique name for each connection.
    int m_connections = 0;
};

} // namespace vantrel
