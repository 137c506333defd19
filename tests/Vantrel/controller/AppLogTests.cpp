#include "Vantrel/controller/AppLog.h"
#include "tests/simulated/MemoryFileSystem.h"
#include "tests/simulated/SimulatedTime.h"

#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

struct Logging : testing::Test {
    SimulatedTime time;
    MemoryFileSystem files;
    AppLog log{"/support", files, time};

    std::string content(const char* file) { return files.content(file).value_or("none"); }
};

TEST_F(Logging, WritesOneLineWithTheTimePerMessage) {
    log.write("display settled: two\nlines\x7f of \xC3\xA4\u0085\x1b\u202e.");
    time.runFor(61.9);
    log.write("second");
    EXPECT_EQ(content("/support/app.log"),
              "[2026-03-02T00:00:00Z] display settled: two lines  of \xC3\xA4  .\n"
              "[2026-03-02T00:01:01Z] second\n");
}

TEST_F(Logging, RotatesBeyondAMillionBytes) {
    files.put("/support/app.log.1", "oldest");
    const std::string old(AppLog::maxBytes, 'x');
    files.put("/support/app.log", old);
    log.write("still fits");
    EXPECT_EQ(content("/support/app.log.1"), "oldest");
    log.write("first");
    EXPECT_TRUE(content("/support/app.log.1").ends_with("still fits\n"));
    EXPECT_EQ(content("/support/app.log"), "[2026-03-02T00:00:00Z] first\n");
}

TEST_F(Logging, GoesOnAfterAFailedWrite) {
    files.failAll(MemoryFileSystem::Operation::append, std::errc::no_space_on_device);
    log.write("lost");
    files.stopFailing();
    log.write("kept");
    EXPECT_EQ(content("/support/app.log"), "[2026-03-02T00:00:00Z] kept\n");
}

} // namespace
} // namespace vantrel::simulated
