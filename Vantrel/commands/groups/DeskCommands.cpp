// The commands for the current desk and its active layout, and the log.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/DryRun.h"
#include "Vantrel/commands/terminal/CommandTexts.h"
#include "Vantrel/commands/terminal/HistoryText.h"
#include "Vantrel/commands/terminal/LogReader.h"
#include "Vantrel/commands/verbs/VerbPrinting.h"
#include "Vantrel/commands/verbs/VerbTexts.h"
#include "Vantrel/controller/AppController.h"
#include "Vantrel/controller/WorkbenchTabs.h"
#include "VantrelCore/diagnostics/CrashReportNames.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fmt/format.h>
#include <thread>
#include <utility>

namespace vantrel {

namespace {

using namespace ControlAnswers;

std::optional<std::int64_t> crashReports(const std::filesystem::path& supportDirectory) {
    std::error_code ignored;
    const std::filesystem::directory_iterator folder(supportDirectory / CrashReportNames::folder, ignored);
    const auto count = std::count_if(begin(folder), end(folder), [](const auto& entry) {
        return CrashReportNames::isReport(entry.path());
    });
    return count > 0 ? std::optional<std::int64_t>(count) : std::nullopt;
}

ControlAnswer currentStatus(const BusCall& call) {
    auto status = ControlAnswers::status(call.controller.published(), call.supportDirectory);
    status.crashReports = crashReports(call.supportDirectory);
    return nlohmann::json(status);
}

ControlAnswer allDesks(const BusCall& call) {
    return nlohmann::json(desks(call.controller));
}

// Replies with the desk and the name that it has or had.
ControlAnswer changedDesk(const RememberedDesk& desk, LayoutChange change, const std::string& name) {
    return change.kind == LayoutChange::Kind::done
               ? ControlAnswer({{"configID", desk.configID}, {"name", name}})
               : refused(change.text());
}

ControlAnswer renameDesk(const BusCall& call) {
    const auto desk = deskCalled(call.controller.published(), call[0]);
    return desk ? changedDesk(*desk, call.controller.desks().rename(desk->configID, call[1]),
                              std::string(Unicode::trimmed(call[1])))
                : refused(desk.error());
}

ControlAnswer forgetDesk(const BusCall& call) {
    const auto desk = deskCalled(call.controller.published(), call[0]);
    return desk ? changedDesk(*desk, call.controller.desks().forget(desk->configID), desk->name)
                : refused(desk.error());
}

ControlAnswer joinDesks(const BusCall& call) {
    const auto joining = call.controller.joinDesks(call[0], call[1]);
    return joining.kind == DeskJoining::Kind::done ? ControlAnswer({{"text", joining.text()}})
                                                   : refused(joining.text());
}

void swapDisplays(const BusCall& call) {
    const auto result = call.controller.displaySwap().swap(call[0], call[1], restoreReply(call.reply));
    if (!result) {
        call.reply(refused(result.error()));
    }
}

void save(const BusCall& call) {
    call.controller.saveLayoutNow(saveReply(call.controller.published(), call.reply));
}

void restore(const BusCall& call) {
    call.controller.restoreNow(RestoreSource::command, restoreReply(call.reply));
}

ControlAnswer restores(const BusCall& call) {
    return history(call.controller.restoreLog(), call.controller.published().receipts, call.controller.now());
}

BusHandler setPinned(bool isPinned) {
    return [isPinned](const BusCall& call) {
        const auto& state = call.controller.published();
        if (call.controller.setPinned(isPinned)) {
            return ControlAnswer({{"configID", state.configID},
                                  {"configName", state.deskName()},
                                  {"layoutName", state.activeLayoutName},
                                  {"pinned", state.activePinned}});
        }
        return refused(state.activeLayout() == nullptr
                           ? tr("No layout is saved for this desk yet.")
                           : tr("The layout could not be written to disk. Nothing was changed."));
    };
}

ControlAnswer showPanel(const BusCall& call) {
    return call.controller.showPanel() ? ControlAnswer(nlohmann::json::object())
                                       : refused(tr("This vantrel has no panel."));
}

ControlAnswer showWorkbench(const BusCall& call) {
    const auto tab = WorkbenchTabs::named(call[0]);
    if (!tab && !call[0].empty()) {
        return refused(trf("The workbench has no tab \"{}\".", call[0]));
    }
    return call.controller.showWorkbench(tab) ? ControlAnswer(nlohmann::json::object())
                                              : refused(tr("This vantrel cannot show that."));
}

ControlAnswer logPath(const BusCall& call) {
    return nlohmann::json(call.controller.logFile().string());
}

// The displays of the status, each with its label.
ControlClient::Result<nlohmann::json> labelledDisplays() {
    const auto answer = ControlClient::call("Status");
    if (!answer) {
        return answer;
    }
    const auto displays = JsonCoding::value<StatusMessage>(*answer).displays;
    if (displays.empty()) {
        return std::unexpected(ControlFailure{ControlFailure::Kind::failed, tr("No display is awake.")});
    }
    const auto labels = DisplayLabels::of(displays);
    auto list = nlohmann::json::array();
    for (const DisplayInfo& display : displays) {
        list.push_back(display);
        list.back()["label"] = labels.at(display.uuid);
    }
    return nlohmann::json{{"displays", std::move(list)}};
}

ExitCode displays(const VerbCall& call) {
    const auto text = [](const nlohmann::json& shown) {
        std::string lines;
        for (const auto& display : shown.at("displays")) {
            lines += JsonCoding::required<std::string>(display, "label") + '\n';
        }
        return lines;
    };
    return VerbPrinting::show(labelledDisplays(), VerbTexts::of<nlohmann::json>(text), call);
}

std::string historyText(const RestoreLog& log, const DeskDrawing::Options& drawing) {
    return HistoryText::history(log, std::chrono::floor<Date::duration>(std::chrono::system_clock::now()),
                                drawing);
}

ExitCode printLog(const VerbCall& call) {
    const auto& file = call.environment.logFile;
    LogReader reader(file);
    const auto last = reader.lastLines(std::stoull(call.typed["-n,--lines"], nullptr, 0));
    const bool isFollowing = call.typed.has("-f,--follow");
    std::error_code ignored;
    if (!isFollowing && !std::filesystem::exists(file, ignored)) {
        return VerbPrinting::complain(trf("There is no log yet; vantrel writes it to {}.", file.string()),
                                      ExitCode::failed);
    }
    VerbPrinting::print(last);
    while (isFollowing) {
        std::fflush(stdout);
        if (std::ferror(stdout) != 0) {
            return ExitCode::failed;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        VerbPrinting::print(reader.appended());
    }
    return ExitCode::done;
}

} // namespace

std::vector<Command> deskCommands() {
    return {
        {.signature = "Status() status",
         .handler = currentStatus,
         .verbs = {{"status", marked("Show the current desk and what vantrel is doing")}},
         .text = VerbTexts::of<StatusMessage>(CommandTexts::status)},
        {.signature = "Save() saved",
         .handler = save,
         .verbs = {{"save", marked("Save the windows of this desk as they are now")}},
         .text = VerbTexts::saved},
        {.signature = "Restore() report",
         .handler = restore,
         .verbs = {{"restore",
                    marked("Restore the windows of this desk, wait, and report on every window"),
                    {DryRun::option}}},
         .run = [](const VerbCall& call) { return DryRun::run(call, "Restore", "PreviewRestore", {}); }},
        {.signature = "PreviewRestore() preview",
         .handler =
             [](const BusCall& call) { call.controller.previews().preview(DryRun::reply(call.reply)); }},
        {.signature = "Desks() desks",
         .handler = allDesks,
         .verbs = {{"desks", marked("Draw every remembered desk with its windows")},
                   {"desks list", marked("Draw every remembered desk with its windows")}},
         .text = VerbTexts::of<DesksMessage>(
             CommandTexts::desks, marked("No desks are saved yet. Save this one with: vantrelctl save\n"))},
        {.verbs = {{"displays", marked("List the displays by the labels used in other commands")}},
         .run = displays},
        {.signature = "RenameDesk(desk, name) desk",
         .handler = renameDesk,
         .verbs = {{"desks rename",
                    marked("Give a desk a name of your own"),
                    {{"name", marked("Its new name")},
                     {"--desk", marked("The desk, by name or ID; defaults to this desk"), ValueKind::desk}},
                    [](const Typed& typed) { return std::vector{typed["--desk"], typed["name"]}; }}},
         .text = VerbTexts::sentence(marked("The desk is now called \"{name}\"."))},
        {.signature = "ForgetDesk(desk) desk",
         .handler = forgetDesk,
         .verbs = {{"desks forget",
                    marked("Forget a desk with its layouts and stashes; scenes stay"),
                    {{"desk", marked("The desk, by name or ID"), ValueKind::desk}}}},
         .text =
             VerbTexts::sentence(marked("Forgot the desk \"{name}\". To put it back: vantrelctl undelete"))},
        {.signature = "JoinDesks(first, second) joined",
         .handler = joinDesks,
         .verbs =
             {{"desks same",
               marked("Join two desks that are one on other connectors, by default those that status names"),
               {{"first", marked("A desk, by name or ID"), ValueKind::desk, Word::Use::optional},
                {"second", marked("The other one"), ValueKind::desk, Word::Use::optional}}}},
         .text = VerbTexts::sentence("{text}")},
        {.signature = "SwapDisplays(first, second) report",
         .handler = swapDisplays,
         .verbs = {{"desks swap",
                    marked("Exchange the windows of two displays, by default of the two equal ones"),
                    {{"first", marked("A display's label"), ValueKind::display, Word::Use::optional},
                     {"second", marked("The other one's label"), ValueKind::display, Word::Use::optional}}}},
         .text = VerbTexts::report},
        {.signature = "History() history",
         .handler = restores,
         .verbs = {{"history", marked("List the last restores with the outcome for every window")}},
         .text = VerbTexts::of<RestoreLog>(historyText,
                                           marked("No windows were restored in the last seven days.\n"))},
        {.signature = "Pin() layout",
         .handler = setPinned(true),
         .verbs = {{"pin",
                    marked("Keep this desk's layout as saved: do not learn, put drifting windows back")}},
         .text = VerbTexts::sentence(marked("Pinned layout \"{layoutName}\" of {configName}."))},
        {.signature = "Unpin() layout",
         .handler = setPinned(false),
         .verbs = {{"unpin", marked("Learn this desk's layout again")}},
         .text = VerbTexts::sentence(marked("Unpinned layout \"{layoutName}\" of {configName}."))},
        {.signature = "ShowPanel() empty",
         .handler = showPanel,
         .verbs = {{"panel", marked("Open the panel")}},
         .text = VerbTexts::sentence(marked("The panel is open."))},
        {.signature = "ShowWorkbench(tab) empty",
         .handler = showWorkbench,
         .verbs = {{"workbench",
                    marked("Open the window for scenes, desks, history, rules and settings"),
                    {{"tab", marked("By default the one it was closed with"), ValueKind::workbenchTab,
                      Word::Use::optional}}}},
         .text = VerbTexts::sentence(marked("The workbench is open."))},
        {.signature = "Ping() empty",
         .handler = [](const BusCall& /*call*/) { return ControlAnswer(nlohmann::json::object()); }},
        {.signature = "LogPath() path", .handler = logPath},
        {.verbs = {{"log",
                    marked("Print the last lines of vantrel's log"),
                    {{.name = "-n,--lines",
                      .help = marked("How many lines"),
                      .kind = ValueKind::number,
                      .fallback = 20},
                     {"-f,--follow", marked("Keep printing new lines until interrupted"), ValueKind::flag}}}},
         .run = printLog,
         .hasJson = false},
    };
}

} // namespace vantrel
