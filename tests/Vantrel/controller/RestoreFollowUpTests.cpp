#include "Vantrel/controller/ControllerText.h"
#include "Vantrel/controller/Phase.h"
#include "Vantrel/controller/RestoreFollowUp.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using Kind = RestoreReport::Kind;
using RestoreEngine::Sizes;

RestoreReport::Item item(const std::string& app, Kind kind) {
    return {app, app, "same title", {kind, kind == Kind::failed ? "app rejected the move" : ""}};
}

TEST(RestoreFollowUp, OnlyAWindowThatCanBeSeenElsewhereIsDisplaced) {
    const Rect target{{100, 100}, {400, 300}};
    struct Case {
        std::optional<Rect> frame;
        Sizes sizes;
        bool isDisplaced;
    };
    const Case cases[] = {
        {Rect{{102, 98}, {402, 298}}, Sizes::restore, false},
        {Rect{{102.1, 100}, {400, 300}}, Sizes::restore, true},
        {Rect{{100, 100}, {410, 300}}, Sizes::restore, true},
        {Rect{{100, 100}, {410, 300}}, Sizes::leave, false},
        {Rect{{100, 110}, {400, 300}}, Sizes::leave, true},
        {std::nullopt, Sizes::restore, false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(RestoreFollowUp::isDisplaced(c.frame, target, c.sizes), c.isDisplaced);
    }
}

TEST(StatusPhase, PermissionComesBeforeTheSwitchAndTheSwitchBeforeTheDesk) {
    EXPECT_TRUE(StatusPhase::resting(false, false, 3).is<Phase::NeedsPermission>());
    EXPECT_TRUE(StatusPhase::resting(true, false, 3).is<Phase::Off>());
    EXPECT_EQ(StatusPhase::text({Phase::Saved{1}}), "1 window remembered");
    EXPECT_EQ(StatusPhase::text({Phase::Restored{12, 0.44}}), "12 windows put back in 0.4 s");
}

TEST(ControllerText, TheReportNamesEveryFailedWindowWithItsReason) {
    RestoreReport report{.items = {item("Mail", Kind::failed), item("Editor", Kind::retried),
                                   item("Browser", Kind::restored), item("Notes", Kind::skipped),
                                   item("Chat", Kind::failed)},
                         .elapsed = 0.0421};
    EXPECT_EQ(ControllerText::restoreReport(report),
              "restore report: 2 restored, 2 failed, 1 skipped, 1 retried, 5 expected, 42 ms; failed: Mail "
              "\"same title\" (app rejected the move), Chat \"same title\" (app rejected the move)");
}

} // namespace
} // namespace vantrel
