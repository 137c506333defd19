// The running program on the session bus: answers questions, takes commands, tells of changes. docs/dbus.md
// has the interface.
#pragma once

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

// Lives on the main thread; the controller outlives it. Answers nothing once it is gone: calls that wait for
// a restore then end with the connection.
class ControlService final : public QDBusVirtualObject {
public:
    // `log` is told of methods that throw.
    ControlService(AppController& controller, const std::filesystem::path& supportDirectory,
                   const QDBusConnection& bus, ErrorBoundary::Log log);
    ~ControlService() override;
    ControlService(const ControlService&) = delete;
    ControlService& operator=(const ControlService&) = delete;

    // Puts the object on the bus; the owner of the connection takes the name afterwards, so that whoever sees
    // the name finds the object.
    [[nodiscard]] bool start();

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    // Null when nothing here is called so.
    [[nodiscard]] const ControlMethod* find(const QDBusMessage& message) const;
    [[nodiscard]] ControlReply replyTo(const QDBusMessage& request);
    void tellChanges();
    void sendSignal(const char* name, const nlohmann::json& content);

    AppController& m_controller;
    std::vector<ControlInterface> m_interfaces;
    QDBusConnection m_bus;
    ErrorBoundary::Log m_log;
    Publisher::ObserverID m_observer;
    // What was last told.
    Phase m_phase;
    std::optional<PublishedState::LastRestore> m_lastRestore;
    // Expires with the service, so that an outcome that comes later finds nobody.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
