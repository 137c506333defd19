// Stands in for a service on a private bus that sends signals.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <string>

namespace vantrel::live {

// Needs a QCoreApplication.
class BusVoice {
public:
    // Takes the name `service` unless that is empty.
    BusVoice(const std::string& address, const char* connectionName, const char* service = "")
        : m_bus(QDBusConnection::connectToBus(QString::fromStdString(address), connectionName)) {
        if (*service != '\0') {
            m_bus.registerService(service);
        }
    }

    ~BusVoice() { QDBusConnection::disconnectFromBus(m_bus.name()); }

    BusVoice(const BusVoice&) = delete;
    BusVoice& operator=(const BusVoice&) = delete;

    [[nodiscard]] QDBusConnection& bus() { return m_bus; }

    void say(const char* path, const char* interface, const char* name, const QVariantList& arguments = {}) {
        QDBusMessage message = QDBusMessage::createSignal(path, interface, name);
        message.setArguments(arguments);
        m_bus.send(message);
    }

    void sayChanged(const char* path, const char* interface, const QVariantMap& properties) {
        say(path, "org.freedesktop.DBus.Properties", "PropertiesChanged",
            {interface, properties, QStringList{}});
    }

private:
    QDBusConnection m_bus;
};

} // namespace vantrel::live
