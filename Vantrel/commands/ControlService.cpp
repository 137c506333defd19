#include "Vantrel/commands/ControlService.h"

#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/ControlNames.h"
#include "Vantrel/commands/DesktopApplication.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <utility>

namespace vantrel {

namespace {

std::string signalsXml() {
    std::string text;
    for (const auto& [name, argument] : BusSignals::names) {
        text += fmt::format("    <signal name=\"{}\">\n      <arg name=\"{}\" type=\"s\"/>\n    </signal>\n",
                            name, argument);
    }
    return text;
}

std::string xml(const ControlMethod& method) {
    std::string text = fmt::format("    <method name=\"{}\">\n", method.name);
    for (const auto& argument : method.arguments) {
        text += fmt::format("      <arg name=\"{}\" type=\"s\" direction=\"in\"/>\n", argument);
    }
    return text + fmt::format("      <arg name=\"{}\" type=\"s\" direction=\"out\"/>\n    </method>\n",
                              method.result);
}

// Titles come from other programs and may contain invalid UTF-8.
QString text(const nlohmann::json& json) {
    return QString::fromStdString(json.is_string()
                                      ? json.get<std::string>()
                                      : json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

// None when one of them is not a string.
std::optional<std::vector<std::string>> texts(const QList<QVariant>& arguments) {
    std::vector<std::string> result;
    for (const auto& argument : arguments) {
        if (argument.typeId() != QMetaType::QString) {
            return std::nullopt;
        }
        result.push_back(argument.toString().toStdString());
    }
    return result;
}

} // namespace

ControlService::ControlService(AppController& controller, const std::filesystem::path& supportDirectory,
                               const QDBusConnection& bus, ErrorBoundary::Log log)
    : m_controller(controller),
      m_interfaces{
          {ControlNames::interface, methodsOf(everyCommand(), controller, supportDirectory)},
          {ControlNames::actionsInterface, methodsOf(actionCommands(), controller, supportDirectory)}},
      m_bus(bus), m_log(std::move(log)), m_observer(controller.addObserver([this](Topics changed) {
          for (const auto& signal : m_signals.after(m_controller.published(), changed)) {
              sendSignal(signal.name, signal.content);
          }
      })),
      m_signals(controller.published()) {}

ControlService::~ControlService() {
    m_controller.removeObserver(m_observer);
    m_bus.unregisterObject(ControlNames::path);
}

bool ControlService::start() {
    return m_bus.registerVirtualObject(ControlNames::path, this, QDBusConnection::SingleNode);
}

QString ControlService::introspect(const QString& path) const {
    if (path != QLatin1String(ControlNames::path)) {
        return {};
    }
    std::string text;
    for (const auto& interface : m_interfaces) {
        text += fmt::format("  <interface name=\"{}\">\n", interface.name);
        for (const auto& method : interface.methods) {
            text += xml(method);
        }
        text += (&interface == &m_interfaces.front() ? signalsXml() : "") + "  </interface>\n";
    }
    return QString::fromStdString(text + DesktopApplication::xml());
}

bool ControlService::handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/) {
    if (message.interface() == DesktopApplication::interface) {
        activate(message);
        return true;
    }
    const ControlMethod* const method = find(message);
    if (method == nullptr) {
        return false;
    }
    const auto arguments = texts(message.arguments());
    if (const auto refusal = refusalOf(arguments, *method)) {
        m_bus.send(message.createErrorReply(QDBusError::InvalidArgs, QString::fromStdString(*refusal)));
        return true;
    }
    ControlCall::run(*method, *arguments, replyTo(message), m_log);
    return true;
}

const ControlMethod* ControlService::find(const QDBusMessage& message) const {
    // A call without an interface matches any.
    const auto interface = message.interface().toStdString();
    for (const auto& each : m_interfaces) {
        const auto method =
            std::ranges::find(each.methods, message.member().toStdString(), &ControlMethod::name);
        if ((interface.empty() || interface == each.name) && method != each.methods.end()) {
            return &*method;
        }
    }
    return nullptr;
}

void ControlService::activate(const QDBusMessage& message) {
    const auto& methods = m_interfaces.front().methods;
    const auto method =
        std::ranges::find(methods, DesktopApplication::methodFor(message), &ControlMethod::name);
    if (method == methods.end()) {
        m_bus.send(message.createErrorReply(QDBusError::InvalidArgs, "There is no such action."));
        return;
    }
    ControlCall::run(*method, {}, [](const ControlAnswer& /*answer*/) {}, m_log);
    m_bus.send(message.createReply());
}

ControlReply ControlService::replyTo(const QDBusMessage& request) {
    return [this, request, alive = std::weak_ptr(m_alive)](const ControlAnswer& answer) {
        if (alive.expired()) {
            return;
        }
        m_bus.send(answer ? request.createReply(text(*answer))
                          : request.createErrorReply(answer.error().error,
                                                     QString::fromStdString(answer.error().sentence)));
    };
}

void ControlService::sendSignal(const char* name, const nlohmann::json& content) {
    auto signal = QDBusMessage::createSignal(ControlNames::path, ControlNames::interface, name);
    signal.setArguments({text(content)});
    m_bus.send(signal);
}

} // namespace vantrel
