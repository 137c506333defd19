// A method of another program on the bus, asked without waiting for the answer.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QObject>

#include <utility>

namespace vantrel::BusQuestion {

// Calls `done` with the finished QDBusPendingReply<Value> as long as `owner` lives.
template <typename Value, typename Done>
void ask(const QDBusConnection& bus, const QDBusMessage& message, QObject* owner, Done done) {
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), owner);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, owner, [watcher, done = std::move(done)] {
        done(QDBusPendingReply<Value>(*watcher));
        watcher->deleteLater();
    });
}

} // namespace vantrel::BusQuestion
