#include "VantrelCore/model/AppSizeBehavior.h"

#include <gtest/gtest.h>
#include <limits>
#include <nlohmann/json.hpp>
#include <rapidcheck/gtest.h>

namespace vantrel {
namespace {

using Sample = AppSizeBehavior::Sample;

AppSizeBehavior learned(const std::vector<Sample>& samples) {
    AppSizeBehavior behavior;
    behavior.bundleID = "app";
    for (const auto& sample : samples) {
        behavior = behavior.ingesting(sample);
    }
    return behavior;
}

const Sample honored{{700, 500}, {700, 500}};
const Sample constrained{{400, 300}, {500, 400}};

TEST(AppSizeBehavior, ClassifiesByWhatTheSamplesProve) {
    const AppSizeBehavior::Classification flexible = AppSizeBehavior::Flexible{};
    const Sample preferences{{800, 600}, {715, 600}};

    const struct {
        const char* what;
        std::vector<Sample> samples;
        AppSizeBehavior::Classification expected;
    } cases[] = {
        {"nothing known", {}, flexible},
        {"every size taken", {honored, {{900, 100}, {900, 100}}}, flexible},
        {"a single refusal proves nothing", {preferences}, flexible},
        {"the same size twice", {preferences, preferences}, AppSizeBehavior::FixedSize{{715, 600}}},
        {"the first size within the tolerance",
         {preferences, {{900, 900}, {719, 596}}},
         AppSizeBehavior::FixedSize{{715, 600}}},
        {"a minimum", {honored, constrained}, AppSizeBehavior::MinClamped{{500, 400}}},
        {"two sizes and neither asked for",
         {{{400, 300}, {500, 450}}, {{300, 300}, {510, 400}}},
         AppSizeBehavior::MinClamped{{500, 400}}},
    };

    for (const auto& [what, samples, expected] : cases) {
        EXPECT_TRUE(learned(samples).classification() == expected) << what;
    }
}

TEST(AppSizeBehavior, FourPointsOffStillCountAsTheSameSize) {
    for (const double off : {3.9, -3.9, 4.0}) {
        EXPECT_EQ(learned({{{700, 500}, {700 + off, 500}}}).honoredCount, 1) << off;
    }
    const auto behavior = learned({{{700, 500}, {700, 504.1}}});
    EXPECT_EQ(behavior.honoredCount, 0);
    EXPECT_EQ(behavior.constrainedCount, 1);
    EXPECT_FALSE(learned({honored, {{704, 500}, {704, 500}}}).achievedVaries);
    EXPECT_TRUE(learned({honored, {{704.1, 500}, {704.1, 500}}, honored}).achievedVaries);
}

TEST(AppSizeBehavior, RemembersFirstLastAndSmallest) {
    const auto behavior = learned({{{400, 300}, {500, 450}}, honored, {{100, 100}, {510, 400}}});
    EXPECT_EQ(behavior, (AppSizeBehavior{.bundleID = "app",
                                         .sampleCount = 3,
                                         .honoredCount = 1,
                                         .constrainedCount = 2,
                                         .achievedVaries = true,
                                         .firstAchieved = Size{500, 450},
                                         .floor = Size{500, 400},
                                         .lastRequested = Size{100, 100},
                                         .lastAchieved = Size{510, 400}}));
}

TEST(AppSizeBehavior, CountersStopAtTheirEnd) {
    AppSizeBehavior behavior;
    behavior.sampleCount = behavior.honoredCount = behavior.constrainedCount = INT64_MAX;
    behavior = behavior.ingesting(honored).ingesting(constrained);
    EXPECT_EQ(behavior.sampleCount, INT64_MAX);
    EXPECT_EQ(behavior.constrainedCount, INT64_MAX);
}

TEST(AppSizeBehavior, ClassificationsKeepTheirFormInJson) {
    const auto check = [](const AppSizeBehavior::Classification& classification,
                          const nlohmann::json& expected) {
        EXPECT_EQ(nlohmann::json(classification), expected);
        EXPECT_TRUE(expected.get<AppSizeBehavior::Classification>() == classification) << expected;
    };
    check(AppSizeBehavior::Flexible{}, {{"kind", "flexible"}});
    check(AppSizeBehavior::FixedSize{{715, 600.5}},
          {{"kind", "fixedSize"}, {"width", 715}, {"height", 600.5}});
    check(AppSizeBehavior::MinClamped{{1, 2}}, {{"kind", "minClamped"}, {"width", 1}, {"height", 2}});
    for (const nlohmann::json& invalid :
         {nlohmann::json{{"kind", "elastic"}}, nlohmann::json{{"kind", "fixedSize"}, {"width", 1}},
          nlohmann::json::object()}) {
        EXPECT_ANY_THROW((void)invalid.get<AppSizeBehavior::Classification>()) << invalid;
    }
}

std::optional<Size> anySize() {
    if (*rc::gen::arbitrary<bool>()) {
        return std::nullopt;
    }
    return Size{*rc::gen::arbitrary<double>(), *rc::gen::arbitrary<double>()};
}

RC_GTEST_PROP(AppSizeBehavior, WhatIsEncodedDecodesToTheSame, ()) {
    const AppSizeBehavior behavior{.bundleID = *rc::gen::string<std::string>(),
                                   .sampleCount = *rc::gen::arbitrary<std::int64_t>(),
                                   .honoredCount = *rc::gen::arbitrary<std::int64_t>(),
                                   .constrainedCount = *rc::gen::arbitrary<std::int64_t>(),
                                   .achievedVaries = *rc::gen::arbitrary<bool>(),
                                   .firstAchieved = anySize(),
                                   .floor = anySize(),
                                   .lastRequested = anySize(),
                                   .lastAchieved = anySize()};
    RC_ASSERT(nlohmann::json(behavior).get<AppSizeBehavior>() == behavior);
}

} // namespace
} // namespace vantrel
