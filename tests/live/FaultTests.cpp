// The whole program while system calls on its files fail; tests/faults tries every call of every store.
#include "tests/live/VantrelDesk.h"

#include <cerrno>
#include <csignal>
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

// Single calls that fail, and disks that are broken, full or read-only from a call on.
std::vector<Fault> faults() {
    constexpr auto forever = std::numeric_limits<std::size_t>::max();
    std::vector<Fault> result{{0, forever, EIO}, {40, forever, ENOSPC}, {0, forever, EROFS}};
    for (std::size_t call = 0; call < 120; call += 15) {
        result.insert(result.end(), {{call, 1, EIO}, {call + 5, 1, ENOSPC}, {call + 10, 1, EMFILE}});
    }
    return result;
}

TEST(Faults, LoseNoLayoutAndAreReported) {
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
        const auto reply = desk.control({"save"});
        EXPECT_THAT(reply.code, AnyOf(0, 1, 3)) << reply.output;
        EXPECT_FALSE(reply.output.empty());
        const auto status = desk.control({"status"}).output;
        const auto ended = run.endedBy(SIGTERM);
        EXPECT_THAT(ended.code, AnyOf(0, 1)) << ended.output;
        EXPECT_TRUE(ended.code == 0 || !ended.output.empty());

        // The layout is in its file, or in a copy that vantrel has named.
        const auto reported = status + ended.output + desk.log();
        bool isThere = false;
        for (const auto& entry : std::filesystem::directory_iterator(desk.vantrelFolder())) {
            const auto name = entry.path().filename().string();
            const bool isCopy = name.contains(".corrupt");
            EXPECT_TRUE(!isCopy || reported.contains(name)) << name;
            isThere = isThere || (name.starts_with("layouts.json") && textOf(entry.path()).contains(program));
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
