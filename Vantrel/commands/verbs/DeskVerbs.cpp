#include "Vantrel/commands/verbs/DeskVerbs.h"

#include "Vantrel/commands/terminal/CommandTexts.h"
#include "Vantrel/commands/terminal/HistoryText.h"
#include "Vantrel/commands/terminal/LogReader.h"
#include "VantrelCore/displays/DisplayLabels.h"

#include <CLI/CLI.hpp>

#include <chrono>
#include <cstdio>
#include <memory>
#include <thread>
#include <utility>

namespace vantrel {

namespace {

using namespace VerbPrinting;

ExitCode status(const VerbEnvironment& environment, VerbOutput output) {
    return show<StatusMessage>(ControlClient::call("Status"), output, [&](const StatusMessage& message) {
        return CommandTexts::status(message, environment.drawing(), environment.localDate);
    });
}

ExitCode desks(const VerbEnvironment& environment, VerbOutput output) {
    return show<DesksMessage>(ControlClient::call("Desks"), output, [&](const DesksMessage& message) {
        const auto text = CommandTexts::desks(message, environment.drawing(), environment.localDate);
        return text.empty() ? "No desks are saved yet. Save this one with: vantrelctl save\n" : text;
    });
}

// The displays of the status, each with its label.
ControlClient::Result<nlohmann::json> labelledDisplays() {
    const auto answer = ControlClient::call("Status");
    if (!answer) {
        return answer;
    }
    const auto displays = JsonCoding::value<StatusMessage>(*answer).displays;
    if (displays.empty()) {
        return std::unexpected(ControlFailure{ControlFailure::Kind::failed, "No display is awake."});
    }
    const auto labels = DisplayLabels::of(displays);
    auto list = nlohmann::json::array();
    for (const DisplayInfo& display : displays) {
        list.push_back(display);
        list.back()["label"] = labels.at(display.uuid);
    }
    return nlohmann::json{{"displays", std::move(list)}};
}

ExitCode displays(VerbOutput output) {
    return show<nlohmann::json>(labelledDisplays(), output, [](const nlohmann::json& shown) {
        std::string text;
        for (const auto& display : shown.at("displays")) {
            text += JsonCoding::required<std::string>(display, "label") + '\n';
        }
        return text;
    });
}

ExitCode renameDesk(const std::string& name, VerbOutput output) {
    return show<nlohmann::json>(ControlClient::call("RenameDesk", {name}), output,
                                [](const nlohmann::json& desk) {
                                    return fmt::format("This desk is now called \"{}\".\n",
                                                       JsonCoding::required<std::string>(desk, "name"));
                                });
}

ExitCode save(VerbOutput output) {
    return show<nlohmann::json>(ControlClient::call("Save"), output, savedText);
}

ExitCode history(const VerbEnvironment& environment, VerbOutput output) {
    return show<RestoreLog>(ControlClient::call("History"), output, [&](const RestoreLog& log) {
        const auto now = std::chrono::floor<Date::duration>(std::chrono::system_clock::now());
        const auto text = HistoryText::history(log, now, environment.drawing());
        return text.empty() ? "No windows were restored in the last seven days.\n" : text;
    });
}

ExitCode pin(const char* method, VerbOutput output) {
    return show<nlohmann::json>(ControlClient::call(method), output, [](const nlohmann::json& layout) {
        return fmt::format("{} layout \"{}\" of {}.\n",
                           JsonCoding::required<bool>(layout, "pinned") ? "Pinned" : "Unpinned",
                           JsonCoding::required<std::string>(layout, "layoutName"),
                           JsonCoding::required<std::string>(layout, "configName"));
    });
}

struct LogOptions {
    std::size_t lines = 20;
    bool isFollowing = false;
};

ExitCode log(const std::filesystem::path& file, const LogOptions& options) {
    LogReader reader(file);
    const auto last = reader.lastLines(options.lines);
    std::error_code ignored;
    if (!options.isFollowing && !std::filesystem::exists(file, ignored)) {
        return complain(fmt::format("There is no log yet; vantrel writes it to {}.", file.string()),
                        ExitCode::failed);
    }
    print(last);
    while (options.isFollowing) {
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

void addDeskVerbs(VerbTable& table, CLI::App& app) {
    const auto& environment = table.environment();
    table.add(app, "status", "Show the current desk and what vantrel is doing",
              [&environment](VerbOutput output) { return status(environment, output); });
    table.add(app, "save", "Save the windows of this desk as they are now", save);
    table.add(app, "restore", "Restore the windows of this desk, wait, and report on every window",
              [&environment](VerbOutput output) {
                  return showReport(ControlClient::call("Restore"), environment, output);
              });
    const auto drawn = [&environment](VerbOutput output) { return desks(environment, output); };
    auto& desksVerb = table.add(app, "desks", "Draw every remembered desk with its windows", drawn);
    table.add(desksVerb, "list", "Draw every remembered desk with its windows", drawn);
    table.add(app, "displays", "List the displays by the labels used in other commands", displays);
    const auto name = std::make_shared<std::string>();
    table
        .add(desksVerb, "rename", "Give this desk a name of your own",
             [name](VerbOutput output) { return renameDesk(*name, output); })
        .add_option("name", *name, "Its new name")
        ->required();
    table.add(app, "history", "List the last restores with the outcome for every window",
              [&environment](VerbOutput output) { return history(environment, output); });
    table.add(app, "pin", "Keep this desk's layout as saved: do not learn, put drifting windows back",
              [](VerbOutput output) { return pin("Pin", output); });
    table.add(app, "unpin", "Learn this desk's layout again",
              [](VerbOutput output) { return pin("Unpin", output); });

    const auto options = std::make_shared<LogOptions>();
    auto& logVerb = table.addPlain(
        app, "log", "Print the last lines of vantrel's log",
        [&environment, options](VerbOutput /*text*/) { return log(environment.logFile, *options); });
    logVerb.add_option("-n,--lines", options->lines, "How many lines")->capture_default_str();
    logVerb.add_flag("-f,--follow", options->isFollowing, "Keep printing new lines until interrupted");
}

} // namespace vantrel
