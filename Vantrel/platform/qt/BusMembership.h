// The program's place on the session bus: notices that the bus is gone, joins the one that comes back, and
// takes its name there again.
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <string>

namespace vantrel {

// Lives on the main thread.
class BusMembership final : public QObject {
    Q_OBJECT

public:
    struct Handlers {
        // The bus is gone.
        std::function<void()> lost;
        // Another connection stands; called before the name is taken, so that whoever sees the name finds
        // what belongs to it.
        std::function<void(const QDBusConnection& bus)> joined;
        std::function<void(const std::string& message)> log;
    };

    // `bus` is connected and has the name.
    BusMembership(const QDBusConnection& bus, QString name, Handlers handlers);

private Q_SLOTS:
    // Of the connection itself.
    void disconnected();

private:
    void watch(QDBusConnection bus);
    void tryToJoin();
    void takeName(const QDBusConnection& bus);

    QString m_name;
    Handlers m_handlers;
    QTimer m_nextAttempt;
    // Qt keeps a connection under a name of its own.
    int m_connections = 0;
};

} // namespace vantrel
