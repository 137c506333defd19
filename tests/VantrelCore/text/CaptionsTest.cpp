// Texts about the past: ages, the last restore, the history, an application's reliability, usage.
#include "VantrelCore/text/RelativeTimeCaption.h"
#include "VantrelCore/text/RestoreLogFormatting.h"
#include "VantrelCore/text/UsageReceiptCopy.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {

namespace {

using Outcome = RestoreLog::Outcome;
using testing::ElementsAre;

const Date now{std::chrono::days{20'000}};

RestoreLog::Item item(Outcome outcome, std::optional<std::string> reason = {}) {
    return {"Mail", "org.mail", "", outcome, std::move(reason)};
}

RestoreLog::Entry entryOf(const std::vector<RestoreLog::Item>& items) {
    RestoreLog::Entry entry;
    entry.items = items;
    return entry;
}

AppReliability reliability(std::int64_t restored, std::int64_t retried, std::int64_t failed,
                           std::int64_t skipped) {
    AppReliability app;
    app.restoredCount = restored;
    app.retriedCount = retried;
    app.failedCount = failed;
    app.skippedCount = skipped;
    return app;
}

std::string sentence(std::int64_t restores, std::int64_t switches, std::int64_t windows) {
    UsageStats stats;
    stats.restores = restores;
    stats.sceneSwitches = switches;
    stats.windowsVantrel = windows;
    return UsageReceiptCopy::sentence(stats);
}

} // namespace

TEST(RelativeTimeCaption, CountsWholeUnits) {
    const std::pair<double, const char*> cases[] = {
        {-5, "just now"}, {59.999, "just now"}, {60, "1m ago"},     {3599, "59m ago"},
        {3600, "1h ago"}, {86'399, "23h ago"},  {86'400, "1d ago"}, {1e7, "115d ago"},
    };
    for (const auto& [age, caption] : cases) {
        EXPECT_EQ(RelativeTimeCaption::caption(dateAfter(now, -age), now), caption) << age;
    }
}

TEST(RestoreLogFormatting, SummarisesOutcomes) {
    const auto closed = item(Outcome::skipped, "window no longer exists");
    const auto ignored = item(Outcome::skipped, "app is ignored");
    const std::tuple<std::vector<RestoreLog::Item>, const char*, bool> cases[] = {
        {{}, "Nothing to put back", false},
        {{item(Outcome::restored)}, "1 put back", false},
        {{item(Outcome::restored), item(Outcome::retried), item(Outcome::failed), closed,
          item(Outcome::skipped)},
         "2 put back · 1 needed a retry · 1 could not move · 2 were already closed",
         true},
        {{closed, ignored}, "1 was already closed · 1 was skipped", false},
        {{ignored, ignored}, "2 were skipped", false},
    };
    for (const auto& [items, summary, hasProblems] : cases) {
        EXPECT_EQ(RestoreLogFormatting::summary(entryOf(items)), summary);
        EXPECT_EQ(RestoreLogFormatting::hasProblems(entryOf(items)), hasProblems) << summary;
    }
}

TEST(RestoreLogFormatting, SortsProblemsFirstAndLabelsThemWithTheReason) {
    std::vector<std::string> labels;
    for (const auto& each : RestoreLogFormatting::ordered(
             {item(Outcome::skipped, "window no longer exists"), item(Outcome::restored),
              item(Outcome::failed), item(Outcome::skipped, "app is ignored"),
              item(Outcome::failed, "app rejected the move"), item(Outcome::retried)})) {
        labels.push_back(RestoreLogFormatting::label(each));
    }
    EXPECT_THAT(labels, ElementsAre("Could not move", "Could not move: app rejected the move",
                                    "Put back after a retry", "Put back", "Already closed",
                                    "Skipped: app is ignored"));
}

TEST(RestoreLogFormatting, SummarisesReliability) {
    using namespace RestoreLogFormatting;
    EXPECT_EQ(reliabilitySummary(reliability(0, 0, 0, 3)), "Nothing to put back yet");
    EXPECT_EQ(reliabilitySummary(reliability(5, 2, 1, 0)), "7 put back · 1 could not move");
    EXPECT_EQ(reliabilitySummary(reliability(0, 0, 2, 0)), "2 could not move");
    auto app = reliability(5, 2, 1, 1);
    app.lastFailureReason = "app rejected the move";
    EXPECT_EQ(reliabilityDetail(app),
              "2 needed a retry · 1 was already closed · Last problem: app rejected the move");
    app.failedCount = app.retriedCount = app.skippedCount = 0;
    EXPECT_EQ(reliabilityDetail(app), "");
}

TEST(RestoreLogFormatting, ShortensDurations) {
    const std::pair<double, const char*> cases[] = {
        {5.04, "5.0 s"},     {9.94, "9.9 s"},    {9.96, "10 s"}, {59.4, "59 s"},
        {59.5, "1 min 0 s"}, {125, "2 min 5 s"}, {-1, "0.0 s"},  {NAN, "0.0 s"},
    };
    for (const auto& [seconds, caption] : cases) {
        EXPECT_EQ(RestoreLogFormatting::elapsedCaption(seconds), caption) << seconds;
    }
}

TEST(UsageReceiptCopy, OmitsWhatHasNotHappened) {
    EXPECT_EQ(sentence(0, 0, 0), "");
    EXPECT_EQ(sentence(12, 1, 1240), "In your 7 days, Vantrel restored your desk 12 times, switched scenes "
                                     "once and put 1,240 windows back so you did not have to.");
    EXPECT_EQ(sentence(1, 0, 1), "In your 7 days, Vantrel restored your desk once and put 1 window back so "
                                 "you did not have to.");
    EXPECT_EQ(sentence(0, 2, 0), "In your 7 days, Vantrel switched scenes 2 times.");
}

} // namespace vantrel
