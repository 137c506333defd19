#include "Vantrel/platform/qt/StatusNotifierHost.h"

#include "Vantrel/platform/qt/BusCall.h"

#include <QDBusVariant>

#include <utility>

namespace vantrel {

namespace {

// Also the name of the interface.
constexpr const char* watcherService = "org.kde.StatusNotifierWatcher";
constexpr const char* watcherPath = "/StatusNotifierWatcher";

} // namespace

StatusNotifierHost::StatusNotifierHost(QDBusConnection bus, std::function<void()> appeared)
    : m_bus(std::move(bus)), m_appeared(std::move(appeared)),
      m_watcher(watcherService, m_bus, QDBusServiceWatcher::WatchForRegistration) {
    QObject::connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] { query(); });
    m_bus.connect(watcherService, watcherPath, watcherService, "StatusNotifierHostRegistered", this,
                  SLOT(hostRegistered()));
    query();
}

void StatusNotifierHost::hostRegistered() {
    m_appeared();
}

void StatusNotifierHost::query() {
    auto call =
        QDBusMessage::createMethodCall(watcherService, watcherPath, "org.freedesktop.DBus.Properties", "Get");
    call.setArguments({watcherService, "IsStatusNotifierHostRegistered"});
    call.setAutoStartService(false);
    BusCall::send<QDBusVariant>(m_bus, call, this, [this](const QDBusPendingReply<QDBusVariant>& has) {
        if (has.isValid() && has.value().variant().toBool()) {
            m_appeared();
        }
    });
}

} // namespace vantrel
