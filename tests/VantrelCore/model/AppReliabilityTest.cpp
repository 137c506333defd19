#include "VantrelCore/model/AppReliability.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <rapidcheck/gtest.h>

namespace vantrel {
namespace {

using Outcome = RestoreLog::Outcome;

const Date noon{std::chrono::sys_days{std::chrono::year{2025} / 3 / 1} + std::chrono::hours{12}};

RestoreLog::Item item(Outcome outcome, std::optional<std::string> reason = std::nullopt) {
    return {"Editor", "editor", "Notes", outcome, std::move(reason)};
}

AppReliability afterOutcomes(int restored, int retried, int failed, int skipped) {
    AppReliability app;
    const auto ingest = [&](int count, Outcome outcome) {
        for (int i = 0; i < count; ++i) {
            app = app.ingesting(item(outcome), noon);
        }
    };
    ingest(restored, Outcome::restored);
    ingest(retried, Outcome::retried);
    ingest(failed, Outcome::failed);
    ingest(skipped, Outcome::skipped);
    return app;
}

TEST(AppReliability, IsStubbornWhenMoreThanTwoInFiveOfEnoughAttemptsFailed) {
    const struct {
        int restored = 0;
        int retried = 0;
        int failed = 0;
        int skipped = 0;
        std::optional<double> rate;
        bool stubborn = false;
    } cases[] = {
        {0, 0, 0, 0, std::nullopt, false},
        {0, 0, 2, 0, 1.0, false},
        {0, 0, 3, 0, 1.0, true},
        {1, 1, 2, 0, 0.5, true},
        {2, 1, 2, 0, 0.4, false},
        {0, 0, 2, 50, 1.0, false},
        {0, 0, 0, 50, std::nullopt, false},
        {59, 0, 41, 0, 0.41, true},
    };
    for (const auto& [restored, retried, failed, skipped, rate, stubborn] : cases) {
        const auto app = afterOutcomes(restored, retried, failed, skipped);
        EXPECT_EQ(app.attempts(), restored + retried + failed);
        EXPECT_EQ(app.landed(), restored + retried);
        EXPECT_EQ(app.skippedCount, skipped);
        EXPECT_EQ(app.failureRate(), rate);
        EXPECT_EQ(app.isStubborn(), stubborn) << failed << " of " << app.attempts();
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

RC_GTEST_PROP(AppReliability, WhatIsEncodedDecodesToTheSame, ()) {
    AppReliability app;
    app.bundleID = *rc::gen::string<std::string>();
    app.appName = *rc::gen::string<std::string>();
    app.restoredCount = *rc::gen::arbitrary<std::int64_t>();
    app.retriedCount = *rc::gen::arbitrary<std::int64_t>();
    app.failedCount = *rc::gen::arbitrary<std::int64_t>();
    app.skippedCount = *rc::gen::arbitrary<std::int64_t>();
    if (*rc::gen::arbitrary<bool>()) {
        app.lastFailureReason = *rc::gen::string<std::string>();
    }
    app.lastSeen = Date{std::chrono::seconds{*rc::gen::inRange<std::int64_t>(0, 4'000'000'000)}};
    RC_ASSERT(nlohmann::json(app).get<AppReliability>() == app);
}

} // namespace
} // namespace vantrel
