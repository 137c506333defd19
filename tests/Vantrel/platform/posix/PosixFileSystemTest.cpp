#include "Vantrel/platform/posix/PosixFileSystem.h"

#include "Vantrel/platform/posix/TemporaryFile.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <atomic>
#include <csignal>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace vantrel {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

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

TEST_F(PosixFileSystemTest, WritesReplaceTheWholeContentAndLeaveNothingElse) {
    const std::string large(3 * 1024 * 1024 + 7, 'x');
    const std::string binary("\0\n\xff", 3);
    for (const auto& content : {std::string("first"), large, std::string(), binary}) {
        ASSERT_EQ(m_files.writeAtomically(m_file, content), std::error_code());
        EXPECT_EQ(m_files.read(m_file), content);
        EXPECT_EQ(m_files.size(m_file), content.size());
    }
    EXPECT_THAT(m_folder.names(), ElementsAre("notes.json"));
}

TEST_F(PosixFileSystemTest, NewFilesAreTheOwnersAloneAndOldOnesKeepTheirPermissions) {
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

TEST_F(PosixFileSystemTest, ASymbolicLinkStaysAndItsTargetIsReplaced) {
    std::filesystem::create_directory(m_folder.path() / "real");
    const auto target = m_folder.path() / "real" / "kept.json";
    ASSERT_FALSE(m_files.writeAtomically(target, "old"));
    std::filesystem::create_symlink("real/kept.json", m_file);
    ASSERT_FALSE(m_files.writeAtomically(m_file, "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(m_file));
    EXPECT_EQ(m_files.read(target), "new");
}

TEST_F(PosixFileSystemTest, FailedWriteLeavesTheOldContentAndNoTemporaryFile) {
    const auto inTheWay = m_folder.path() / "folder.json";
    std::filesystem::create_directory(inTheWay);
    EXPECT_TRUE(m_files.writeAtomically(inTheWay, "content"));
    EXPECT_EQ(m_files.writeAtomically(m_folder.path() / "missing" / "notes.json", "content"),
              std::errc::no_such_file_or_directory);

    // A limit on the size of files ends a write half-way, as a full disk does.
    ASSERT_FALSE(m_files.writeAtomically(m_file, "old"));
    struct rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    auto* const oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit small{1000, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto error = m_files.writeAtomically(m_file, std::string(5000, 'x'));
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(error, std::errc::file_too_large);
    EXPECT_EQ(m_files.read(m_file), "old");
    EXPECT_THAT(m_folder.names(), UnorderedElementsAre("folder.json", "notes.json"));
}

TEST_F(PosixFileSystemTest, LeftoversOfKilledProcessesGoAndFilesInUseStay) {
    for (const char* name : {".notes.json.tmp-a1b2c3", ".notes.json.tmp-d4e5f6", ".other.json.tmp-a1b2c3",
                             ".notes.json.tmp-of-somebody"}) {
        std::ofstream(m_folder.path() / name) << "half";
    }
    auto inUse = posix::TemporaryFile::create(m_file);
    ASSERT_TRUE(inUse.has_value());
    ASSERT_FALSE(m_files.writeAtomically(m_file, "content"));
    EXPECT_EQ(m_folder.names().size(), 4U);
    EXPECT_EQ(inUse->renameTo(m_file), std::error_code());
    EXPECT_THAT(m_folder.names(),
                UnorderedElementsAre("notes.json", ".other.json.tmp-a1b2c3", ".notes.json.tmp-of-somebody"));
}

TEST_F(PosixFileSystemTest, WritersOfOneFileDisturbNeitherOneAnotherNorReaders) {
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

TEST_F(PosixFileSystemTest, ReadingSaysWhatIsWrong) {
    EXPECT_EQ(m_files.read(m_file).error(), std::errc::no_such_file_or_directory);
    EXPECT_EQ(m_files.size(m_file), std::nullopt);
    EXPECT_EQ(m_files.read(m_folder.path()).error(), std::errc::is_a_directory);
    ASSERT_EQ(::mkfifo(m_file.c_str(), 0600), 0);
    // Nobody will ever write into this pipe.
    EXPECT_EQ(m_files.read(m_file), "");
}

TEST_F(PosixFileSystemTest, RenamesOverAndRemovesWithoutMindingAbsence) {
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

TEST_F(PosixFileSystemTest, CreatesFoldersForTheOwnerAlone) {
    const auto deep = m_folder.path() / "a" / "b" / "c";
    EXPECT_FALSE(m_files.createDirectories(deep));
    EXPECT_FALSE(m_files.createDirectories(deep));
    EXPECT_FALSE(m_files.createDirectories(deep / ""));
    EXPECT_EQ(permissions(deep), 0700U);
    ASSERT_FALSE(m_files.writeAtomically(m_file, "in the way"));
    EXPECT_TRUE(m_files.createDirectories(m_file));
    EXPECT_TRUE(m_files.createDirectories(m_file / "below"));
}

} // namespace

} // namespace vantrel
