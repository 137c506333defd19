// Reports when the desktop can show StatusNotifierItems, that is, when a watcher with a host is on the
// session bus.
#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <functional>

namespace vantrel {

class StatusNotifierHost final : public QObject {
    Q_OBJECT

public:
    // Calls `appeared` on the main thread, never from the constructor, for the current host and for each new
    // one.
    StatusNotifierHost(QDBusConnection bus, std::function<void()> appeared);

private Q_SLOTS:
    // Signal of the watcher.
    void hostRegistered();

private:
    void query();

    QDBusConnection m_bus;
    std::function<void()> m_appeared;
    QDBusServiceWatcher m_watcher;
};

} // namespace vantrel
