// The pattern that every store follows, on a small record of its own.
#include "VantrelCore/stores/JsonStore.h"

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/JsonCoding.h"
#include "tests/simulated/MemoryFileSystem.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace vantrel {

namespace {

using simulated::MemoryFileSystem;
using Operation = MemoryFileSystem::Operation;
using UnflushedRename = MemoryFileSystem::UnflushedRename;
using WriteStep = MemoryFileSystem::WriteStep;

struct Notes {
    std::int64_t version = 3;
    std::vector<std::string> lines;
    double size = 0;

    bool operator==(const Notes&) const = default;
};

void to_json(nlohmann::json& json, const Notes& notes) {
    json = {{"version", notes.version}, {"lines", notes.lines}, {"size", notes.size}};
}

void from_json(const nlohmann::json& json, Notes& notes) {
    notes = {.version = JsonCoding::required<std::int64_t>(json, "version"),
             .lines = JsonCoding::required<std::vector<std::string>>(json, "lines"),
             .size = JsonCoding::optional<double>(json, "size").value_or(0)};
}

constexpr const char* oneLine = R"({"version": 3, "lines": ["one"]})";

class JsonStoreTest : public testing::Test {
protected:
    const std::filesystem::path m_folder = "/home/ada/Vantrel";
    const std::filesystem::path m_file = m_folder / "notes.json";
    const std::filesystem::path m_corrupt = m_folder / "notes.json.corrupt";
    const std::filesystem::path m_newer = m_folder / "notes.json.newer";
    MemoryFileSystem m_files;
    JsonStore<Notes> m_store = open();

    JsonStore<Notes> open() { return JsonStore<Notes>::open(m_folder, "notes.json", m_files).value(); }

    bool add(const std::string& line) {
        return m_store.update([&](Notes& notes) { notes.lines.push_back(line); });
    }

