#include "Vantrel/commands/ControlClient.h"

#include "Vantrel/commands/ControlNames.h"
#include "VantrelCore/text/Translation.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <optional>

namespace vantrel {

namespace {

// Most calls return at once; restoring many stubborn windows takes a while. After this time without a reply,
// the program is pinged.
constexpr std::chrono::seconds quiet{3};
constexpr std::chrono::seconds signOfLife{5};
// After this the program is not going to reply, alive or not.
constexpr std::chrono::minutes longest{5};
constexpr std::chrono::seconds briefly{1};

ControlFailure failure(const QDBusMessage& reply) {
    const auto name = reply.errorName();
    if (name == QLatin1String("org.freedesktop.DBus.Error.ServiceUnknown") ||
        name == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner")) {
        return {ControlFailure::Kind::notRunning, tr("vantrel is not running. Start it with: vantrel")};
    }
    if (name == QLatin1String("org.freedesktop.DBus.Error.NoReply")) {
        return {ControlFailure::Kind::failed, tr("vantrel quit or did not reply.")};
    }
    return {ControlFailure::Kind::failed, reply.errorMessage().toStdString()};
}

// Waits for the reply or the deadline, whichever comes first.
bool isAnswered(const QDBusPendingCall& call, std::chrono::milliseconds time) {
    if (call.isFinished()) {
        return true;
    }
    QEventLoop loop;
    const QDBusPendingCallWatcher watcher(call);
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
    return call.isFinished();
}

QDBusMessage message(const char* method) {
    auto call = QDBusMessage::createMethodCall(ControlNames::service, ControlNames::path,
                                               ControlNames::interface, method);
    call.setAutoStartService(false);
    return call;
}

// Any reply counts, even one from a program that does not know the method.
bool isAlive(const QDBusConnection& bus) {
    return isAnswered(bus.asyncCall(message("Ping")), signOfLife);
}

// None when the patience has run out.
std::optional<QDBusMessage> replyTo(const QDBusConnection& bus, const QDBusMessage& request,
                                    ControlClient::Patience patience) {
    const auto call = bus.asyncCall(request, static_cast<int>(std::chrono::milliseconds(longest).count()));
    const bool isBrief = patience == ControlClient::Patience::brief;
    while (!isAnswered(call, isBrief ? briefly : quiet)) {
        if (isBrief || (!isAlive(bus) && !call.isFinished())) {
            return std::nullopt;
        }
    }
    return call.reply();
}

} // namespace

ControlClient::Result<nlohmann::json>
ControlClient::call(const char* method, const std::vector<std::string>& arguments, Patience patience) {
    const auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return std::unexpected(ControlFailure{
            ControlFailure::Kind::notRunning,
            tr("There is no session bus here (DBUS_SESSION_BUS_ADDRESS), so vantrel cannot be reached.")});
    }
    auto request = message(method);
    for (const auto& argument : arguments) {
        request << QString::fromStdString(argument);
    }
    const auto reply = replyTo(bus, request, patience);
    if (!reply) {
        return std::unexpected(ControlFailure{
            ControlFailure::Kind::failed,
            tr("vantrel is running but does not reply: it is suspended or very busy. Try again, or restart "
               "it.")});
    }
    if (reply->type() != QDBusMessage::ReplyMessage) {
        return std::unexpected(failure(*reply));
    }
    const auto text = reply->arguments().value(0).toString().toStdString();
    auto answer = nlohmann::json::parse(text, nullptr, false);
    if (!answer.is_object()) {
        return std::unexpected(ControlFailure{
            ControlFailure::Kind::failed, tr("vantrel sent a reply that vantrelctl does not understand.")});
    }
    return answer;
}

} // namespace vantrel
