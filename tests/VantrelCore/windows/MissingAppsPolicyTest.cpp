#include "VantrelCore/windows/MissingAppsPolicy.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using testing::ElementsAre;

TEST(MissingAppsPolicy, ApplicationsToLaunchComeInSceneOrderOnceAndNeverIncludeThisProgram) {
    EXPECT_THAT(
        MissingAppsPolicy::missingBundleIDs({"own", "c", "a", "c", "b", "own", "a"}, {"b", "z"}, "own"),
        ElementsAre("c", "a"));
}

TEST(MissingAppsPolicy, ApplicationsWithoutAWindowAreAskedForOnceEach) {
    std::vector<std::string> asked;
    const auto lacking = MissingAppsPolicy::bundlesLackingWindows({"b", "own", "a", "b", "c", "a"}, "own",
                                                                  [&](const std::string& bundleID) {
                                                                      asked.push_back(bundleID);
                                                                      return bundleID == "a";
                                                                  });
    EXPECT_THAT(lacking, ElementsAre("b", "c"));
    EXPECT_THAT(asked, ElementsAre("b", "a", "c"));
}

} // namespace
} // namespace vantrel
