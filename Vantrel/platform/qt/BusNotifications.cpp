#include "Vantrel/platform/qt/BusNotifications.h"

#include "Vantrel/platform/qt/BusCall.h"

#include <QStringList>
#include <QVariantMap>

#include <utility>

namespace vantrel {

namespace {

// Also the name of the interface.
constexpr const char* service = "org.freedesktop.Notifications";
constexpr const char* path = "/org/freedesktop/Notifications";
// The key of the action that a click on the notification itself performs.
constexpr const char* clicked = "default";

QDBusMessage call(const char* method, const QVariantList& arguments) {
    auto message = QDBusMessage::createMethodCall(service, path, service, method);
    message.setArguments(arguments);
    return message;
}

} // namespace

BusNotifications::BusNotifications(QDBusConnection bus, std::string desktopFile)
    : m_bus(std::move(bus)), m_desktopFile(std::move(desktopFile)) {
    m_bus.connect("", path, service, "ActionInvoked", this, SLOT(actionInvoked(uint, QString)));
    m_bus.connect("", path, service, "NotificationClosed", this, SLOT(notificationClosed(uint, uint)));
}

void BusNotifications::show(const std::string& title, const std::string& body, std::vector<Action> actions) {
    ++m_turn;
    m_actions = std::move(actions);
    if (m_hasMarkup) {
        send(title, body);
        return;
    }
    BusCall::send<QStringList>(
        m_bus, call("GetCapabilities", {}), this,
        [this, title, body, turn = m_turn](const QDBusPendingReply<QStringList>& reply) {
            if (!reply.isValid()) {
                return;
            }
            m_hasMarkup = reply.value().contains("body-markup");
            if (turn == m_turn) {
                send(title, body);
            }
        });
}

void BusNotifications::send(const std::string& title, const std::string& body) {
    QStringList actions;
    for (std::size_t index = 0; index < m_actions.size(); ++index) {
        if (index == 0) {
            actions << clicked << QString::fromStdString(m_actions[index].text);
        }
        actions << QString::number(index) << QString::fromStdString(m_actions[index].text);
    }
    const QString text = QString::fromStdString(body);
    const QString icon = QString::fromStdString(m_desktopFile);
    constexpr int untilDismissed = 0;
    BusCall::send<uint>(m_bus,
                        call("Notify", {"Vantrel", m_shown, icon, QString::fromStdString(title),
                                        m_hasMarkup.value_or(true) ? text.toHtmlEscaped() : text, actions,
                                        QVariantMap{{"desktop-entry", icon}}, untilDismissed}),
                        this, [this, turn = m_turn](const QDBusPendingReply<uint>& reply) {
                            if (!reply.isValid()) {
                                return;
                            }
                            m_shown = reply.value();
                            if (turn != m_turn && m_actions.empty()) {
                                withdraw();
                            }
                        });
}

void BusNotifications::withdraw() {
    ++m_turn;
    m_actions.clear();
    if (const uint shown = std::exchange(m_shown, 0); shown != 0) {
        m_bus.asyncCall(call("CloseNotification", {shown}));
    }
}

void BusNotifications::actionInvoked(uint id, const QString& key) {
    const std::size_t index = key == clicked ? 0 : key.toULong();
    if (id == m_shown && id != 0 && index < m_actions.size()) {
        // It may show or withdraw a notification.
        const auto perform = m_actions[index].perform;
        perform();
    }
}

void BusNotifications::notificationClosed(uint id, uint /*reason*/) {
    if (id == m_shown) {
        m_shown = 0;
    }
}

} // namespace vantrel
