// The verbs of vantrelctl: names, descriptions and what they do.
#pragma once

#include "Vantrel/commands/ControlClient.h"
#include "Vantrel/commands/shell/ValueKind.h"
#include "Vantrel/commands/terminal/DeskDrawing.h"
#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/ports/FileSystem.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <fmt/format.h>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace vantrel {

enum class ExitCode : std::uint8_t { done = 0, failed = 1, usage = 2, notRunning = 3 };

enum class VerbOutput : std::uint8_t { text, json };

// The verbs' view of the machine they run on.
struct VerbEnvironment {
    // Called when something is about to be printed.
    std::function<DeskDrawing::Options()> drawing;
    // Formats a date in the user's time zone.
    std::function<std::string(Date)> localDate;
    // The running program's log.
    std::filesystem::path logFile;
    FileSystem& files;
    // The folder of the program's stores, and its settings file.
    std::filesystem::path supportDirectory;
    std::filesystem::path settingsFile;
    // Keeps any vantrel from using the support folder while the result exists; otherwise returns who is using
    // it.
    std::function<std::expected<std::shared_ptr<void>, std::string>()> lockSupportDirectory;
};

class VerbTable {
public:
    // Receives the output format the user chose.
    using Run = std::function<ExitCode(VerbOutput)>;

    explicit VerbTable(VerbEnvironment environment) : m_environment(std::move(environment)) {}

    // Adds a verb with --json below `parent`. Variables set by the caller's options must live as long as the
    // verb: keep them in `run`.
    CLI::App& add(CLI::App& parent, const std::string& name, const std::string& description, Run run);
    // Adds a verb that prints for people only.
    CLI::App& addPlain(CLI::App& parent, const std::string& name, const std::string& description, Run run);

    // Sets what an option or argument takes; `text` unless set. Returns the option.
    CLI::Option* takes(ValueKind kind, CLI::Option* option);
    [[nodiscard]] ValueKind kindOf(const CLI::Option& option) const;

    // Runs the innermost parsed verb.
    [[nodiscard]] ExitCode run() const;

    [[nodiscard]] const VerbEnvironment& environment() const { return m_environment; }

private:
    struct Verb {
        const CLI::App* command;
        Run run;
    };

    VerbEnvironment m_environment;
    std::vector<Verb> m_verbs;
    std::map<const CLI::Option*, ValueKind> m_kinds;
    bool m_asJson = false;
};

// All output of the verbs goes through here, where outside text is made safe for a terminal (SafeText).
namespace VerbPrinting {

inline constexpr const char* exitCodes = "Exit codes: 0 done, 1 failed (or a window could not be restored), "
                                         "2 usage error, 3 vantrel is not running.";

// Prints lines for people.
void print(std::string_view text);
// Prints to standard error, prefixed with the program's name.
ExitCode complain(const std::string& sentence, ExitCode code);
ExitCode complain(const ControlFailure& failure);
void printJson(const nlohmann::json& json);
ExitCode complainAboutReply(const std::exception& error);

// Makes every string of the reply safe and keeps it on one line, so that no name can start a line or a
// column.
[[nodiscard]] nlohmann::json safe(nlohmann::json answer);

// Prints the reply as it came, or as formatted by `text`, which takes the decoded message.
template <typename Message, typename Text>
ExitCode show(const ControlClient::Result<nlohmann::json>& answer, VerbOutput output, Text&& text) {
    if (!answer) {
        return complain(answer.error());
    }
    if (output == VerbOutput::json) {
        printJson(*answer);
        return ExitCode::done;
    }
    try {
        print(text(JsonCoding::value<Message>(safe(*answer))));
    } catch (const std::exception& error) {
        return complainAboutReply(error);
    }
    return ExitCode::done;
}

// Describes what was saved.
[[nodiscard]] std::string savedText(const nlohmann::json& saved);

// Prints a restore's report. The exit code is `failed` if a window could not be restored.
ExitCode showReport(const ControlClient::Result<nlohmann::json>& answer, const VerbEnvironment& environment,
                    VerbOutput output);

} // namespace VerbPrinting

} // namespace vantrel
