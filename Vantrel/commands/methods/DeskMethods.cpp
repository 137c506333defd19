#include "Vantrel/commands/methods/DeskMethods.h"

#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/ControlNames.h"
#include "Vantrel/commands/ReportMessage.h"
#include "VantrelCore/diagnostics/CrashReportNames.h"

#include <algorithm>

namespace vantrel {

namespace {

using Arguments = std::vector<std::string>;

void setPinned(AppController& controller, bool isPinned, const ControlReply& reply) {
    const auto& state = controller.published();
    if (controller.setPinned(isPinned)) {
        reply(nlohmann::json{{"configID", state.configID},
                             {"configName", state.deskName()},
                             {"layoutName", state.activeLayoutName},
                             {"pinned", state.activePinned}});
        return;
    }
    reply(std::unexpected(ControlRefusal{
        ControlNames::refused, state.activeLayout() == nullptr
                                   ? "No layout is saved for this desk yet."
                                   : "The layout could not be written to disk. Nothing was changed."}));
}

void rename(AppController& controller, const std::string& name, const ControlReply& reply) {
    const auto change = controller.layouts().renameDesk(name);
    const auto& state = controller.published();
    reply(change.kind == LayoutChange::Kind::done
              ? ControlAnswer({{"configID", state.configID}, {"name", state.deskName()}})
              : std::unexpected(ControlRefusal{ControlNames::refused, change.text()}));
}

std::optional<std::int64_t> crashReports(const std::filesystem::path& supportDirectory) {
    std::error_code ignored;
    const std::filesystem::directory_iterator folder(supportDirectory / CrashReportNames::folder, ignored);
    const auto count = std::count_if(begin(folder), end(folder), [](const auto& entry) {
        return CrashReportNames::isReport(entry.path());
    });
    return count > 0 ? std::optional<std::int64_t>(count) : std::nullopt;
}

} // namespace

std::vector<ControlMethod> deskMethods(AppController& controller,
                                       const std::filesystem::path& supportDirectory) {
    return {
        {"Status",
         {},
         "status",
         [&controller, supportDirectory](const Arguments& /*none*/, const ControlReply& reply) {
             auto status = ControlAnswers::status(controller.published(), supportDirectory);
             status.crashReports = crashReports(supportDirectory);
             reply(nlohmann::json(status));
         }},
        {"Desks",
         {},
         "desks",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) {
             reply(nlohmann::json(ControlAnswers::desks(
                 controller.published(), controller.allLayouts(),
                 [&controller](const auto& desk) { return controller.activeLayoutName(desk); })));
         }},
        {"Save",
         {},
         "saved",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) {
             controller.saveLayoutNow(ControlAnswers::saveReply(controller.published(), reply));
         }},
        {"Restore",
         {},
         "report",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) {
             controller.restoreNow(RestoreSource::command, ControlAnswers::restoreReply(reply));
         }},
        {"History",
         {},
         "history",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) {
             reply(ControlAnswers::history(controller.restoreLog(), controller.published().receipts,
                                           controller.now()));
         }},
        {"Pin",
         {},
         "layout",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) {
             setPinned(controller, true, reply);
         }},
        {"Unpin",
         {},
         "layout",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) {
             setPinned(controller, false, reply);
         }},
        {"RenameDesk",
         {"name"},
         "desk",
         [&controller](const Arguments& arguments, const ControlReply& reply) {
             rename(controller, arguments[0], reply);
         }},
        {"Ping",
         {},
         "empty",
         [](const Arguments& /*none*/, const ControlReply& reply) { reply(nlohmann::json::object()); }},
        {"LogPath",
         {},
         "path",
         [supportDirectory](const Arguments& /*none*/, const ControlReply& reply) {
             reply(nlohmann::json((supportDirectory / "app.log").string()));
         }},
    };
}

} // namespace vantrel
