// The bus service and the command line: replies, calls, doctor, logs, settings, output.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/commands/ControlNames.h"
#include "Vantrel/commands/Diagnosis.h"
#include "Vantrel/commands/terminal/LogReader.h"
#include "Vantrel/commands/verbs/UsageMistake.h"
#include "Vantrel/commands/verbs/VerbPrinting.h"
#include "Vantrel/commands/verbs/VerbTable.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"
#include "tests/simulated/MemoryFileSystem.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <fstream>
#include <gmock/gmock.h>
#include <stdexcept>

namespace vantrel {
namespace {

using testing::Contains, testing::HasSubstr;
using Line = Diagnosis::Line;

Layout layout(const std::string& desk, const std::string& deskName, const std::string& name) {
    Layout result;
    result.configID = desk;
    result.name = deskName;
    result.layoutName = name;
    return result;
}

std::string summary(const DesksMessage& message) {
    std::string text;
    for (const auto& desk : message.desks) {
        text += desk.name + (desk.isCurrent ? "*" : "") + ":";
        for (const auto& each : desk.layouts) {
            text += " " + each.layoutName + (each.layoutName == desk.activeLayoutName ? "!" : "");
        }
        text += "; ";
    }
    return text;
}

TEST(ControlAnswers, ListTheCurrentDeskThenOthersByName) {
    PublishedState state;
    state.configID = "here";
    state.configName = "Laptop";
    state.activeLayoutName = "Reading";
    const auto active = [](const std::string& desk) { return desk == "b" ? "Other" : "Default"; };
    const std::vector layouts{layout("z", "Zoo", "Default"),        layout("b", "Attic", "Zebra"),
                              layout("here", "Kitchen", "Reading"), layout("b", "Attic", "Default"),
                              layout("b", "Attic", "Other"),        layout("here", "Kitchen", "Default")};

    EXPECT_EQ(summary(ControlAnswers::desks(state, layouts, active)),
              "Kitchen*: Default Reading!; Attic: Default Other! Zebra; Zoo: Default!; ");
    EXPECT_EQ(summary(ControlAnswers::desks(state, {}, active)), "Laptop*:; ");
    EXPECT_EQ(summary(ControlAnswers::desks({}, {}, active)), "");
}

TEST(ControlCall, RepliesExactlyOnceWhateverTheCallDoes) {
    ControlReply kept;
    const auto failed = std::string(ControlNames::failed);
    const auto fail = [] { throw std::runtime_error("no room"); };
    const std::tuple<const char*, std::function<void(const ControlReply&)>, std::string, std::size_t>
        cases[] = {
            {"answers", [](const ControlReply& reply) { reply("done"); }, "done", 0},
            {"answers twice", [](const ControlReply& reply) { reply("done"), reply("again"); }, "done", 0},
            {"answers later", [&](const ControlReply& reply) { kept = reply; }, "later", 0},
            {"throws", [&](const ControlReply&) { fail(); }, failed, 1},
            {"throws after its answer", [&](const ControlReply& reply) { reply("done"), fail(); }, "done", 1},
            {"forgets", [](const ControlReply&) {}, failed, 0}};
    for (const auto& [name, call, expected, logged] : cases) {
        SCOPED_TRACE(name);
        std::vector<std::string> answers;
        std::vector<std::string> lines;
        ControlCall::run(
            {.name = "RestoreNow",
             .arguments = {},
             .result = "report",
             .call = [&call](const auto&, const ControlReply& reply) { call(reply); }},
            {},
            [&](const ControlAnswer& answer) {
                answers.push_back(answer ? answer->get<std::string>() : answer.error().error);
            },
            [&](const std::string& line) { lines.push_back(line); });
        if (const auto reply = std::exchange(kept, nullptr)) {
            EXPECT_THAT(answers, testing::IsEmpty());
            reply("later");
        }
        EXPECT_THAT(answers, testing::ElementsAre(expected));
        EXPECT_EQ(lines, std::vector<std::string>(logged, "bus: RestoreNow: stopped by an error: no room"));
    }
}

struct DoctorTest : testing::Test {
    simulated::MemoryFileSystem files;
    std::expected<StatusMessage, std::string> status;

    DoctorTest() {
        status->version = "1.2";
        status->phase.name = "saved";
        files.put("/data/layouts.json", R"({"version": 2, "layouts": []})");
        files.put("/config/settings.conf", "");
    }

