#include "VantrelCore/displays/DisplayLabels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {
namespace {

using testing::ElementsAre;
using testing::Pair;

DisplayInfo monitor(const std::string& uuid, const std::string& name, double x) {
    return {uuid, name, {{x, 0}, {100, 100}}, false, std::nullopt, std::nullopt};
}

// The identity of what is meant, or the sentence of the refusal.
std::string meant(const char* called, const std::vector<std::vector<DisplayInfo>>& desks) {
    const auto found = DisplayLabels::resolve(called, desks);
    return found ? found->uuid + " " + found->name : found.error();
}

TEST(DisplayLabels, AreUniqueAlsoWhereANameLooksLikeTheLabelOfAnother) {
    EXPECT_THAT(DisplayLabels::of({monitor("a", "Twin", 9), monitor("b", "Twin", 0),
                                   monitor("c", "twin (LEFT)", 5), monitor("d", "Other", 7)}),
                ElementsAre(Pair("a", "Twin (right)"), Pair("b", "Twin (left)"), Pair("c", "twin (LEFT) 2"),
                            Pair("d", "Other")));
}

TEST(DisplayLabels, WhatIsTypedMeansOneDisplayOrIsRefusedWithThoseThatAreKnown) {
    const std::vector<DisplayInfo> here{monitor("L", "Panel", 0), monitor("a", "Office 24", 10),
                                        monitor("b", "Office 24", 20)};
    const std::vector<DisplayInfo> home{monitor("a", "Office 24", 0), monitor("t", "TV", 10)};
    const std::vector<DisplayInfo> studio{monitor("b", "Office 24", 5), monitor("z", "Office 24", 0)};
    const struct {
        const char* called;
        const char* meant;
    } cases[] = {
        {" office 24 (RIGHT) ", "b Office 24 (right)"},
        {"Office 24 (left)", "a Office 24 (left)"},
        {"T", "t TV"},
        {"pan", "L Panel"},
        {"Z", "z Office 24 (left)"},
        // At home it is the only one of that name, but nobody sits there.
        {"Office 24", "\"Office 24\" matches more than one display: Office 24 (left), Office 24 (right). "
                      "Name one of them."},
        {"Offi",
         "\"Offi\" matches more than one display: Office 24 (left), Office 24 (right). Name one of them."},
        {"", "No display \"\" is known. Known displays: Panel, Office 24 (left) (a), Office 24 (right), TV, "
             "Office 24 (left) (z)."},
    };
    for (const auto& [called, expected] : cases) {
        EXPECT_EQ(meant(called, {here, home, studio}), expected) << called;
    }
    EXPECT_EQ(meant("TV", {}), "No display \"TV\" is known.");
}

} // namespace
} // namespace vantrel
