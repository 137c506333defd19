#include "VantrelCore/text/SemVer.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using testing::ElementsAre;
using testing::Optional;

TEST(SemVer, ComponentsAreWholeNumbersBetweenDots) {
    EXPECT_THAT(SemVer::components("1.010.0"), Optional(ElementsAre(1, 10, 0)));
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
        bool isNewer;
    } cases[] = {{"1.10", "1.9", true}, {"1.2", "1.2.0", false}, {"1.2.1", "1.2", true}, {"2", "1.9.9", true},
                 {"1.2", "1.2", false}, {"1.2.x", "1.0", false}, {"2.0", "1..2", false}};

    for (const auto& [a, b, isNewer] : cases) {
        EXPECT_EQ(SemVer::isNewer(a, b), isNewer) << a << " against " << b;
        EXPECT_FALSE(SemVer::isNewer(b, a)) << b << " against " << a;
    }
}

} // namespace
} // namespace vantrel
