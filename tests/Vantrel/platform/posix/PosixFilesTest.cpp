// Files of the program: reading, writing, autostart, the instance lock, the machine identity.
#include "Vantrel/platform/posix/AutostartEntry.h"
#include "Vantrel/platform/posix/AutostartFile.h"
#include "Vantrel/platform/posix/AutostartWay.h"
#include "Vantrel/platform/posix/FolderMove.h"
#include "Vantrel/platform/posix/InstanceLock.h"
#include "Vantrel/platform/posix/MachineIDFile.h"
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "Vantrel/platform/posix/TemporaryFile.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <atomic>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace vantrel {
namespace {

using AutostartEntry::Change;
using testing::ElementsAre, testing::IsEmpty, testing::UnorderedElementsAre;
using ::testing::HasSubstr;

class PosixFileSystemTest : public testing::Test {
protected:
    TemporaryFolder m_folder;
    const std::filesystem::path m_file = m_folder.path() / "notes.json";
    PosixFileSystem m_files;

    static unsigned permissions(const std::filesystem::path& path) {
        struct stat status{};
        return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
    }
};

TEST_F(PosixFileSystemTest, WritesReplaceTheContentAndLeaveNoOtherFile) {
    const std::string large(3 * 1024 * 1024 + 7, 'x');
    const std::string binary("\0\n\xff", 3);
    for (const auto& content : {std::string("first"), large, std::string(), binary}) {
        ASSERT_EQ(m_files.writeAtomically(m_file, content), std::error_code());
        EXPECT_EQ(m_files.read(m_file), content);
        EXPECT_EQ(m_files.size(m_file), content.size());
    }
    EXPECT_THAT(m_folder.names(), ElementsAre("notes.json"));
}

TEST_F(PosixFileSystemTest, NewFilesArePrivateAndOldOnesKeepTheirPermissions) {
    ASSERT_FALSE(m_files.writeAtomically(m_file, "private"));
    EXPECT_EQ(permissions(m_file), 0600U);
    ASSERT_EQ(::chmod(m_file.c_str(), 0644), 0);
    ASSERT_FALSE(m_files.writeAtomically(m_file, "shared"));
    EXPECT_EQ(permissions(m_file), 0644U);
    const auto log = m_folder.path() / "app.log";
    ASSERT_FALSE(m_files.append(log, "one\n"));
    ASSERT_FALSE(m_files.append(log, "two\n"));
    EXPECT_EQ(m_files.read(log), "one\ntwo\n");
    EXPECT_EQ(permissions(log), 0600U);
}

TEST_F(PosixFileSystemTest, WritesThroughASymbolicLink) {
    std::filesystem::create_directory(m_folder.path() / "real");
    const auto target = m_folder.path() / "real" / "kept.json";
    ASSERT_FALSE(m_files.writeAtomically(target, "old"));
    std::filesystem::create_symlink("real/kept.json", m_file);
    ASSERT_FALSE(m_files.writeAtomically(m_file, "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(m_file));
    EXPECT_EQ(m_files.read(target), "new");
}

TEST_F(PosixFileSystemTest, AFailedWriteLeavesNoTemporaryFile) {
    std::filesystem::create_directory(m_file);
    EXPECT_TRUE(m_files.writeAtomically(m_file, "content"));
    EXPECT_EQ(m_files.writeAtomically(m_folder.path() / "missing" / "notes.json", "content"),
              std::errc::no_such_file_or_directory);
    EXPECT_THAT(m_folder.names(), ElementsAre("notes.json"));
}

TEST_F(PosixFileSystemTest, RemovesAbandonedTemporaryFilesOnly) {
    for (const char* name : {".notes.json.tmp-a1b2c3", ".notes.json.tmp-d4e5f6", ".other.json.tmp-a1b2c3",
                             ".notes.json.tmp-of-somebody"}) {
        putText(m_folder.path() / name, "half");
    }
    auto inUse = posix::TemporaryFile::create(m_file);
    ASSERT_TRUE(inUse.has_value());
    ASSERT_FALSE(m_files.writeAtomically(m_file, "content"));
    EXPECT_EQ(m_folder.names().size(), 4U);
    EXPECT_EQ(inUse->renameTo(m_file), std::error_code());
    EXPECT_THAT(m_folder.names(),
                UnorderedElementsAre("notes.json", ".other.json.tmp-a1b2c3", ".notes.json.tmp-of-somebody"));
}

TEST_F(PosixFileSystemTest, ConcurrentWritersDoNotInterfere) {
    std::vector<std::jthread> writers;
    std::atomic<int> failures = 0;
    for (int writer = 0; writer < 4; ++writer) {
        writers.emplace_back([&, writer] {
            // Each as a process of its own would: it looks for leftovers while the others write.
            for (int i = 0; i < 10; ++i) {
                PosixFileSystem files;
                const std::string content(20000, static_cast<char>('a' + writer));
                failures += files.writeAtomically(m_file, content) ? 1 : 0;
                const auto seen = files.read(m_file);
                failures += seen && *seen == std::string(20000, seen->at(0)) ? 0 : 1;
            }
        });
    }
    writers.clear();
    EXPECT_EQ(failures, 0);
    EXPECT_THAT(m_folder.names(), ElementsAre("notes.json"));
}

TEST_F(PosixFileSystemTest, ReadingReportsErrorsAndNeverBlocks) {
    EXPECT_EQ(m_files.read(m_file).error(), std::errc::no_such_file_or_directory);
    EXPECT_EQ(m_files.size(m_file), std::nullopt);
    EXPECT_EQ(m_files.read(m_folder.path()).error(), std::errc::is_a_directory);
    ASSERT_EQ(::mkfifo(m_file.c_str(), 0600), 0);
    // Nobody will ever write into this pipe.
    EXPECT_EQ(m_files.read(m_file), "");
}

TEST_F(PosixFileSystemTest, RenameReplacesAndRemoveIgnoresMissingFiles) {
    const auto other = m_folder.path() / "other";
    ASSERT_FALSE(m_files.writeAtomically(m_file, "new"));
    ASSERT_FALSE(m_files.writeAtomically(other, "old"));
    EXPECT_FALSE(m_files.rename(m_file, other));
    EXPECT_EQ(m_files.read(other), "new");
    EXPECT_EQ(m_files.rename(m_file, other), std::errc::no_such_file_or_directory);
    EXPECT_FALSE(m_files.remove(other));
    EXPECT_FALSE(m_files.remove(other));
    EXPECT_THAT(m_folder.names(), IsEmpty());
}

TEST_F(PosixFileSystemTest, CreatesPrivateFolders) {
    const auto deep = m_folder.path() / "a" / "b" / "c";
    EXPECT_FALSE(m_files.createDirectories(deep));
    EXPECT_FALSE(m_files.createDirectories(deep));
    EXPECT_FALSE(m_files.createDirectories(deep / ""));
    EXPECT_EQ(permissions(deep), 0700U);
    ASSERT_FALSE(m_files.writeAtomically(m_file, "in the way"));
    EXPECT_TRUE(m_files.createDirectories(m_file));
    EXPECT_TRUE(m_files.createDirectories(m_file / "below"));
}

TEST(AutostartEntry, QuotesTheProgramPath) {
    EXPECT_THAT(AutostartEntry::text("/usr/bin/vantrel"), HasSubstr("\nExec=\"/usr/bin/vantrel\"\n"));
    EXPECT_THAT(AutostartEntry::text(R"(/my "$d"/100%\v)"), HasSubstr(R"(Exec="/my \\"\\$d\\"/100%%\\\\v")"
                                                                      "\n"));
}

TEST(AutostartEntry, LeavesAnEditedEntryAlone) {
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

TEST(AutostartFile, IsWrittenRemovedAndReportsFailure) {
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

TEST(AutostartWay, IsTheUnitWhereSystemdRunsTheSessionAndNeverBoth) {
    using AutostartWay::Facts;
    using AutostartWay::Plan;
    using AutostartWay::UnitChange;
    const std::pair<Facts, Plan> rows[] = {
        {{.isWanted = true}, {UnitChange::nothing, true}},
        {{.isWanted = true, .isUnitUsable = true}, {UnitChange::enable, false}},
        {{.isWanted = true, .isUnitUsable = true, .isUnitEnabled = true}, {UnitChange::nothing, false}},
        // Enabled in a session of another kind.
        {{.isWanted = true, .isUnitEnabled = true}, {UnitChange::disable, true}},
        // Switched off in the desktop's settings.
        {{.isWanted = true, .isUnitUsable = true, .isUnitEnabled = true, .isEntryTheUsers = true},
         {UnitChange::disable, true}},
        {{.isChange = true, .isUnitUsable = true, .isUnitEnabled = true}, {UnitChange::disable, false}},
        // Enabled by hand.
        {{.isUnitUsable = true, .isUnitEnabled = true}, {UnitChange::nothing, false}},
    };
    for (const auto& [facts, plan] : rows) {
        EXPECT_EQ(AutostartWay::plan(facts), plan) << &facts - &rows[0].first;
    }
}

TEST(FolderMove, MovesWhatTheNewFolderLacksAndNamesTheRest) {
    const TemporaryFolder folder;
    const auto older = folder.path() / "Vantrel";
    const auto newer = folder.path() / "vantrel";
    const auto state = folder.path() / "state" / "vantrel";
    for (const char* const name : {"layouts.json", "scenes.json", "app.log", "app.log.1",
                                   "notes.json.corrupt", "crashes/1.crash", InstanceLock::fileName}) {
        putText(older / name, "older");
    }
    putText(newer / "scenes.json", "newer");
    putText(newer / "crashes" / "2.crash", "newer");

    auto report = FolderMove::everything(older, newer);
    ASSERT_EQ(report.size(), 2U);
    EXPECT_THAT(report[0],
                HasSubstr(": app.log, app.log.1, crashes/1.crash, layouts.json, notes.json.corrupt"));
    EXPECT_THAT(report[1], HasSubstr("Vantrel/scenes.json is not used"));
    EXPECT_EQ(textOf(older / "scenes.json"), "older");
    EXPECT_EQ(textOf(newer / "scenes.json"), "newer");
    EXPECT_EQ(textOf(newer / "layouts.json") + textOf(newer / "crashes" / "1.crash"), "olderolder");

    EXPECT_EQ(FolderMove::files(newer, state, {"app.log", "notes.json", "missing"}).size(), 1U);
    EXPECT_EQ(textOf(state / "app.log") + textOf(state / "app.log.1") + textOf(state / "notes.json.corrupt"),
              "olderolderolder");
    EXPECT_TRUE(std::filesystem::exists(newer / "layouts.json"));

    // Once nothing of value is left, the older folder goes.
    std::filesystem::remove(newer / "scenes.json");
    EXPECT_EQ(FolderMove::everything(older, newer).size(), 1U);
    EXPECT_FALSE(std::filesystem::exists(older));
    EXPECT_EQ(textOf(newer / "scenes.json"), "older");
}

constexpr std::chrono::milliseconds noPatience(0);

TEST(InstanceLock, IsExclusiveAndNamesItsHolder) {
    const TemporaryFolder folder;
    {
        // What an earlier holder left does not count.
        putText(folder.path() / InstanceLock::fileName, std::string(500, 'x'));
        const auto first = InstanceLock::take(folder.path(), noPatience);
        ASSERT_TRUE(first);
        EXPECT_FALSE(first->problem());
        const auto second = InstanceLock::take(folder.path(), noPatience);
        ASSERT_FALSE(second);
        EXPECT_THAT(second.error(), testing::StartsWith("process " + std::to_string(::getpid()) + " on "));
    }
    EXPECT_TRUE(InstanceLock::take(folder.path(), noPatience));
}

TEST(InstanceLock, AllowsRunningWhereNothingCanBeLocked) {
    const TemporaryFolder folder;
    const auto lock = InstanceLock::take(folder.path() / "missing", noPatience);
    ASSERT_TRUE(lock);
    EXPECT_EQ(lock->problem(), std::errc::no_such_file_or_directory);
}

TEST(MachineIDFile, UsesTheFirstFileWithAValidIdentity) {
    const TemporaryFolder folder;
    PosixFileSystem files;
    const auto first = folder.path() / "first";
    const auto second = folder.path() / "second";
    MachineIDFile machine(files, {first, second});

    EXPECT_EQ(machine.machineID(), std::nullopt);
    const std::string old(32, 'a');
    putText(second, old + "\n");
    EXPECT_EQ(machine.machineID(), old);
    for (const char* const nothing :
         {"", "uninitialized\n", "0123\n", "not-the-identity-of-any-computer\n"}) {
        putText(first, nothing);
        EXPECT_EQ(machine.machineID(), old) << nothing;
    }
    putText(first, std::string(32, '7') + "\n");
    EXPECT_EQ(machine.machineID(), std::string(32, '7'));
}

} // namespace
} // namespace vantrel
