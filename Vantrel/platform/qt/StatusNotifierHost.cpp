#include "Vantrel/platform/qt/StatusNotifierHost.h"

#include "Vantrel/platform/qt/BusQuestion.h"

#include <QDBusVariant>

#include <utility>

namespace vantrel {

namespace {

// The name of the interface, too.
constexpr const char* watcherService = "org.kde.StatusNotifierWatcher";
constexpr const char* watcherPath = "/StatusNotifierWatcher";

} // namespace

StatusNotifierHost::StatusNotifierHost(QDBusConnection bus, std::function<void()> appeared)
    : m_bus(std::move(bus)), m_appeared(std::move(appeared)),
      m_watcher(watcherService, m_bus, QDBusServiceWatcher::WatchForRegistration) {
    QObject::connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] { ask(); });
    m_bus.connect(watcherService, watcherPath, watcherService, "StatusNotifierHostRegistered", this,
                  SLOT(hostRegistered()));
    ask();
}

void StatusNotifierHost::hostRegistered() {
    m_appeared();
}

void StatusNotifierHost::ask() {
    auto question =
        QDBusMessage::createMethodCall(watcherService, watcherPath, "org.freedesktop.DBus.Properties", "Get");
    question.setArguments({watcherService, "IsStatusNotifierHostRegistered"});
    question.setAutoStartService(false);
    BusQuestion::ask<QDBusVariant>(m_bus, question, this, [this](const QDBusPendingReply<QDBusVariant>& has) {
        if (has.isValid() && has.value().variant().toBool()) {
            m_appeared();
        }
    });
}

} // namespace vantrel
