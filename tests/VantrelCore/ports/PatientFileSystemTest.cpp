#include "VantrelCore/ports/PatientFileSystem.h"

#include "tests/simulated/MemoryFileSystem.h"

#include <functional>
#include <gtest/gtest.h>

namespace vantrel {

namespace {

// Time passes only in sleep().
class SleepingClock final : public Clock {
public:
    Date now() override { return {}; }
    double monotonicSeconds() override { return m_seconds; }
    void sleep(double seconds) override {
        m_seconds += seconds;
        m_slept += seconds;
        if (onSleep) {
            onSleep();
        }
    }

    double m_seconds = 100;
    double m_slept = 0;
    std::function<void()> onSleep;
};

struct PatientFileSystemTest : testing::Test {
    simulated::MemoryFileSystem disk;
    SleepingClock clock;
    PatientFileSystem files{disk, clock};

    PatientFileSystemTest() {
        disk.put("/v/a", "a");
        disk.put("/v/b", "b");
    }
};

TEST_F(PatientFileSystemTest, RetriesTransientErrors) {
    for (const auto error : {std::errc::io_error, std::errc::interrupted, std::errc::too_many_files_open,
                             std::errc::too_many_files_open_in_system, std::errc::not_enough_memory,
                             std::errc::resource_unavailable_try_again}) {
        disk.failReading("/v/a", error);
        clock.onSleep = [&, sleeps = 0]() mutable {
            if (++sleeps == 3) {
                disk.stopFailing();
            }
        };
        EXPECT_EQ(files.read("/v/a"), "a");
        clock.m_seconds += 60;
        disk.failOnceAfter(0, error);
        EXPECT_EQ(files.list("/v").value().size(), 2U);
    }
}

TEST_F(PatientFileSystemTest, ReportsPermanentErrorsAtOnce) {
    disk.failReading("/v/a", std::errc::permission_denied);
    EXPECT_EQ(files.read("/v/a").error(), std::errc::permission_denied);
    EXPECT_EQ(files.read("/v/missing").error(), std::errc::no_such_file_or_directory);
    EXPECT_EQ(clock.m_slept, 0);
}

TEST_F(PatientFileSystemTest, WaitsASecondInAllAndAgainAfterARespite) {
    disk.failReading("/v/a", std::errc::io_error);
    disk.failReading("/v/b", std::errc::io_error);
    EXPECT_EQ(files.read("/v/a").error(), std::errc::io_error);
    EXPECT_EQ(files.read("/v/b").error(), std::errc::io_error);
    EXPECT_DOUBLE_EQ(clock.m_slept, PatientFileSystem::patience);
    clock.m_seconds += PatientFileSystem::respite + 1;
    EXPECT_EQ(files.read("/v/b").error(), std::errc::io_error);
    EXPECT_DOUBLE_EQ(clock.m_slept, 2 * PatientFileSystem::patience);
}

} // namespace

} // namespace vantrel
