// Background work that an error stops: whoever waits is told, and nothing waits for it for ever.
#include "tests/Vantrel/controller/LearnedDesk.h"

#include <stdexcept>

namespace vantrel::simulated {
namespace {

using testing::ElementsAre;

struct StoppedWork : LearnedDesk {
    StoppedWork() : LearnedDesk("laptop-and-monitor") {
        story.desk.onCapture = [isBroken = isBroken] {
            if (std::exchange(*isBroken, false)) {
                throw std::runtime_error("no answer");
            }
        };
    }

    SaveOutcome save() {
        SaveOutcome answer{.kind = SaveOutcome::Kind::noDisplays};
        story.controller->saveLayoutNow([&](const SaveOutcome& outcome) { answer = outcome; });
        story.runFor(2);
        return answer;
    }

    // The next capture throws.
    std::shared_ptr<bool> isBroken = std::make_shared<bool>(false);
};

TEST_F(StoppedWork, ARestoreEndsWithItsOutcomeAndTheNextOneRuns) {
    story.scatter();
    *isBroken = true;
    ASSERT_TRUE(restore());
    EXPECT_FALSE(story.controller->restoreInFlight());
    EXPECT_FALSE(story.published().phase.is<Phase::Restoring>());
    EXPECT_EQ(story.logged("background: stopped by an error: no answer"), 1U);
    ASSERT_TRUE(restore());
    EXPECT_THAT(toldKinds(), ElementsAre(RestoreOutcome::Kind::failed, RestoreOutcome::Kind::finished));
    EXPECT_EQ(story.frames(), home);
}

TEST_F(StoppedWork, AfterAnyCaptureTheNextOneRuns) {
    story.workspace.install("org.example.notes",
                            {.name = "Notes", .windows = {{"Notes", {{9, 40}, {300, 200}}}}});
    ASSERT_TRUE(story.controller->rules().setRule(
        {"org.example.notes", "Notes", AppRule::ForceDisplay{"not connected", "Elsewhere"}, {}}));
    ASSERT_TRUE(story.controller->setPinned(true));
    const std::pair<const char*, std::function<void()>> causes[] = {
        {"learning", [] {}},
        {"the user saves", [&] { EXPECT_EQ(save().kind, SaveOutcome::Kind::captureFailed); }},
        {"the machine wakes",
         [&] {
             story.system.setAsleep(true);
             story.system.setAsleep(false);
         }},
        {"a program starts", [&] { story.workspace.launch("org.example.notes"); }}};
    for (const auto& [name, cause] : causes) {
        SCOPED_TRACE(name);
        *isBroken = true;
        cause();
        EXPECT_TRUE(story.time.runUntil([&] { return !*isBroken; }, 20));
        EXPECT_EQ(save().kind, SaveOutcome::Kind::saved);
        story.runFor(20);
    }
}

// Counts its copies that are destroyed on a worker.
struct Callback {
    explicit Callback(std::shared_ptr<int> counter) : destroyedOnWorkers(std::move(counter)) {}
    Callback(const Callback&) = default;
    Callback& operator=(const Callback&) = delete;
    ~Callback() { *destroyedOnWorkers += SimulatedTime::isOnWorker() ? 1 : 0; }
    void operator()(const auto& /*outcome*/) const {}

    std::shared_ptr<int> destroyedOnWorkers;
};

TEST_F(StoppedWork, CallbacksStayOnTheMainThread) {
    const auto count = std::make_shared<int>(0);
    story.scatter();
    story.controller->restoreNow(RestoreSource::menu, Callback(count));
    story.runFor(5);
    story.controller->saveLayoutNow(Callback(count));
    story.runFor(5);
    EXPECT_EQ(story.logged("restore report: "), 1U);
    EXPECT_EQ(*count, 0);
}

} // namespace
} // namespace vantrel::simulated