    Diagnosis examine() {
        return Doctor::examine({.files = files,
                                .supportDirectory = "/data",
                                .stateDirectory = "/state",
                                .settingsFile = "/config/settings.conf",
                                .status = status,
                                .localDate = [](Date) { return std::string("today"); }});
    }
};

TEST_F(DoctorTest, FindsNothingOnASoundSystem) {
    const auto before = files.files();
    EXPECT_TRUE(examine().isSound()) << Doctor::text(examine());
    EXPECT_EQ(files.files(), before);
}

TEST_F(DoctorTest, OffersACopyOfAMissingFile) {
    files.put("/data/usage.json.corrupt",
              R"({"restores":1,"windowsVantrel":1,"sceneSwitches":0,"stashUses":0,)"
              R"("undoUses":0,"deskIDs":[]})");
    EXPECT_THAT(examine().lines,
                Contains(Line{"files", false,
                              "usage.json.corrupt is a copy of usage.json from today; it can be put back",
                              "vantrelctl doctor --put-back usage.json.corrupt"}));
}

TEST_F(DoctorTest, ReportsEachProblem) {
    const auto expectLine = [this](const std::string& part) {
        EXPECT_FALSE(examine().isSound());
        EXPECT_THAT(Doctor::text(examine()), HasSubstr("\n!  " + part));
    };
    files.put("/data/scenes.json", "[");
    expectLine("files          scenes.json cannot be used (invalid JSON at byte 2)");
    files.failReading("/config/settings.conf", std::errc::permission_denied);
    expectLine("files          /config/settings.conf cannot be read (Permission denied)");
    status->fileIncidents.emplace_back().text = "layouts.json could not be written.";
    expectLine("files          layouts.json could not be written.");
    status->phase.name = "needsPermission";
    expectLine("window manager no window manager that can move windows is running");
    status = std::unexpected("vantrel is not running.");
    expectLine("bus            vantrel is not running.");
    files.failAll(simulated::MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    EXPECT_THAT(Doctor::text(examine()), HasSubstr("/data cannot be written (No space left on device)"));
}

struct LogReaderTest : ::testing::Test {
    TemporaryFolder folder;
    const std::filesystem::path log = folder.path() / "app.log";
    const std::filesystem::path older = folder.path() / "app.log.1";

    static void append(const std::filesystem::path& file, const std::string& text) {
        std::ofstream(file, std::ios::app) << text;
    }
};

TEST_F(LogReaderTest, ReturnsTheLastLines) {
    append(log, "a\nb\n\nc");
    struct Case {
        std::size_t count;
        const char* text;
    };
    for (const auto& [count, text] : {Case{0, ""}, Case{1, "c"}, Case{2, "\nc"}, Case{3, "b\n\nc"},
                                      Case{4, "a\nb\n\nc"}, Case{100, "a\nb\n\nc"}}) {
        EXPECT_EQ(LogReader(log).lastLines(count), text) << count;
    }
}

TEST_F(LogReaderTest, ContinuesIntoTheRotatedFile) {
    append(older, "a\nb\n");
    append(log, "c\n");
    EXPECT_EQ(LogReader(log).lastLines(2), "b\nc\n");
    EXPECT_EQ(LogReader(log).lastLines(1), "c\n");
}

TEST_F(LogReaderTest, FollowsAcrossRotation) {
    LogReader reader(log);
    EXPECT_EQ(reader.lastLines(5), "");
    EXPECT_EQ(reader.appended(), "");
    append(log, "one line\n");
    EXPECT_EQ(reader.appended(), "one line\n");
    EXPECT_EQ(reader.appended(), "");
    append(log, "unread before\n");
    std::filesystem::rename(log, older);
    EXPECT_EQ(reader.appended(), "");
    append(log, "new\n");
    EXPECT_EQ(reader.appended(), "unread before\nnew\n");
    EXPECT_EQ(reader.appended(), "");
}

const std::string hostile = "\x1b]0;owned\x07\nLayout deleted.\u009b2J\u202e";

template <typename Print>
std::string printed(Print&& print) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    print();
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr();
}

TEST(VerbPrinting, EscapesEverythingFromOutside) {
    using namespace VerbPrinting;
    const nlohmann::json answer{{"name", hostile}, {"list", {{{"deep", hostile}}}}};
    const auto sentence = [](const nlohmann::json& shown, const VerbCall&) {
        return shown.at("name").get<std::string>() + shown.at("list")[0].at("deep").get<std::string>() + '\n';
    };
    simulated::MemoryFileSystem files;
    const VerbEnvironment environment{.files = files};
    const Typed typed;
    VerbCall call{.environment = environment, .typed = typed};
    const std::string safe = " ]0;owned  Layout deleted. 2J";
    EXPECT_EQ(printed([&] { show(answer, sentence, call); }), safe + safe + '\n');
    EXPECT_EQ(printed([&] { complain(hostile, ExitCode::failed); }), "vantrelctl: " + safe + '\n');
    EXPECT_EQ(printed([&] { print("a log line of \x1b[1m\n"); }), "a log line of  [1m\n");
    call.output = VerbOutput::json;
    const auto json = printed([&] { show(answer, sentence, call); });
    EXPECT_EQ(json.find_first_of("\x1b\x07\xc2\xe2"), std::string::npos) << json;
    EXPECT_EQ(nlohmann::json::parse(json), answer);
}

TEST(UsageMistake, NamesTheMistakeAndWhatWasProbablyMeant) {
    const auto complaint = [](const std::string& line) -> std::string {
        CLI::App app("", "vantrelctl");
        app.require_subcommand(1);
        const VerbTable verbs(app, everyCommand());
        try {
            app.parse(line);
        } catch (const CLI::ParseError& error) {
            return UsageMistake::sentence(app, error);
        }
        return "";
    };
    EXPECT_EQ(complaint("restor"), R"(There is no command "vantrelctl restor". Did you mean "restore"?)");
    EXPECT_EQ(complaint("frobnicate"), R"(There is no command "vantrelctl frobnicate".)");
    EXPECT_EQ(complaint("stash togle"),
              R"(There is no command "vantrelctl stash togle". Did you mean "toggle"?)");
    EXPECT_EQ(complaint("layouts --jsn"),
              R"("vantrelctl layouts" has no option --jsn. Did you mean "--json"?)");
    EXPECT_EQ(complaint("apply Work now"), R"("now" is one word too many for "vantrelctl apply".)");
    EXPECT_EQ(complaint("settings set showHUD"), R"("vantrelctl settings set" needs the argument VALUE.)");
    EXPECT_EQ(complaint("log -n many"), R"(--lines takes a whole number, not "many".)");
    EXPECT_EQ(complaint("log -n"), "--lines needs a value.");
    EXPECT_EQ(complaint("completion ksh"), R"(shell is one of bash, fish, zsh, not "ksh".)");
    EXPECT_EQ(complaint("log -n 5"), "");
}

} // namespace
} // namespace vantrel
