#include "Vantrel/commands/verbs/VerbTable.h"

#include "Vantrel/commands/ReportMessage.h"
#include "Vantrel/commands/terminal/CommandTexts.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/text/SafeText.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <utility>

namespace vantrel {

CLI::App& VerbTable::add(CLI::App& parent, const std::string& name, const std::string& description, Run run) {
    auto& command = addPlain(parent, name, description, std::move(run));
    command.add_flag("--json", m_asJson, "Print JSON, for programs");
    return command;
}

CLI::App& VerbTable::addPlain(CLI::App& parent, const std::string& name, const std::string& description,
                              Run run) {
    auto* const command = parent.add_subcommand(name, description)->footer(VerbPrinting::exitCodes);
    m_verbs.push_back({command, std::move(run)});
    return *command;
}

CLI::Option* VerbTable::takes(ValueKind kind, CLI::Option* option) {
    m_kinds[option] = kind;
    return option;
}

ValueKind VerbTable::kindOf(const CLI::Option& option) const {
    const auto found = m_kinds.find(&option);
    return found == m_kinds.end() ? ValueKind::text : found->second;
}

ExitCode VerbTable::run() const {
    for (const auto& verb : m_verbs) {
        if (verb.command->parsed() && verb.command->get_subcommands().empty()) {
            try {
                return verb.run(m_asJson ? VerbOutput::json : VerbOutput::text);
            } catch (const std::exception& error) {
                return VerbPrinting::complainAboutReply(error);
            }
        }
    }
    return ExitCode::usage;
}

namespace VerbPrinting {

namespace {

void write(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
}

} // namespace

void print(std::string_view text) {
    write(SafeText::lines(text));
}

nlohmann::json safe(nlohmann::json answer) {
    if (answer.is_string()) {
        return SafeText::line(answer.get_ref<const std::string&>());
    }
    if (answer.is_structured()) {
        for (auto& each : answer) {
            each = safe(std::move(each));
        }
    }
    return answer;
}

ExitCode complain(const std::string& sentence, ExitCode code) {
    std::fflush(stdout);
    fmt::print(stderr, "vantrelctl: {}\n", SafeText::line(sentence));
    return code;
}

ExitCode complain(const ControlFailure& failure) {
    return complain(failure.message, failure.kind == ControlFailure::Kind::notRunning ? ExitCode::notRunning
                                                                                      : ExitCode::failed);
}

void printJson(const nlohmann::json& json) {
    write(SafeText::json(json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace)) + '\n');
}

ExitCode complainAboutReply(const std::exception& error) {
    return complain(fmt::format("vantrel sent a reply that vantrelctl does not understand ({}). Do vantrel "
                                "and vantrelctl have the same version?",
                                error.what()),
                    ExitCode::failed);
}

std::string savedText(const nlohmann::json& saved) {
    const auto windows = JsonCoding::required<std::int64_t>(saved, "windows");
    const auto layout = JsonCoding::required<std::string>(saved, "layoutName");
    return fmt::format("Saved {} {} for {}{}.\n", windows, windows == 1 ? "window" : "windows",
                       JsonCoding::required<std::string>(saved, "configName"),
                       layout == Layout::defaultName ? "" : " as \"" + layout + '"');
}

ExitCode showReport(const ControlClient::Result<nlohmann::json>& answer, const VerbEnvironment& environment,
                    VerbOutput output) {
    const auto shown = show<RestoreReport>(answer, output, [&](const RestoreReport& report) {
        return CommandTexts::report(report, environment.drawing());
    });
    const bool hasFailed = answer && answer->value("failed", std::size_t{0}) > 0;
    return shown == ExitCode::done && hasFailed ? ExitCode::failed : shown;
}

} // namespace VerbPrinting

} // namespace vantrel
