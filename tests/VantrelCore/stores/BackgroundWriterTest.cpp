// What stores write in the background.
#include "VantrelCore/stores/JsonStore.h"
#include "tests/VantrelCore/stores/StoreTest.h"
#include "tests/simulated/SimulatedTime.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace vantrel {

namespace {

using simulated::MemoryFileSystem;
using Operation = MemoryFileSystem::Operation;
using Lines = std::vector<std::string>;
using Outcomes = std::vector<bool>;

class BackgroundWriterTest : public testing::Test {
protected:
    simulated::SimulatedTime m_time;
    MemoryFileSystem m_files;
    FileIncidents m_incidents;
    BackgroundWriter m_writer{m_time, m_time};
    JsonStore<Notes> m_store = open(&m_writer);
    // Of the writes in the background, in the order they were told.
    Outcomes m_outcomes;

    JsonStore<Notes> open(BackgroundWriter* writer) {
        return JsonStore<Notes>::open("/v", "notes.json", {m_files, &m_incidents, writer}).value();
    }

    bool add(const std::string& line, const Saving& saving = {}) {
        return m_store.update([&](Notes& notes) { notes.lines.push_back(line); }, saving);
    }

    void addLater(const std::string& line) {
        EXPECT_TRUE(add(line, Saving::later([this](bool isWritten) { m_outcomes.push_back(isWritten); })));
    }

    // What the next process reads.
    Lines onDisk() { return open(nullptr).load().lines; }
};

TEST_F(BackgroundWriterTest, WritesOnlyTheNewestContentAndReportsTheOutcomeOfEveryChange) {
    addLater("one");
    addLater("two");
    EXPECT_EQ(m_store.load().lines, (Lines{"one", "two"})) << "shown at once";
    EXPECT_EQ(m_files.count(Operation::writeAtomically), 0U);
    m_time.runFor(1);
    EXPECT_EQ(onDisk(), (Lines{"one", "two"}));
    EXPECT_EQ(m_files.count(Operation::writeAtomically), 1U);
    EXPECT_EQ(m_outcomes, (Outcomes{true, true}));
}

TEST_F(BackgroundWriterTest, ReturnsToTheLastWrittenContentAfterAFailure) {
    addLater("one");
    m_time.runFor(1);
    m_files.failAll(Operation::writeAtomically, std::errc::no_space_on_device);
    addLater("lost");
    m_time.runFor(1);
    EXPECT_EQ(m_outcomes, (Outcomes{true, false}));
    EXPECT_EQ(m_store.load().lines, Lines{"one"});
    EXPECT_EQ(m_incidents.all().at(0).kind, FileIncident::Kind::notWritten);
    m_files.stopFailing();
    addLater("two");
    m_time.runFor(1);
    EXPECT_EQ(onDisk(), (Lines{"one", "two"}));
    EXPECT_TRUE(m_incidents.all().empty());
}

TEST_F(BackgroundWriterTest, WritesAnEditAfterWhatWaitsAndAtOnce) {
    addLater("learned");
    EXPECT_TRUE(add("edited"));
    EXPECT_EQ(onDisk(), (Lines{"learned", "edited"}));
    EXPECT_EQ(m_outcomes, Outcomes{true});

    m_files.failOnceAfter(0, std::errc::io_error);
    addLater("learned too");
    EXPECT_TRUE(add("edited again"));
    EXPECT_EQ(m_outcomes, (Outcomes{true, false}));
    EXPECT_EQ(onDisk(), (Lines{"learned", "edited", "edited again"}))
        << "the failed change is not in the edit";
}

TEST_F(BackgroundWriterTest, FinishesBeforeItIsDestroyed) {
    {
        BackgroundWriter writer(m_time, m_time);
        m_store = open(&writer);
        addLater("last");
    }
    EXPECT_EQ(onDisk(), Lines{"last"});
    EXPECT_EQ(m_outcomes, Outcomes{true});
    m_time.runFor(1);
    EXPECT_EQ(m_files.count(Operation::writeAtomically), 1U);
}

TEST_F(BackgroundWriterTest, ReadsAFileAgainOnlyInTheBackground) {
    m_files.put("/v/notes.json", R"({"version": 1, "lines": ["old"]})");
    m_files.failReading("/v/notes.json", std::errc::io_error);
    m_files.failReading("/v/notes.json.corrupt", std::errc::io_error);
    m_store.read();
    m_files.stopFailing();
    EXPECT_EQ(m_store.load().lines, Lines{});
    m_store.read();
    EXPECT_EQ(m_store.load().lines, Lines{});
    m_time.runFor(1);
    EXPECT_EQ(m_store.load().lines, Lines{"old"});
    EXPECT_EQ(m_incidents.all().at(0).kind, FileIncident::Kind::putBack);
}

} // namespace

} // namespace vantrel
