// The verbs of vantrelctl: what is typed, what is said about it, and what it does.
#pragma once

#include "Vantrel/commands/ControlClient.h"
#include "Vantrel/commands/terminal/DeskDrawing.h"
#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/ports/FileSystem.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <fmt/format.h>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

namespace vantrel {

enum class ExitCode : std::uint8_t { done = 0, failed = 1, usage = 2, notRunning = 3 };

enum class VerbOutput : std::uint8_t { text, json };

// What a verb knows of the machine it is typed on.
struct VerbEnvironment {
    // Asked when something is about to be printed.
    std::function<DeskDrawing::Options()> drawing;
    // A date in the user's own time zone.
    std::function<std::string(Date)> localDate;
    // The log of the running program.
    std::filesystem::path logFile;
    FileSystem& files;
    // Where the program keeps its stores, and its settings.
    std::filesystem::path supportDirectory;
    std::filesystem::path settingsFile;
    // Keeps every vantrel from using the support folder as long as the result lives; else says who uses it.
    std::function<std::expected<std::shared_ptr<void>, std::string>()> lockSupportDirectory;
};

class VerbTable {
public:
    // A verb that is to do something gets the format that the user wants to read.
    using Run = std::function<ExitCode(VerbOutput)>;

    explicit VerbTable(VerbEnvironment environment) : m_environment(std::move(environment)) {}

    // Adds a verb with --json below `parent`. The variables that
    // the caller's options set live as long as the verb: keep them in what `run` holds.
    CLI::App& add(CLI::App& parent, const std::string& name, const std::string& description, Run run);
    // A verb that prints for people only.
    CLI::App& addPlain(CLI::App& parent, const std::string& name, const std::string& description, Run run);

    // Runs the innermost verb of what was parsed.
    [[nodiscard]] ExitCode run() const;

    [[nodiscard]] const VerbEnvironment& environment() const { return m_environment; }

private:
    struct Verb {
        const CLI::App* command;
        Run run;
    };

    VerbEnvironment m_environment;
    std::vector<Verb> m_verbs;
    bool m_asJson = false;
};

// What the verbs print. Everything passes through here, and here texts from outside are made safe for a
// terminal (SafeText).
namespace VerbPrinting {

inline constexpr const char* exitCodes =
    "Exit codes: 0 done, 1 failed (or a window did not go back), 2 wrong usage, 3 vantrel is not running.";

// Lines for a person.
void print(std::string_view text);
// On standard error, behind the program's name.
ExitCode complain(const std::string& sentence, ExitCode code);
ExitCode complain(const ControlFailure& failure);
void printJson(const nlohmann::json& json);
ExitCode complainOfAnswer(const std::exception& error);

// The answer with every text made safe and kept on one line, so that no name can start a line or a column.
[[nodiscard]] nlohmann::json safe(nlohmann::json answer);

// Prints the answer as it came, or as `text` makes of it; `text` takes what the answer holds.
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
        return complainOfAnswer(error);
    }
    return ExitCode::done;
}

// What was remembered.
[[nodiscard]] std::string savedText(const nlohmann::json& saved);

// A restore's report; the code says when a window did not go back.
ExitCode showReport(const ControlClient::Result<nlohmann::json>& answer, const VerbEnvironment& environment,
                    VerbOutput output);

} // namespace VerbPrinting

} // namespace vantrel
