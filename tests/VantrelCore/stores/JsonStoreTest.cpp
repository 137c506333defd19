// The pattern that every store follows.
#include "VantrelCore/stores/JsonStore.h"

#include "VantrelCore/model/Date.h"
#include "tests/VantrelCore/stores/StoreTest.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

namespace vantrel {

namespace {

using simulated::MemoryFileSystem;
using Kind = FileIncident::Kind;
using Kinds = std::vector<Kind>;
using Operation = MemoryFileSystem::Operation;

constexpr const char* oneLine = R"({"version": 3, "lines": ["one"]})";

class JsonStoreTest : public testing::Test {
protected:
    const std::filesystem::path m_folder = "/home/ada/Vantrel";
    const std::filesystem::path m_file = m_folder / "notes.json";
    const std::filesystem::path m_corrupt = m_folder / "notes.json.corrupt";
    const std::filesystem::path m_newer = m_folder / "notes.json.newer";
    MemoryFileSystem m_files;
    FileIncidents m_incidents;
    JsonStore<Notes> m_store = open();

    JsonStore<Notes> open() {
        return JsonStore<Notes>::open(m_folder, "notes.json", {m_files, &m_incidents}).value();
    }

    bool add(const std::string& line) {
        return m_store.update([&](Notes& notes) { notes.lines.push_back(line); });
    }

