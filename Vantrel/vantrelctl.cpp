// vantrelctl: asks a running vantrel what it knows and has it save and restore.
#include "Vantrel/commands/ControlClient.h"
#include "Vantrel/commands/ReportMessage.h"
#include "Vantrel/commands/terminal/CommandTexts.h"
#include "Vantrel/commands/terminal/HistoryText.h"
#include "Vantrel/commands/terminal/LogReader.h"
#include "Vantrel/platform/posix/Terminal.h"
#include "Vantrel/platform/qt/UserFolders.h"
#include "VantrelCore/model/JsonCoding.h"

#include <CLI/CLI.hpp>
#include <QCoreApplication>

#include <chrono>
#include <cstdio>
#include <ctime>
#include <fmt/format.h>
#include <thread>

namespace {

using namespace vantrel;

enum class ExitCode : std::uint8_t { done = 0, failed = 1, usage = 2, notRunning = 3 };

enum class Format : std::uint8_t { text, json };

constexpr const char* exitCodes =
    "Exit codes: 0 done, 1 failed (or a window did not go back), 2 wrong usage, 3 vantrel is not running.";

constexpr const char* examples = "Examples:\n"
                                 "  vantrelctl save            remember the windows where they stand now\n"
                                 "  vantrelctl restore         put them back, and say what became of each\n"
                                 "  vantrelctl desks           draw every desk that is remembered\n"
                                 "  vantrelctl log --follow    watch what vantrel does";

void print(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
}

ExitCode complain(const std::string& sentence, ExitCode code) {
    std::fflush(stdout);
    fmt::print(stderr, "vantrelctl: {}\n", sentence);
    return code;
}

ExitCode complain(const ControlFailure& failure) {
    return complain(failure.message, failure.kind == ControlFailure::Kind::notRunning ? ExitCode::notRunning
                                                                                      : ExitCode::failed);
}

std::string localDate(Date date) {
    const auto seconds = std::chrono::system_clock::to_time_t(
        std::chrono::time_point_cast<std::chrono::system_clock::duration>(date));
    std::tm local{};
    localtime_r(&seconds, &local);
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}", local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                       local.tm_hour, local.tm_min);
}

DeskDrawing::Options drawingOptions() {
    const auto terminal = standardOutputTerminal();
    DeskDrawing::Options options;
    options.columns = terminal.columns;
    options.characters = terminal.characters == TerminalCharacters::utf8 ? DeskDrawing::Characters::unicode
                                                                         : DeskDrawing::Characters::ascii;
    return options;
}

// Prints the answer as it came, or as `text` makes of it.
template <typename Message, typename Text>
ExitCode show(const ControlClient::Result<nlohmann::json>& answer, Format format, Text&& text) {
    if (!answer) {
        return complain(answer.error());
    }
    if (format == Format::json) {
        print(answer->dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + '\n');
        return ExitCode::done;
    }
    try {
        print(text(JsonCoding::value<Message>(*answer)));
    } catch (const std::exception& error) {
        return complain(fmt::format("vantrel gave an answer that is not understood ({}). Are vantrel and "
                                    "vantrelctl of the same version?",
                                    error.what()),
                        ExitCode::failed);
    }
    return ExitCode::done;
}

ExitCode status(Format format) {
    return show<StatusMessage>(ControlClient().status(), format, [](const StatusMessage& message) {
        return CommandTexts::status(message, drawingOptions(), localDate);
    });
}

ExitCode desks(Format format) {
    return show<DesksMessage>(ControlClient().desks(), format, [](const DesksMessage& message) {
        const auto text = CommandTexts::desks(message, drawingOptions(), localDate);
        return text.empty() ? "No desk is remembered yet. Save this one with: vantrelctl save\n" : text;
    });
}

ExitCode save(Format format) {
    return show<nlohmann::json>(ControlClient().save(), format, [](const nlohmann::json& saved) {
        const auto windows = JsonCoding::required<std::int64_t>(saved, "windows");
        return fmt::format("Saved {} {} for {}.\n", windows, windows == 1 ? "window" : "windows",
                           JsonCoding::required<std::string>(saved, "configName"));
    });
}

ExitCode restore(Format format) {
    std::size_t failed = 0;
    const auto answer = ControlClient().restore();
    if (answer) {
        failed = answer->value("failed", std::size_t{0});
    }
    const auto shown = show<RestoreReport>(answer, format, [](const RestoreReport& report) {
        return CommandTexts::report(report, drawingOptions());
    });
    return shown == ExitCode::done && failed > 0 ? ExitCode::failed : shown;
}

