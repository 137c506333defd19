#include "Vantrel/platform/posix/AutostartEntry.h"
#include "Vantrel/platform/posix/AutostartFile.h"
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {
namespace {

using AutostartEntry::Change;
using ::testing::HasSubstr;

TEST(AutostartEntry, QuotesWhatACommandLineWouldTakeApart) {
    EXPECT_THAT(AutostartEntry::text("/usr/bin/vantrel"), HasSubstr("\nExec=\"/usr/bin/vantrel\"\n"));
    EXPECT_THAT(AutostartEntry::text(R"(/my "$d"/100%\v)"), HasSubstr(R"(Exec="/my \\"\\$d\\"/100%%\\\\v")"
                                                                      "\n"));
}

TEST(AutostartEntry, IsChangedOnlyWhereNobodyElseHas) {
    const std::string program = "/usr/bin/vantrel";
    const auto ours = AutostartEntry::text(program);
    const auto elsewhere = AutostartEntry::text("/home/me/build/vantrel");
    const std::tuple<bool, std::optional<std::string>, Change> cases[] = {
        {true, std::nullopt, Change::write},
        {false, std::nullopt, Change::nothing},
        {true, ours, Change::nothing},
        {false, ours, Change::remove},
        {true, elsewhere, Change::write},
        {false, elsewhere, Change::remove},
        {true, ours + "Hidden=true\n", Change::leaveAlone},
        {false, ours + "X-Delay=5\n", Change::leaveAlone},
        {true, "", Change::leaveAlone}};
    for (const auto& [isWanted, existing, change] : cases) {
        EXPECT_EQ(AutostartEntry::change(isWanted, existing, program), change)
            << isWanted << " " << existing.value_or("none");
    }
}

TEST(AutostartFile, IsThereWhileWantedAndSaysWhenItCannotBe) {
    const TemporaryFolder folder;
    PosixFileSystem files;
    const auto file = folder.path() / "autostart" / "vantrel.desktop";
    AutostartFile autostart(files, file, "/usr/bin/vantrel");
    EXPECT_THAT(autostart.setLaunchAtLogin(true), HasSubstr("written"));
    EXPECT_EQ(files.read(file), AutostartEntry::text("/usr/bin/vantrel"));
    EXPECT_EQ(autostart.setLaunchAtLogin(true), "");
    EXPECT_THAT(autostart.setLaunchAtLogin(false), HasSubstr("removed"));
    EXPECT_FALSE(files.read(file));

    AutostartFile below(files, folder.path() / "autostart" / "x" / "y.desktop", "/usr/bin/vantrel");
    ASSERT_FALSE(files.writeAtomically(folder.path() / "autostart" / "x", "a file"));
    EXPECT_THAT(below.setLaunchAtLogin(true), HasSubstr("could not be changed"));
}

} // namespace
} // namespace vantrel
