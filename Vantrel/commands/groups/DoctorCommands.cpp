// "vantrelctl doctor": reports problems with files, folders, bus and window manager, and puts copies of files
// back.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/Diagnosis.h"
#include "Vantrel/commands/verbs/VerbPrinting.h"
#include "Vantrel/commands/verbs/VerbTexts.h"
#include "Vantrel/controller/AppController.h"
#include "VantrelCore/stores/StoreRepair.h"
#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>
#include <optional>

namespace vantrel {

namespace {

using namespace ControlAnswers;

nlohmann::json replaced(const std::string& copy, const std::filesystem::path& file) {
    return {{"copy", copy}, {"file", file.string()}};
}

ControlAnswer putBack(const BusCall& call) {
    const auto file = call.controller.files().putBack(call[0]);
    return file ? ControlAnswer(replaced(call[0], *file)) : refused(file.error());
}

const VerbText replacedText = VerbTexts::sentence(
    marked("{file} is in use again. The file it replaced, if any, is kept as {file}.replaced."));

ExitCode putBack(const VerbCall& call, const std::string& copy) {
    const auto answer = ControlClient::call("PutBackFile", {copy});
    if (answer || answer.error().kind != ControlFailure::Kind::notRunning) {
        return VerbPrinting::show(answer, replacedText, call);
    }
    // A vantrel may be running on another session bus.
    const auto lock = call.environment.lockSupportDirectory();
    if (!lock) {
        return VerbPrinting::complain(
            trf("Another vantrel is using these files ({}). Stop it first. Nothing was changed.",
                lock.error()),
            ExitCode::failed);
    }
    const auto file = StoreRepair::putBack(
        call.environment.files, {call.environment.supportDirectory, call.environment.stateDirectory}, copy);
    if (!file) {
        return VerbPrinting::complain(file.error(), ExitCode::failed);
    }
    return VerbPrinting::show(replaced(copy, *file), replacedText, call);
}

ExitCode examine(const VerbCall& call) {
    std::optional<EnglishTexts> english;
    if (call.output == VerbOutput::json) {
        english.emplace();
    }
    std::expected<StatusMessage, std::string> status = std::unexpected("");
    const auto answer = ControlClient::call("Status");
    try {
        if (answer) {
            status = answer->get<StatusMessage>();
        } else {
            status = std::unexpected(answer.error().message);
        }
    } catch (const std::exception& error) {
        status = std::unexpected(
            trf("vantrel sent a reply that vantrelctl does not understand ({})", error.what()));
    }
    const Diagnosis diagnosis = Doctor::examine({.files = call.environment.files,
                                                 .supportDirectory = call.environment.supportDirectory,
                                                 .stateDirectory = call.environment.stateDirectory,
                                                 .settingsFile = call.environment.settingsFile,
                                                 .status = status,
                                                 .localDate = call.environment.localDate});
    if (call.output == VerbOutput::json) {
        VerbPrinting::printJson(diagnosis);
    } else {
        VerbPrinting::print(Doctor::text(diagnosis));
    }
    return diagnosis.isSound() ? ExitCode::done : ExitCode::failed;
}

ExitCode doctor(const VerbCall& call) {
    const std::string copy = call.typed["--put-back"];
    return copy.empty() ? examine(call) : putBack(call, copy);
}

} // namespace

std::vector<Command> doctorCommands() {
    return {{.signature = "PutBackFile(copy) file",
             .handler = [](const BusCall& call) { return putBack(call); },
             .verbs = {{"doctor",
                        marked("Check vantrel's files, the bus and the window manager"),
                        {{"--put-back", marked("Put this copy of a file back; the current file is kept"),
                          ValueKind::storeCopy}}}},
             .run = doctor}};
}

} // namespace vantrel