    nlohmann::json onDisk() { return nlohmann::json::parse(m_files.content(m_file).value_or("")); }
};

using Lines = std::vector<std::string>;

TEST_F(JsonStoreTest, OpeningCreatesTheFolderAndReadsNothing) {
    EXPECT_TRUE(m_files.isDirectory(m_folder));
    EXPECT_EQ(m_files.count(Operation::read), 0U);
    EXPECT_EQ(m_store.load(), Notes{});
    EXPECT_TRUE(m_files.files().empty());
}

TEST_F(JsonStoreTest, OpeningFailsWhereTheFolderCannotBeMade) {
    m_files.failAll(Operation::createDirectories, std::errc::permission_denied);
    const auto store = JsonStore<Notes>::open(m_folder, "notes.json", m_files);
    ASSERT_FALSE(store.has_value());
    EXPECT_EQ(store.error(), std::errc::permission_denied);
}

TEST_F(JsonStoreTest, ServesFromTheCacheOnceRead) {
    m_files.put(m_file, oneLine);
    EXPECT_EQ(m_store.load().lines, Lines{"one"});
    m_files.put(m_file, R"({"version": 3, "lines": ["changed outside"]})");
    EXPECT_EQ(m_store.load().lines, Lines{"one"});
    EXPECT_EQ(m_files.count(Operation::read), 1U);
}

TEST_F(JsonStoreTest, WritesSortedKeysInReadableLinesWithTheCurrentVersion) {
    for (const char* version : {"1", "3", "3.0"}) {
        m_files.put(m_file, std::string(R"({"version": )") + version + R"(, "lines": []})");
        m_store = open();
        ASSERT_TRUE(add("one"));
        EXPECT_EQ(m_files.content(m_file),
                  "{\n  \"lines\": [\n    \"one\"\n  ],\n  \"size\": 0.0,\n  \"version\": 3\n}\n")
            << version;
        EXPECT_EQ(m_files.files(), std::vector{m_file});
    }
}

TEST_F(JsonStoreTest, FailedWriteLeavesFileAndCacheAsTheyWere) {
    m_files.failAll(Operation::writeAtomically, std::errc::no_space_on_device);
    EXPECT_FALSE(add("first"));
    EXPECT_EQ(m_store.load(), Notes{});
    m_files.stopFailing();
    ASSERT_TRUE(add("one"));
    const auto before = m_files.content(m_file);
    m_files.setCapacity(before->size() + 10);
    EXPECT_FALSE(add("three"));
    EXPECT_EQ(m_store.load().lines, Lines{"one"});
    EXPECT_EQ(m_files.content(m_file), before);
    m_files.stopFailing();
    EXPECT_TRUE(add("four"));
    EXPECT_EQ(open().load().lines, (Lines{"one", "four"}));
}

TEST_F(JsonStoreTest, UndecodableFileIsMovedAsideAndReplacesAnOlderOne) {
    const std::string tooDeep =
        R"({"version": 3, "lines": [], "x": )" + std::string(100000, '[') + std::string(100000, ']') + "}";
    const std::string undecodable[] = {"",
                                       "[]",
                                       R"({"version": 3, "lines": ["cut of)",
                                       R"({"version": 3, "lines": []} trailing)",
                                       R"({"lines": []})",
                                       R"({"version": null, "lines": []})",
                                       R"({"version": "3", "lines": []})",
                                       R"({"version": 3, "lines": ["good", 7]})",
                                       "{\"version\": 3, \"lines\": [\"not UTF-8: \xff\"]}",
                                       tooDeep};
    for (const auto& text : undecodable) {
        m_files.put(m_file, text);
        m_files.put(m_corrupt, "older");
        m_store = open();
        EXPECT_EQ(m_store.load(), Notes{}) << text.substr(0, 80);
        EXPECT_EQ(m_files.content(m_corrupt), text);
        EXPECT_EQ(m_files.content(m_file), std::nullopt);
        EXPECT_TRUE(add("fresh"));
        EXPECT_EQ(open().load().lines, Lines{"fresh"});
        EXPECT_EQ(m_files.content(m_corrupt), text);
    }
}

TEST_F(JsonStoreTest, UnreadableFileIsMovedAsideToo) {
    m_files.put(m_file, oneLine);
    m_files.failReading(m_file, std::errc::io_error);
    EXPECT_EQ(open().load(), Notes{});
    EXPECT_EQ(m_files.content(m_corrupt), oneLine);
}

TEST_F(JsonStoreTest, NothingIsWrittenOverAnUndecodableFileThatCannotBeMovedAside) {
    m_files.put(m_file, "precious");
    m_files.failAll(Operation::rename, std::errc::permission_denied);
    EXPECT_EQ(m_store.load(), Notes{});
    EXPECT_FALSE(add("one"));
    EXPECT_EQ(m_files.content(m_file), "precious");
    m_files.stopFailing();
    EXPECT_TRUE(add("two"));
    EXPECT_EQ(m_files.content(m_corrupt), "precious");
}

TEST_F(JsonStoreTest, UndecodableFileFindsAnotherNameWhenAFolderStandsInTheWay) {
    m_files.put(m_file, "precious");
    m_files.putDirectory(m_corrupt);
    EXPECT_TRUE(add("one"));
    EXPECT_EQ(m_files.content(m_folder / "notes.json.corrupt.1"), "precious");
    EXPECT_EQ(open().load().lines, Lines{"one"});
}

TEST_F(JsonStoreTest, FileThatCouldNotBeReadAndDisappearedNoLongerBlocksWriting) {
    m_files.put(m_file, "precious");
    m_files.failAll(Operation::rename, std::errc::permission_denied);
    EXPECT_EQ(m_store.load(), Notes{});
    m_files.stopFailing();
    ASSERT_FALSE(m_files.remove(m_file));
    EXPECT_TRUE(add("one"));
}