ExitCode history(Format format) {
    return show<RestoreLog>(ControlClient().history(), format, [](const RestoreLog& log) {
        const auto now = std::chrono::floor<Date::duration>(std::chrono::system_clock::now());
        const auto text = HistoryText::history(log, now, drawingOptions());
        return text.empty() ? "Nothing was put back in the last seven days.\n" : text;
    });
}

ExitCode showPin(const ControlClient::Result<nlohmann::json>& answer, Format format) {
    return show<nlohmann::json>(answer, format, [](const nlohmann::json& layout) {
        return fmt::format("{} layout \"{}\" of {}.\n",
                           JsonCoding::required<bool>(layout, "pinned") ? "Pinned" : "Unpinned",
                           JsonCoding::required<std::string>(layout, "layoutName"),
                           JsonCoding::required<std::string>(layout, "configName"));
    });
}

enum class Following : std::uint8_t { no, yes };

ExitCode log(std::size_t lines, Following following) {
    const auto file = UserFolders::supportDirectory() / "app.log";
    LogReader reader(file);
    const auto last = reader.lastLines(lines);
    std::error_code ignored;
    if (following == Following::no && !std::filesystem::exists(file, ignored)) {
        return complain(fmt::format("There is no log yet; vantrel writes it to {}.", file.string()),
                        ExitCode::failed);
    }
    print(last);
    while (following == Following::yes) {
        std::fflush(stdout);
        if (std::ferror(stdout) != 0) {
            return ExitCode::failed;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        print(reader.appended());
    }
    return ExitCode::done;
}

} // namespace

int main(int argumentCount, char** arguments) {
    CLI::App app("Asks the running vantrel about this desk, has it save and restore.", "vantrelctl");
    app.footer(std::string(exitCodes) + "\n" + examples);
    app.set_version_flag("--version", "vantrelctl " VANTREL_VERSION);
    app.require_subcommand(1);
    app.get_formatter()->column_width(26);

    bool asJson = false;
    const auto jsonCommand = [&](const char* name, const char* description) {
        auto* const added = app.add_subcommand(name, description)->footer(exitCodes);
        added->add_flag("--json", asJson, "Print JSON, for programs");
        return added;
    };
    const auto* const statusCommand =
        jsonCommand("status", "Say which desk this is and what vantrel is doing");
    const auto* const saveCommand =
        jsonCommand("save", "Remember the windows of this desk as they stand now");
    const auto* const restoreCommand =
        jsonCommand("restore", "Put the windows of this desk back, wait, and report on every window");
    const auto* const desksCommand = jsonCommand("desks", "Draw every remembered desk with its windows");
    const auto* const historyCommand =
        jsonCommand("history", "Tell of the last restores what became of every window");
    const auto* const pinCommand =
        jsonCommand("pin", "Keep this desk's layout as saved: learn nothing, put back what moves away");
    const auto* const unpinCommand = jsonCommand("unpin", "Learn this desk's layout again");
    auto* const logCommand = app.add_subcommand("log", "Print the end of vantrel's log");
    logCommand->footer(exitCodes);
    std::size_t lines = 20;
    bool follow = false;
    logCommand->add_option("-n,--lines", lines, "How many lines")->capture_default_str();
    logCommand->add_flag("-f,--follow", follow, "Go on printing what is added, until interrupted");

    if (argumentCount < 2) {
        fmt::print(stderr, "{}", app.help());
        return static_cast<int>(ExitCode::usage);
    }
    if (const std::string name = arguments[1];
        !name.starts_with('-') &&
        app.get_subcommands([&](const CLI::App* known) { return known->get_name() == name; }).empty()) {
        return static_cast<int>(complain(
            fmt::format("There is no command \"{}\". See: vantrelctl --help", name), ExitCode::usage));
    }
    app.failure_message([](const CLI::App* /*app*/, const CLI::Error& error) {
        return fmt::format("vantrelctl: {}. See: vantrelctl --help\n", error.what());
    });
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? static_cast<int>(ExitCode::done) : static_cast<int>(ExitCode::usage);
    }

    const QCoreApplication application(argumentCount, arguments);
    const auto format = asJson ? Format::json : Format::text;
    auto result = ExitCode::done;
    if (statusCommand->parsed()) {
        result = status(format);
    } else if (saveCommand->parsed()) {
        result = save(format);
    } else if (restoreCommand->parsed()) {
        result = restore(format);
    } else if (desksCommand->parsed()) {
        result = desks(format);
    } else if (historyCommand->parsed()) {
        result = history(format);
    } else if (pinCommand->parsed()) {
        result = showPin(ControlClient().pin(), format);
    } else if (unpinCommand->parsed()) {
        result = showPin(ControlClient().unpin(), format);
    } else {
        result = log(lines, follow ? Following::yes : Following::no);
    }
    return static_cast<int>(result);
}
