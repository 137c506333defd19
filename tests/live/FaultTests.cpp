// The whole program while system calls on its files fail. The table of them all is tests/faults.
#include "tests/live/VantrelDesk.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fmt/format.h>
#include <fstream>
#include <gmock/gmock.h>
#include <limits>

namespace vantrel::live {
namespace {

using ::testing::AnyOf;

std::string textOf(const std::filesystem::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

struct Fault {
    std::size_t firstCall;
    std::size_t count;
    int error;
};

// Call after call, with an error each, and disks that are gone, full or read-only from a call on.
std::vector<Fault> faults() {
    constexpr auto forEver = std::numeric_limits<std::size_t>::max();
    const char* const value = std::getenv("VANTREL_FAULTS");
    const bool isFull = value != nullptr && std::string_view(value) == "full";
    std::vector<Fault> result;
    constexpr std::size_t lastCall = 120;
    constexpr std::array errors{EIO, ENOSPC, EMFILE};
    for (std::size_t call = 0; call < lastCall; call += isFull ? 1 : 5) {
        result.push_back({call, 1, errors[result.size() % errors.size()]});
    }
    for (const std::size_t call : {0, 40}) {
        result.push_back({call, forEver, call == 0 ? EIO : ENOSPC});
    }
    result.push_back({0, forEver, EROFS});
    return result;
}

TEST(Faults, TheWholeProgramLosesNoLayoutAndTellsWhatFailed) {
    VantrelDesk desk("openbox");
    desk.open({"galculator"});
    {
        const auto run = desk.startVantrel();
        desk.done({"save"});
    }
    const auto layouts = desk.vantrelFolder() / "layouts.json";
    const auto saved = textOf(layouts);
    const auto program =
        nlohmann::json::parse(saved).at("layouts").at(0).at("windows").at(0).at("bundleID").dump();
    for (const auto& fault : faults()) {
        SCOPED_TRACE(
            fmt::format("call {}, {} times: {}", fault.firstCall, fault.count, std::strerror(fault.error)));
        ProgramRun run(desk, {VANTREL_PROGRAM},
                       {"LD_PRELOAD=" FAULTY_SYSTEM_LIBRARY, "ASAN_OPTIONS=verify_asan_link_order=0",
                        fmt::format("VANTREL_FAULT={}:{}:{}:{}", desk.vantrelFolder().string(),
                                    fault.firstCall, fault.count, fault.error)});
        EXPECT_TRUE(
            waitUntil([&] { return desk.control({"status"}).code == 0 || !run.process().isRunning(); }));
        const auto answer = desk.control({"save"});
        EXPECT_THAT(answer.code, AnyOf(0, 1, 3)) << answer.output;
        EXPECT_FALSE(answer.output.empty());
        const auto status = desk.control({"status"}).output;
        const auto ended = run.endedBy(SIGTERM);
        EXPECT_THAT(ended.code, AnyOf(0, 1)) << ended.output;
        EXPECT_TRUE(ended.code == 0 || !ended.output.empty());

        // The layout is in its file, or in a copy that somebody has named.
        const auto told = status + ended.output + desk.log();
        bool isThere = false;
        for (const auto& entry : std::filesystem::directory_iterator(desk.vantrelFolder())) {
            const auto name = entry.path().filename().string();
            const bool isCopy = name.find(".corrupt") != std::string::npos;
            EXPECT_TRUE(!isCopy || told.find(name) != std::string::npos) << name;
            isThere = isThere || (name.starts_with("layouts.json") &&
                                  textOf(entry.path()).find(program) != std::string::npos);
            if (isCopy) {
                std::filesystem::remove(entry.path());
            }
        }
        EXPECT_TRUE(isThere);
        std::ofstream(layouts) << saved;
    }
    const auto run = desk.startVantrel();
    EXPECT_THAT(desk.done({"restore"}), testing::HasSubstr("Restored 1 of 1 window"));
}

} // namespace
} // namespace vantrel::live
