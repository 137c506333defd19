#include "VantrelCore/model/AppRule.h"

#include "VantrelCore/model/JsonCoding.h"

#include <gtest/gtest.h>

namespace vantrel {

namespace {

TEST(AppRule, WritesEachActionAsAnObjectWithItsKind) {
    AppRule rule;
    rule.bundleID = "org.mail";
    rule.appName = "Mail";
    EXPECT_EQ(nlohmann::json(rule).dump(),
              R"({"action":{"kind":"ignore"},"appName":"Mail","bundleID":"org.mail"})");
    rule.action = AppRule::ForceDisplay{.uuid = "A", .displayName = "Display"};
    rule.restoreLast = false;
    EXPECT_EQ(
        nlohmann::json(rule).dump(),
        R"({"action":{"displayName":"Display","kind":"forceDisplay","uuid":"A"},"appName":"Mail","bundleID":"org.mail","restoreLast":false})");
}

TEST(AppRule, RefusesActionsThatItDoesNotKnowOrThatLackSomething) {
    for (const char* action : {R"({"kind": "explode"})", R"({"kind": "forceDisplay"})", R"({})", "null",
                               R"({"kind": "forceDisplay", "uuid": "A"})", R"("ignore")"}) {
        auto json = nlohmann::json(AppRule{});
        json["action"] = nlohmann::json::parse(action);
        EXPECT_THROW(static_cast<void>(json.get<AppRule>()), JsonCoding::Error) << action;
    }
}

} // namespace

} // namespace vantrel
