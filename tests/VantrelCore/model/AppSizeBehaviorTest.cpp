#include "VantrelCore/model/AppSizeBehavior.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace vantrel
