#include "VantrelCore/windows/DriftGuard.h"
#include "tests/VantrelCore/DeskRecords.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

// Observes a drift for every 'd', a window just within the tolerance for every '.', is reset for every 'r';
// says with '!' where the guard acts.
std::string acts(int required, const std::string& story) {
    const auto layoutWithWindowAt = [](double x) {
        return layoutOf({windowOf("app", {{x, 0}, {800, 600}})});
    };
    DriftGuard guard(required);
    std::string result;
    for (const char event : story) {
        if (event == 'r') {
            guard.reset();
        }
        const double x = event == 'd' ? 2.01 : 2.0;
        result += event != 'r' && guard.observe(layoutWithWindowAt(x), layoutWithWindowAt(0)) ? '!' : '-';
    }
    return result;
}

TEST(DriftGuard, ActsAfterTheRequiredNumberOfDriftsInARowAndStartsOver) {
    EXPECT_EQ(acts(3, "dd.dddddd"), "-----!--!");
    EXPECT_EQ(acts(2, "drdd"), "---!");
    for (const int required : {1, 0, -7}) {
        EXPECT_EQ(acts(required, "d.d"), "!-!") << required;
    }
}

} // namespace
} // namespace vantrel
