// Notifications of the freedesktop.org specification, over the session bus.
#pragma once

#include "VantrelCore/ports/Notifications.h"

#include <QDBusConnection>
#include <QObject>

#include <cstdint>
#include <optional>

namespace vantrel {

class BusNotifications final : public QObject, public Notifications {
    Q_OBJECT

public:
    // `desktopFile` is the name of the program's desktop file without its suffix.
    BusNotifications(QDBusConnection bus, std::string desktopFile);

    void show(const std::string& title, const std::string& body, std::vector<Action> actions) override;
    void withdraw() override;

private Q_SLOTS:
    // Signals of the server.
    void actionInvoked(uint id, const QString& key);
    void notificationClosed(uint id, uint reason);

private:
    void send(const std::string& title, const std::string& body);

    QDBusConnection m_bus;
    std::string m_desktopFile;
    std::vector<Action> m_actions;
    // The server shows markup in bodies, so text must be escaped. Unknown before its first reply.
    std::optional<bool> m_hasMarkup;
    // Zero while none is shown.
    uint m_shown = 0;
    // Incremented by each show() and withdraw(); replies to earlier ones are late.
    std::uint64_t m_turn = 0;
};

} // namespace vantrel
