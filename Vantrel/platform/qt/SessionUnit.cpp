#include "Vantrel/platform/qt/SessionUnit.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QStringList>

#include <fstream>
#include <utility>

namespace vantrel {

namespace {

constexpr const char* service = "org.freedesktop.systemd1";
constexpr const char* managerPath = "/org/freedesktop/systemd1";
constexpr const char* managerInterface = "org.freedesktop.systemd1.Manager";
constexpr const char* unitInterface = "org.freedesktop.systemd1.Unit";
constexpr const char* unitName = "vantrel.service";
constexpr const char* sessionTarget = "graphical-session.target";
constexpr int patienceInMilliseconds = 2000;

QDBusMessage call(const QDBusConnection& bus, const QString& path, const char* interface, const char* method,
                  const QVariantList& arguments) {
    auto message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return bus.call(message, QDBus::Block, patienceInMilliseconds);
}

QDBusMessage callManager(const QDBusConnection& bus, const char* method, const QVariantList& arguments) {
    return call(bus, managerPath, managerInterface, method, arguments);
}

// Invalid after an error.
QVariant firstOf(const QDBusMessage& reply) {
    return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments().value(0) : QVariant();
}

} // namespace

SessionUnit::SessionUnit(QDBusConnection bus, std::string program)
    : m_bus(std::move(bus)), m_program(std::move(program)) {}

SessionUnit::State SessionUnit::state() const {
    const auto fileState = firstOf(callManager(m_bus, "GetUnitFileState", {unitName})).toString();
    const bool isEnabled = fileState == "enabled";
    if (!isEnabled && fileState != "disabled") {
        return {};
    }
    return {.isUsable = property(sessionTarget, "ActiveState").toString() == "active" && startsProgram(),
            .isEnabled = isEnabled};
}

std::string SessionUnit::setEnabled(bool isEnabled) const {
    constexpr bool onlyUntilReboot = false;
    constexpr bool replacesOthers = false;
    const QStringList units{unitName};
    const auto reply = isEnabled
                           ? callManager(m_bus, "EnableUnitFiles", {units, onlyUntilReboot, replacesOthers})
                           : callManager(m_bus, "DisableUnitFiles", {units, onlyUntilReboot});
    return reply.type() == QDBusMessage::ReplyMessage ? "" : reply.errorMessage().toStdString();
}

QVariant SessionUnit::property(const char* unit, const char* name) const {
    const auto path = firstOf(callManager(m_bus, "LoadUnit", {unit})).value<QDBusObjectPath>();
    if (path.path().isEmpty()) {
        return {};
    }
    return firstOf(call(m_bus, path.path(), "org.freedesktop.DBus.Properties", "Get", {unitInterface, name}))
        .value<QDBusVariant>()
        .variant();
}

bool SessionUnit::startsProgram() const {
    std::ifstream file(property(unitName, "FragmentPath").toString().toStdString());
    for (std::string line; std::getline(file, line);) {
        if (line == "ExecStart=" + m_program) {
            return true;
        }
    }
    return false;
}

} // namespace vantrel
