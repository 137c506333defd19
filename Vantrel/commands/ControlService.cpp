#include "Vantrel/commands/ControlService.h"

#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/ControlNames.h"
#include "Vantrel/commands/ReportMessage.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace vantrel {

namespace {

constexpr const char* interfaceXml = R"(  <interface name="org.vantrel.Vantrel">
    <method name="Status">
      <arg name="status" type="s" direction="out"/>
    </method>
    <method name="Desks">
      <arg name="desks" type="s" direction="out"/>
    </method>
    <method name="Save">
      <arg name="saved" type="s" direction="out"/>
    </method>
    <method name="Restore">
      <arg name="report" type="s" direction="out"/>
    </method>
    <method name="History">
      <arg name="history" type="s" direction="out"/>
    </method>
    <method name="Pin">
      <arg name="layout" type="s" direction="out"/>
    </method>
    <method name="Unpin">
      <arg name="layout" type="s" direction="out"/>
    </method>
    <method name="LogPath">
      <arg name="path" type="s" direction="out"/>
    </method>
    <signal name="PhaseChanged">
      <arg name="phase" type="s"/>
    </signal>
    <signal name="RestoreFinished">
      <arg name="report" type="s"/>
    </signal>
  </interface>
)";

// Titles come from other programs and may hold anything.
QString text(const nlohmann::json& json) {
    return QString::fromStdString(json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

} // namespace

ControlService::ControlService(AppController& controller, std::filesystem::path supportDirectory,
                               const QDBusConnection& bus)
    : m_controller(controller), m_supportDirectory(std::move(supportDirectory)), m_bus(bus),
      m_observer(controller.addObserver([this] { tellChanges(); })), m_phase(controller.published().phase),
      m_lastRestore(controller.published().lastRestore) {}

ControlService::~ControlService() {
    m_controller.removeObserver(m_observer);
    m_bus.unregisterObject(ControlNames::path);
}

bool ControlService::start() {
    return m_bus.registerVirtualObject(ControlNames::path, this, QDBusConnection::SingleNode);
}

QString ControlService::introspect(const QString& path) const {
    return path == QLatin1String(ControlNames::path) ? QString::fromUtf8(interfaceXml) : QString();
}

bool ControlService::handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/) {
    const auto interface = message.interface();
    if (!interface.isEmpty() && interface != QLatin1String(ControlNames::interface)) {
        return false;
    }
    const auto method = message.member();
    if (method == QLatin1String("Status")) {
        answer(message, ControlAnswers::status(m_controller.published(), m_supportDirectory));
    } else if (method == QLatin1String("Desks")) {
        answer(message, ControlAnswers::desks(
                            m_controller.published(), m_controller.allLayouts(),
                            [this](const auto& desk) { return m_controller.activeLayoutName(desk); }));
    } else if (method == QLatin1String("Save")) {
        save(message);
    } else if (method == QLatin1String("Restore")) {
        restore(message);
    } else if (method == QLatin1String("History")) {
        answer(message, ControlAnswers::history(m_controller.restoreLog(), m_controller.published().receipts,
                                                m_controller.now()));
    } else if (method == QLatin1String("Pin") || method == QLatin1String("Unpin")) {
        setPinned(message, method == QLatin1String("Pin"));
    } else if (method == QLatin1String("LogPath")) {
        m_bus.send(message.createReply(QString::fromStdString((m_supportDirectory / "app.log").string())));
    } else {
        return false;
    }
    return true;
}

void ControlService::save(const QDBusMessage& request) {
    m_controller.saveLayoutNow([this, request, alive = std::weak_ptr(m_alive)](const SaveOutcome& outcome) {
        if (alive.expired()) {
            return;
        }
        if (outcome.kind != SaveOutcome::Kind::saved) {
            m_bus.send(
                request.createErrorReply(ControlNames::refused, QString::fromStdString(outcome.text())));
            return;
        }
        const auto& state = m_controller.published();
        answer(request, {{"windows", outcome.windows},
                         {"configID", state.configID},
                         {"configName", state.configName},
                         {"layoutName", state.activeLayoutName}});
    });
}

void ControlService::restore(const QDBusMessage& request) {
    m_controller.restoreNow(RestoreSource::command, [this, request, alive = std::weak_ptr(m_alive)](
                                                        const RestoreOutcome& outcome) {
        if (alive.expired()) {
            return;
        }
        if (outcome.kind == RestoreOutcome::Kind::finished) {
            answer(request, outcome.report);
            return;
        }
        const auto* const error = outcome.kind == RestoreOutcome::Kind::superseded ? ControlNames::superseded
                                                                                   : ControlNames::refused;
        m_bus.send(request.createErrorReply(error, QString::fromStdString(outcome.text())));
    });
}

void ControlService::setPinned(const QDBusMessage& request, bool isPinned) {
    const auto& state = m_controller.published();
    if (m_controller.setPinned(isPinned)) {
        answer(request, {{"configID", state.configID},
                         {"configName", state.configName},
                         {"layoutName", state.activeLayoutName},
                         {"pinned", state.activePinned}});
        return;
    }
    m_bus.send(request.createErrorReply(ControlNames::refused, state.activeLayout() == nullptr
                                                                   ? "No layout is saved for this desk yet."
                                                                   : "The layout could not be written."));
}

void ControlService::answer(const QDBusMessage& request, const nlohmann::json& answer) {
    m_bus.send(request.createReply(text(answer)));
}

void ControlService::tellChanges() {
    const auto& state = m_controller.published();
    if (m_phase != state.phase) {
        m_phase = state.phase;
        sendSignal("PhaseChanged", ControlAnswers::phase(state.phase));
    }
    if (m_lastRestore != state.lastRestore) {
        m_lastRestore = state.lastRestore;
        if (m_lastRestore) {
            nlohmann::json report = m_lastRestore->report;
            report["reason"] = m_lastRestore->reason;
            report["configID"] = m_lastRestore->configID;
            sendSignal("RestoreFinished", report);
        }
    }
}

void ControlService::sendSignal(const char* name, const nlohmann::json& content) {
    auto signal = QDBusMessage::createSignal(ControlNames::path, ControlNames::interface, name);
    signal.setArguments({text(content)});
    m_bus.send(signal);
}

} // namespace vantrel
