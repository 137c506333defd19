#include "VantrelCore/model/AppReliability.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using Outcome = RestoreLog::Outcome;

const Date noon{std::chrono::sys_days{std::chrono::year{2025} / 3 / 1} + std::chrono::hours{12}};

RestoreLog::Item item(Outcome outcome, std::optional<std::string> reason = std::nullopt) {
    return {"Editor", "editor", "Notes", outcome, std::move(reason)};
}

TEST(AppReliability, IsStubbornWhenMoreThanTwoInFiveOfEnoughAttemptsFailed) {
    const struct {
        int restored;
        int retried;
        int failed;
        int skipped;
        std::optional<double> rate;
        bool isStubborn;
    } rows[] = {
        {0, 0, 2, 50, 1.0, false},
        {0, 0, 3, 0, 1.0, true},
        {1, 1, 2, 0, 0.5, true},
        {2, 1, 2, 0, 0.4, false},
        {0, 0, 0, 50, std::nullopt, false},
        {59, 0, 41, 0, 0.41, true},
    };
    for (const auto& row : rows) {
        AppReliability app;
        const auto ingest = [&](int count, Outcome outcome) {
            for (int i = 0; i < count; ++i) {
                app = app.ingesting(item(outcome), noon);
            }
        };
        ingest(row.restored, Outcome::restored);
        ingest(row.retried, Outcome::retried);
        ingest(row.failed, Outcome::failed);
        ingest(row.skipped, Outcome::skipped);
        EXPECT_EQ(app.landed(), row.restored + row.retried);
        EXPECT_EQ(app.skippedCount, row.skipped);
        EXPECT_EQ(app.failureRate(), row.rate);
        EXPECT_EQ(app.isStubborn(), row.isStubborn) << row.failed << " of " << app.attempts();
    }
}

TEST(AppReliability, KeepsTheLastReasonOfAFailureOnly) {
    auto app = AppReliability{}.ingesting(item(Outcome::failed, "app rejected the move"), noon);
    app = app.ingesting(item(Outcome::skipped, "window no longer exists"), noon);
    app = app.ingesting(item(Outcome::failed), noon);
    EXPECT_EQ(app.lastFailureReason, "app rejected the move");
    app = app.ingesting(item(Outcome::failed, "window drifted after move"), noon);
    EXPECT_EQ(app.lastFailureReason, "window drifted after move");
}

TEST(AppReliability, AnOlderItemMovesNeitherTheDateNorTheNameBack) {
    auto renamed = item(Outcome::restored);
    renamed.appName = "Editor Pro";
    auto app = AppReliability{}.ingesting(item(Outcome::restored), noon).ingesting(renamed, noon);
    EXPECT_EQ(app.appName, "Editor Pro");
    app = app.ingesting(item(Outcome::restored), dateAfter(noon, -60));
    EXPECT_EQ(app.appName, "Editor Pro");
    EXPECT_EQ(app.lastSeen, noon);
    EXPECT_EQ(app.restoredCount, 3);
    renamed.appName = "";
    EXPECT_EQ(app.ingesting(renamed, dateAfter(noon, 60)).appName, "Editor Pro");
}

TEST(AppReliability, CountersOfADamagedFileNeitherWrapNorProveAnything) {
    AppReliability app;
    app.restoredCount = app.retriedCount = app.failedCount = INT64_MAX;
    app = app.ingesting(item(Outcome::failed), noon);
    EXPECT_EQ(app.attempts(), INT64_MAX);
    app.restoredCount = app.retriedCount = INT64_MIN;
    EXPECT_EQ(app.failureRate(), std::nullopt);
    EXPECT_FALSE(app.isStubborn());
}

} // namespace
} // namespace vantrel
