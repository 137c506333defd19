#include "VantrelCore/text/SemVer.h"

#include <fmt/ranges.h>
#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace vantrel {
namespace {

using testing::ElementsAre;
using testing::Optional;

TEST(SemVer, ComponentsAreWholeNumbersBetweenDots) {
    EXPECT_THAT(SemVer::components("1.10.0"), Optional(ElementsAre(1, 10, 0)));
    EXPECT_THAT(SemVer::components("007"), Optional(ElementsAre(7)));
    EXPECT_THAT(SemVer::components("9223372036854775807"), Optional(ElementsAre(INT64_MAX)));
    for (const char* invalid : {"", ".", "1.", ".1", "1..2", "1.2.x", "1.-2", "-0", "+1", " 1", "1 ", "0x1",
                                "1e3", "v1", "1.2-beta", "9223372036854775808", "١"}) {
        EXPECT_EQ(SemVer::components(invalid), std::nullopt) << invalid;
    }
}

TEST(SemVer, TheFirstDifferenceDecidesAndInvalidVersionsAreNeverNewer) {
    const struct {
        const char* a;
        const char* b;
        bool newer;
    } cases[] = {{"1.10", "1.9", true},   {"1.9", "1.10", false},  {"1.2", "1.2.0", false},
                 {"1.2.0", "1.2", false}, {"1.2.1", "1.2", true},  {"2", "1.9.9", true},
                 {"1.2", "1.2", false},   {"1.2.x", "1.0", false}, {"2.0", "1..2", false}};

    for (const auto& [a, b, newer] : cases) {
        EXPECT_EQ(SemVer::isNewer(a, b), newer) << a << " against " << b;
    }
}

std::string anyVersion() {
    const auto parts = *rc::gen::nonEmpty(rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 4)));
    return fmt::format("{}", fmt::join(parts, "."));
}

RC_GTEST_PROP(SemVer, OrderIsTotalAndConsistentWithEquality, ()) {
    const auto a = anyVersion();
    const auto b = anyVersion();
    const auto c = anyVersion();
    auto left = *SemVer::components(a);
    auto right = *SemVer::components(b);
    left.resize(std::max(left.size(), right.size()));
    right.resize(left.size());
    RC_ASSERT(int{SemVer::isNewer(a, b)} + int{SemVer::isNewer(b, a)} + int{left == right} == 1);
    RC_ASSERT(!(SemVer::isNewer(a, b) && SemVer::isNewer(b, c)) || SemVer::isNewer(a, c));
}

} // namespace
} // namespace vantrel