TEST_F(JsonStoreTest, UnknownTopLevelKeysAreWrittenBackAndNullOnesForgotten) {
    m_files.put(m_file,
                R"({"version": 3, "lines": [], "size": null, "later": {"a": [1, 2.5]}, "gone": null})");
    ASSERT_TRUE(add("one"));
    ASSERT_TRUE(add("two"));
    EXPECT_EQ(onDisk(),
              nlohmann::json::parse(
                  R"({"version": 3, "lines": ["one", "two"], "size": 0.0, "later": {"a": [1, 2.5]}})"));
}

TEST_F(JsonStoreTest, NewerFileIsReadAndKeptAsideOnceBeforeItIsWrittenOver) {
    const std::string newer = R"({"version": 99, "lines": ["one"], "size": 4, "extra": true})";
    m_files.put(m_file, newer);
    EXPECT_EQ(m_store.load().lines, Lines{"one"});
    EXPECT_EQ(m_files.content(m_newer), std::nullopt);
    ASSERT_TRUE(add("two"));
    EXPECT_EQ(m_files.content(m_newer), newer);
    EXPECT_EQ(onDisk()["version"], 3);
    ASSERT_TRUE(add("three"));
    EXPECT_EQ(m_files.content(m_newer), newer);
}

TEST_F(JsonStoreTest, NewerFileThatCannotBeKeptAsideIsNotWrittenOver) {
    const std::string newer = R"({"version": 4, "lines": ["one"]})";
    m_files.put(m_file, newer);
    EXPECT_EQ(m_store.load().lines, Lines{"one"});
    m_files.failOnceAfter(0, std::errc::io_error);
    EXPECT_FALSE(add("two"));
    m_files.failOnceAfter(1, std::errc::no_space_on_device);
    EXPECT_FALSE(add("two"));
    EXPECT_EQ(m_files.content(m_file), newer);
    EXPECT_EQ(m_store.load().lines, Lines{"one"});
    // The copy is made again for a write that failed after it.
    m_files.failOnceAfter(2, std::errc::no_space_on_device);
    EXPECT_FALSE(add("two"));
    EXPECT_TRUE(add("two"));
    EXPECT_EQ(m_files.content(m_newer), newer);
}

TEST_F(JsonStoreTest, InvalidTextDoesNotStopAWrite) {
    EXPECT_TRUE(add("bro\xffken \xc3"));
    EXPECT_EQ(open().load().lines, Lines{"bro\uFFFDken \uFFFD"});
}

TEST_F(JsonStoreTest, NumbersThatJsonCannotHoldAreRefusedInsteadOfMakingTheFileUndecodable) {
    ASSERT_TRUE(add("one"));
    for (const double size :
         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_FALSE(m_store.update([&](Notes& notes) { notes.size = size; }));
    }
    EXPECT_EQ(open().load().lines, Lines{"one"});
}

TEST_F(JsonStoreTest, ACrashAtAnyStepOfAWriteLeavesTheOldOrTheNewFileWhole) {
    for (const auto step : {WriteStep::createTemporary, WriteStep::writeTemporary, WriteStep::flushTemporary,
                            WriteStep::renameOverTarget, WriteStep::flushFolder}) {
        for (const auto unflushed : {UnflushedRename::kept, UnflushedRename::lost}) {
            m_files.put(m_file, R"({"version": 3, "lines": ["old"]})");
            m_store = open();
            m_files.crashBefore(step);
            EXPECT_FALSE(add("new"));
            EXPECT_EQ(m_store.load().lines, Lines{"old"});
            m_files.restart(unflushed);
            const bool isNew = step == WriteStep::flushFolder && unflushed == UnflushedRename::kept;
            EXPECT_EQ(open().load().lines, isNew ? (Lines{"old", "new"}) : Lines{"old"});
            EXPECT_EQ(m_files.content(m_corrupt), std::nullopt);
        }
    }
}

} // namespace

} // namespace vantrel
