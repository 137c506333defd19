// The running program's object on the session bus: handles queries and commands, and signals changes. The
// interface is documented in docs/dbus.md.
#pragma once

#include "Vantrel/commands/BusSignals.h"
#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/controller/AppController.h"
#include "VantrelCore/diagnostics/ErrorBoundary.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <filesystem>
#include <nlohmann/json_fwd.hpp>
#include <vector>

namespace vantrel {

// Lives on the main thread; the controller outlives it. After it is destroyed no replies are sent: calls that
// wait for a restore then end with the connection.
class ControlService final : public QDBusVirtualObject {
public:
    // `log` receives errors from methods that throw.
    ControlService(AppController& controller, const std::filesystem::path& supportDirectory,
                   const QDBusConnection& bus, ErrorBoundary::Log log);
    ~ControlService() override;
    ControlService(const ControlService&) = delete;
    ControlService& operator=(const ControlService&) = delete;

    // Registers the object. The owner of the connection requests the name afterwards, so that whoever sees
    // the name finds the object.
    [[nodiscard]] bool start();

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    // Null when there is no such method.
    [[nodiscard]] const ControlMethod* find(const QDBusMessage& message) const;
    // Does what a launcher asks for and replies at once: launchers do not wait for a restore, and its outcome
    // is shown.
    void activate(const QDBusMessage& message);
    [[nodiscard]] ControlReply replyTo(const QDBusMessage& request);
    void sendSignal(const char* name, const nlohmann::json& content);

    AppController& m_controller;
    std::vector<ControlInterface> m_interfaces;
    QDBusConnection m_bus;
    ErrorBoundary::Log m_log;
    Publisher::ObserverID m_observer;
    BusSignals m_signals;
    // Expires with the service, so that later outcomes are ignored.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
