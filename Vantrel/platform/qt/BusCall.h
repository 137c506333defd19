// An asynchronous method call to another program on the bus.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QObject>

#include <utility>

namespace vantrel::BusCall {

// Calls `done` with the finished QDBusPendingReply<Value>, unless `owner` is destroyed before.
template <typename Value, typename Done>
void send(const QDBusConnection& bus, const QDBusMessage& message, QObject* owner, Done done) {
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), owner);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, owner, [watcher, done = std::move(done)] {
        done(QDBusPendingReply<Value>(*watcher));
        watcher->deleteLater();
    });
}

} // namespace vantrel::BusCall
