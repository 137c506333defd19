// vantrelctl: queries a running vantrel and gives it commands.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/verbs/TranslatedHelp.h"
#include "Vantrel/commands/verbs/UsageMistake.h"
#include "Vantrel/commands/verbs/VerbPrinting.h"
#include "Vantrel/commands/verbs/VerbTable.h"
#include "Vantrel/platform/posix/InstanceLock.h"
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "Vantrel/platform/posix/Terminal.h"
#include "Vantrel/platform/qt/UserFolders.h"
#include "VantrelCore/ports/SessionLanguage.h"
#include "VantrelCore/text/Translation.h"

#include <CLI/CLI.hpp>
#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fmt/format.h>

namespace {

using namespace vantrel;

constexpr const char* examples =
    marked("Examples:\n"
           "  vantrelctl save            remember where the windows are now\n"
           "  vantrelctl restore         put them back and list the result for each\n"
           "  vantrelctl undo            return them to where they were before\n"
           "  vantrelctl save-scene Work save the desk as a scene\n"
           "  vantrelctl apply Work      arrange the desk as saved in the scene\n"
           "  vantrelctl desks           draw every remembered desk\n"
           "  vantrelctl log --follow    watch what vantrel does");

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

std::expected<std::shared_ptr<void>, std::string> lockSupportDirectory() {
    auto lock = InstanceLock::take(UserFolders::supportDirectory());
    if (!lock) {
        return std::unexpected(std::move(lock.error()));
    }
    return std::make_shared<InstanceLock>(std::move(*lock));
}

// Exits without running destructors: while statics are destroyed, Qt 6.4's bus thread processes messages of
// types that no longer exist, and prints warnings about them.
[[noreturn]] void leave(ExitCode code) {
    const bool isWritten = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    if (!isWritten) {
        code = VerbPrinting::complain(tr("The output could not be written."), ExitCode::failed);
    }
    std::fflush(nullptr);
    std::_Exit(static_cast<int>(code));
}

} // namespace

int main(int argumentCount, char** arguments) {
    useSessionLanguage();
    CLI::App app(marked("Queries and controls the running vantrel."), "vantrelctl");
    app.formatter(std::make_shared<TranslatedHelp>());
    app.footer(fmt::format("{}\n{}", tr(VerbPrinting::exitCodes), tr(examples)));
    app.set_help_flag("-h,--help", marked("Show this help"));
    app.set_version_flag("-V,--version", "vantrelctl " VANTREL_VERSION, marked("Show the version"));
    app.require_subcommand(1);

    const VerbTable verbs(app, everyCommand());

    if (argumentCount < 2) {
        fmt::print(stderr, "{}", app.help());
        return static_cast<int>(ExitCode::usage);
    }
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::Success& question) {
        app.exit(question);
        leave(ExitCode::done);
    } catch (const CLI::ParseError& error) {
        const std::string known = UsageMistake::command(app);
        const std::string topic = known.substr(known.find(' ') + 1);
        leave(VerbPrinting::complain(trf("{} See: vantrelctl help{}{}", UsageMistake::sentence(app, error),
                                         topic == known ? "" : " ", topic == known ? "" : topic),
                                     ExitCode::usage));
    }

    const QCoreApplication application(argumentCount, arguments);
    PosixFileSystem files;
    leave(verbs.run({.version = VANTREL_VERSION,
                     .drawing = drawingOptions,
                     .localDate = localDate,
                     .logFile = UserFolders::stateDirectory() / "app.log",
                     .files = files,
                     .supportDirectory = UserFolders::supportDirectory(),
                     .stateDirectory = UserFolders::stateDirectory(),
                     .settingsFile = UserFolders::settingsFile(),
                     .lockSupportDirectory = lockSupportDirectory}));
}
