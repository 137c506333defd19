// Tells when the desktop shows StatusNotifierItems: when a watcher of them with a host is on the session bus.
#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <functional>

namespace vantrel {

class StatusNotifierHost final : public QObject {
    Q_OBJECT

public:
    // Calls `appeared` on the main thread, never from here, for the one that is there and for each that
    // comes.
    StatusNotifierHost(QDBusConnection bus, std::function<void()> appeared);

private Q_SLOTS:
    // Of the watcher.
    void hostRegistered();

private:
    void ask();

    QDBusConnection m_bus;
    std::function<void()> m_appeared;
    QDBusServiceWatcher m_watcher;
};

} // namespace vantrel
