#include "Vantrel/commands/verbs/DoctorVerb.h"

#include "Vantrel/commands/Diagnosis.h"
#include "VantrelCore/stores/StoreRepair.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace vantrel {

namespace {

using namespace VerbPrinting;

ExitCode putBack(const VerbEnvironment& environment, const std::string& copy, VerbOutput output) {
    const auto text = [&](const nlohmann::json& answer) {
        return fmt::format("{} is in use again. The file it replaced, if any, is kept as {}.replaced.\n",
                           JsonCoding::required<std::string>(answer, "file"),
                           JsonCoding::required<std::string>(answer, "file"));
    };
    const auto answer = ControlClient::call("PutBackFile", {copy});
    if (answer || answer.error().kind != ControlFailure::Kind::notRunning) {
        return show<nlohmann::json>(answer, output, text);
    }
    // A vantrel may be running on another session bus.
    const auto lock = environment.lockSupportDirectory();
    if (!lock) {
        return complain(
            fmt::format("Another vantrel is using these files ({}). Stop it first. Nothing was changed.",
                        lock.error()),
            ExitCode::failed);
    }
    const auto file = StoreRepair::putBack(environment.files, environment.supportDirectory, copy);
    if (!file) {
        return complain(file.error(), ExitCode::failed);
    }
    return show<nlohmann::json>(nlohmann::json{{"copy", copy}, {"file", file->string()}}, output, text);
}

ExitCode examine(const VerbEnvironment& environment, VerbOutput output) {
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
            fmt::format("vantrel sent a reply that vantrelctl does not understand ({})", error.what()));
    }
    const Diagnosis diagnosis = Doctor::examine({.files = environment.files,
                                                 .supportDirectory = environment.supportDirectory,
                                                 .settingsFile = environment.settingsFile,
                                                 .status = status,
                                                 .localDate = environment.localDate});
    if (output == VerbOutput::json) {
        printJson(diagnosis);
    } else {
        print(Doctor::text(diagnosis));
    }
    return diagnosis.isSound() ? ExitCode::done : ExitCode::failed;
}

} // namespace

void addDoctorVerb(VerbTable& table, CLI::App& app) {
    const auto& environment = table.environment();
    const auto copy = std::make_shared<std::string>();
    auto& doctor = table.add(app, "doctor", "Check vantrel's files, the bus and the window manager",
                             [&environment, copy](VerbOutput output) {
                                 return copy->empty() ? examine(environment, output)
                                                      : putBack(environment, *copy, output);
                             });
    table.takes(
        ValueKind::storeCopy,
        doctor.add_option("--put-back", *copy, "Put this copy of a file back; the current file is kept"));
}

} // namespace vantrel
