#include "Vantrel/commands/ControlClient.h"

#include "Vantrel/commands/ControlNames.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <chrono>

namespace vantrel {

namespace {

// A restore of many stubborn windows takes a while; beyond this the program is not going to answer.
constexpr std::chrono::milliseconds patience = std::chrono::minutes(5);

ControlFailure failure(const QDBusMessage& reply) {
    const auto name = reply.errorName();
    if (name == QLatin1String("org.freedesktop.DBus.Error.ServiceUnknown") ||
        name == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner")) {
        return {ControlFailure::Kind::notRunning, "vantrel is not running. Start it with: vantrel"};
    }
    if (name == QLatin1String("org.freedesktop.DBus.Error.NoReply")) {
        return {ControlFailure::Kind::failed, "vantrel ended or did not answer."};
    }
    return {ControlFailure::Kind::failed, reply.errorMessage().toStdString()};
}

} // namespace

ControlClient::Result<nlohmann::json> ControlClient::call(const char* method,
                                                          const std::vector<std::string>& arguments) {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return std::unexpected(ControlFailure{
            ControlFailure::Kind::notRunning,
            "There is no session bus here (DBUS_SESSION_BUS_ADDRESS), so vantrel cannot be reached."});
    }
    auto request = QDBusMessage::createMethodCall(ControlNames::service, ControlNames::path,
                                                  ControlNames::interface, method);
    request.setAutoStartService(false);
    for (const auto& argument : arguments) {
        request << QString::fromStdString(argument);
    }
    const auto reply = bus.call(request, QDBus::Block, static_cast<int>(patience.count()));
    if (reply.type() != QDBusMessage::ReplyMessage) {
        return std::unexpected(failure(reply));
    }
    const auto text = reply.arguments().value(0).toString().toStdString();
    auto answer = nlohmann::json::parse(text, nullptr, false);
    if (!answer.is_object()) {
        return std::unexpected(
            ControlFailure{ControlFailure::Kind::failed, "vantrel gave an answer that is not understood."});
    }
    return answer;
}

} // namespace vantrel
