#include "Vantrel/controller/ControllerText.h"
#include "Vantrel/controller/RestoreFollowUp.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using Kind = RestoreReport::Kind;
using RestoreEngine::Sizes;

TEST(RestoreFollowUp, OnlyAVisibleWindowElsewhereIsDisplaced) {
    const Rect target{{100, 100}, {400, 300}};
    const std::tuple<std::optional<Rect>, Sizes, bool> cases[] = {
        {Rect{{102, 98}, {402, 298}}, Sizes::restore, false},
        {Rect{{102.1, 100}, {400, 300}}, Sizes::restore, true},
        {Rect{{100, 100}, {410, 300}}, Sizes::restore, true},
        {Rect{{100, 100}, {410, 300}}, Sizes::leave, false},
        {Rect{{100, 110}, {400, 300}}, Sizes::leave, true},
        {std::nullopt, Sizes::restore, false},
    };
    for (const auto& [frame, sizes, isDisplaced] : cases) {
        EXPECT_EQ(RestoreFollowUp::isDisplaced(frame, target, sizes), isDisplaced);
    }
}

TEST(ControllerText, ReportNamesFailedWindowsWithTheReason) {
    const auto item = [](const std::string& app, Kind kind) {
        return RestoreReport::Item{app, app, "title", {kind, "app rejected the move"}};
    };
    EXPECT_EQ(
        ControllerText::restoreReport({.items = {item("Mail", Kind::failed), item("Editor", Kind::retried),
                                                 item("Notes", Kind::skipped), item("Chat", Kind::failed)},
                                       .elapsed = 0.0421}),
        "restore report: 1 restored, 2 failed, 1 skipped, 1 retried, 4 expected, 42 ms; failed: Mail "
        "\"title\" (app rejected the move), Chat \"title\" (app rejected the move)");
}

} // namespace
} // namespace vantrel