    std::vector<Kind> incidents() const {
        std::vector<Kind> kinds;
        std::ranges::transform(m_incidents.all(), std::back_inserter(kinds), &FileIncident::kind);
        return kinds;
    }
};

using Lines = std::vector<std::string>;

TEST_F(JsonStoreTest, OpeningCreatesTheFolderOrFailsAndReadsNothing) {
    EXPECT_TRUE(m_files.isDirectory(m_folder));
    EXPECT_EQ(m_files.count(Operation::read), 0U);
    EXPECT_EQ(m_store.load(), Notes{});
    EXPECT_TRUE(m_files.files().empty());
    m_files.failAll(Operation::createDirectories, std::errc::permission_denied);
    EXPECT_EQ(JsonStore<Notes>::open("/other", "notes.json", m_files).error(), std::errc::permission_denied);
}

TEST_F(JsonStoreTest, ReadsTheFileOnce) {
    m_files.put(m_file, oneLine);
    EXPECT_EQ(m_store.load().lines, Lines{"one"});
    m_files.put(m_file, R"({"version": 3, "lines": ["changed outside"]})");
    EXPECT_EQ(m_store.load().lines, Lines{"one"});
    EXPECT_EQ(m_files.count(Operation::read), 1U);
}

TEST_F(JsonStoreTest, WritesSortedKeysAndTheCurrentVersion) {
    for (const char* version : {"1", "3", "3.0"}) {
        m_files.put(m_file, std::string(R"({"version": )") + version +
                                R"(, "lines": [], "size": null, "gone": null})");
        m_store = open();
        ASSERT_TRUE(add("one"));
        EXPECT_EQ(m_files.content(m_file),
                  "{\n  \"lines\": [\n    \"one\"\n  ],\n  \"size\": 0.0,\n  \"version\": 3\n}\n")
            << version;
        EXPECT_EQ(m_files.files(), std::vector{m_file});
    }
}

TEST_F(JsonStoreTest, MovesAnUndecodableFileAsideAndReportsIt) {
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
        m_store = open();
        EXPECT_EQ(m_store.load(), Notes{}) << text.substr(0, 80);
        EXPECT_EQ(m_files.content(m_corrupt), text);
        EXPECT_EQ(incidents(), Kinds{Kind::undecodable});
        EXPECT_EQ(m_files.content(m_file), std::nullopt);
        EXPECT_TRUE(add("fresh"));
        EXPECT_EQ(open().load().lines, Lines{"fresh"});
        EXPECT_EQ(m_files.content(m_corrupt), text);
    }
}

TEST_F(JsonStoreTest, KeepsTheNewestFiveCopies) {
    const auto copy = [&](const char* number) { return m_files.content(m_corrupt.string() + number); };
    for (int i = 1; i <= 7; ++i) {
        m_files.put(m_file, "damaged " + std::to_string(i));
        EXPECT_EQ(open().load(), Notes{});
    }
    EXPECT_EQ(copy(""), "damaged 7");
    EXPECT_EQ(copy(".1"), "damaged 6");
    EXPECT_EQ(copy(".4"), "damaged 3");
    EXPECT_EQ(m_files.files().size(), 5U);
    // A gap takes the next copy, so none is given up.
    ASSERT_FALSE(m_files.remove(m_corrupt.string() + ".2"));
    m_files.put(m_file, "damaged 8");
    EXPECT_EQ(open().load(), Notes{});
    EXPECT_EQ(copy(".4"), "damaged 3");
    EXPECT_EQ(copy(".2"), "damaged 6");
}

TEST_F(JsonStoreTest, PutsAnUnreadableFileBackAtTheNextUseOrStart) {
    for (const bool atNextStart : {false, true}) {
        m_files.put(m_file, oneLine);
        m_files.failReading(m_file, std::errc::permission_denied);
        m_store = open();
        EXPECT_EQ(m_store.load(), Notes{});
        EXPECT_EQ(m_files.content(m_corrupt), oneLine);
        EXPECT_EQ(incidents(), Kinds{Kind::unreadable});
        m_files.failReading(m_corrupt, std::errc::permission_denied);
        EXPECT_EQ(m_store.load(), Notes{});
        m_files.stopFailing();
        if (atNextStart) {
            m_store = open();
        }
        EXPECT_EQ(m_store.load().lines, Lines{"one"});
        EXPECT_EQ(m_files.files(), std::vector{m_file});
        EXPECT_EQ(incidents(), Kinds{Kind::putBack});
        EXPECT_TRUE(add("two"));
        EXPECT_EQ(open().load().lines, (Lines{"one", "two"}));
    }
}

TEST_F(JsonStoreTest, NeverPutsAFileBackOverANewerOne) {
    m_files.put(m_file, oneLine);
    m_files.failReading(m_file, std::errc::io_error);
    m_files.failReading(m_corrupt, std::errc::io_error);
    EXPECT_TRUE(add("written since"));
    m_files.stopFailing();
    EXPECT_EQ(open().load().lines, Lines{"written since"});
    EXPECT_EQ(m_files.content(m_corrupt), oneLine);
}

TEST_F(JsonStoreTest, NeverOverwritesAnUndecodableFile) {
    m_files.put(m_file, "precious");
    m_files.failAll(Operation::rename, std::errc::permission_denied);
    EXPECT_EQ(m_store.load(), Notes{});
    EXPECT_FALSE(add("one"));
    EXPECT_EQ(m_files.content(m_file), "precious");
    EXPECT_EQ(incidents(), (Kinds{Kind::stuck, Kind::notWritten}));
    m_files.stopFailing();
    EXPECT_TRUE(add("two"));
    EXPECT_EQ(incidents(), Kinds{Kind::undecodable});
    EXPECT_EQ(m_files.content(m_corrupt), "precious");
}

TEST_F(JsonStoreTest, AnUndecodableFileAvoidsTheNameOfAFolder) {
    m_files.put(m_file, "precious");
    m_files.putDirectory(m_corrupt);
    EXPECT_TRUE(add("one"));
    EXPECT_EQ(m_files.content(m_folder / "notes.json.corrupt.1"), "precious");
}

TEST_F(JsonStoreTest, WritesAgainOnceAnUnreadableFileIsRemoved) {
    m_files.put(m_file, "precious");
    m_files.failAll(Operation::rename, std::errc::permission_denied);
    EXPECT_EQ(m_store.load(), Notes{});
    m_files.stopFailing();
    ASSERT_FALSE(m_files.remove(m_file));
    EXPECT_TRUE(add("one"));
}

TEST_F(JsonStoreTest, NeitherReadsNorWritesAFileBeyondTheLimit) {
    m_files.put(m_file, "enormous");
    m_files.failReading(m_file, std::errc::file_too_large);
    EXPECT_FALSE(add(std::string(FileSystem::maxBytes, 'x')));
    EXPECT_EQ(incidents(), (Kinds{Kind::unreadable, Kind::notWritten}));
    EXPECT_EQ(m_files.files(), std::vector{m_corrupt});
    EXPECT_TRUE(add("one"));
}

TEST_F(JsonStoreTest, ReportsAWriteThatTheDiskDoesNotConfirm) {
    m_files.failAll(Operation::flushFolder, std::errc::io_error);
    EXPECT_TRUE(add("one"));
    EXPECT_EQ(m_store.load().lines, Lines{"one"});
    EXPECT_EQ(open().load().lines, Lines{"one"});
    EXPECT_EQ(incidents(), Kinds{Kind::notFlushed});
    m_files.stopFailing();
    EXPECT_TRUE(add("two"));
    EXPECT_EQ(incidents(), Kinds{});
}

TEST_F(JsonStoreTest, CopiesANewerFileOnceBeforeOverwritingIt) {
    const std::string newer = R"({"version": 99, "lines": ["one"], "size": 4, "extra": true})";
    m_files.put(m_file, newer);
    EXPECT_EQ(m_store.load().lines, Lines{"one"});
    EXPECT_EQ(m_files.content(m_newer), std::nullopt);
    ASSERT_TRUE(add("two"));
    EXPECT_EQ(m_files.content(m_newer), newer);
    EXPECT_EQ(incidents(), Kinds{Kind::newerKept});
    EXPECT_THAT(m_files.content(m_file).value(), testing::HasSubstr("\"version\": 3"));
    ASSERT_TRUE(add("three"));
    EXPECT_EQ(m_files.content(m_newer), newer);
}

TEST_F(JsonStoreTest, ANewerFileThatCannotBeCopiedIsNotOverwritten) {
    const std::string newer = R"({"version": 4, "lines": ["one"]})";
    m_files.put(m_file, newer);
    EXPECT_EQ(m_store.load().lines, Lines{"one"});
    // Reading it, writing the copy, and the write itself, for which the copy is made again.
    for (const std::size_t step : {0U, 1U, 2U}) {
        m_files.failOnceAfter(step, std::errc::io_error);
        EXPECT_FALSE(add("two"));
        EXPECT_EQ(m_files.content(m_file), newer);
    }
    EXPECT_TRUE(add("two"));
    EXPECT_EQ(m_files.content(m_newer), newer);
}

TEST_F(JsonStoreTest, WritesInvalidTextWithReplacementCharacters) {
    EXPECT_TRUE(add("bro\xffken \xc3"));
    EXPECT_EQ(open().load().lines, Lines{"bro\uFFFDken \uFFFD"});
}

TEST_F(JsonStoreTest, RefusesNumbersThatJsonCannotHold) {
    ASSERT_TRUE(add("one"));
    for (const double size :
         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_FALSE(m_store.update([&](Notes& notes) { notes.size = size; }));
    }
    EXPECT_EQ(open().load().lines, Lines{"one"});
}

} // namespace

} // namespace vantrel
