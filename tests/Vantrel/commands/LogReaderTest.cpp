#include "Vantrel/commands/terminal/LogReader.h"

#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace vantrel;

namespace {

struct LogReaderTest : ::testing::Test {
    TemporaryFolder folder;
    const std::filesystem::path log = folder.path() / "app.log";
    const std::filesystem::path older = folder.path() / "app.log.1";

    static void append(const std::filesystem::path& file, const std::string& text) {
        std::ofstream(file, std::ios::app) << text;
    }
};

} // namespace

TEST_F(LogReaderTest, GivesTheLastLines) {
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

TEST_F(LogReaderTest, ReachesBackIntoTheOlderGeneration) {
    append(older, "a\nb\n");
    append(log, "c\n");
    EXPECT_EQ(LogReader(log).lastLines(2), "b\nc\n");
    EXPECT_EQ(LogReader(log).lastLines(1), "c\n");
}

TEST_F(LogReaderTest, FollowsWhatIsAddedAcrossTheChangeOfGeneration) {
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
