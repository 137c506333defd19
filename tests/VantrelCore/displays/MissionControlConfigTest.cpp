#include "VantrelCore/displays/MissionControlConfig.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using enum MissionControlConfig::Classification;

TEST(MissionControlConfig, OneUnfavourableSettingLosesAndWinningNeedsBothKnown) {
    const struct {
        std::optional<bool> separateSpaces;
        std::optional<bool> autoRearrangeSpaces;
        MissionControlConfig::Classification expected = unknown;
    } cases[] = {
        {true, false, winning},        {true, true, losing},          {false, false, losing},
        {false, true, losing},         {true, std::nullopt, unknown}, {std::nullopt, false, unknown},
        {false, std::nullopt, losing}, {std::nullopt, true, losing},  {std::nullopt, std::nullopt, unknown},
    };

    for (const auto& [separate, rearrange, expected] : cases) {
        EXPECT_EQ((MissionControlConfig{separate, rearrange}.classification()), expected)
            << "separate " << separate.value_or(-1) << ", rearrange " << rearrange.value_or(-1);
    }
}

} // namespace
} // namespace vantrel
