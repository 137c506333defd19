// What a restore would do is said without moving anything, and it then does that.
#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

using Fate = RestorePreview::Fate;

struct Previews : LearnedDesk {
    std::vector<RestorePreviewFlow::Result> results;

    RestorePreviewFlow& flow() { return story.controller->previews(); }
    [[nodiscard]] RestorePreviewFlow::Done take() {
        return [this](const RestorePreviewFlow::Result& result) { results.push_back(result); };
    }
    // "Mail: would move" for each window, sorted.
    [[nodiscard]] std::vector<std::string> told() {
        story.runFor(1);
        std::vector<std::string> lines;
        for (const auto& window : results.back().value().windows) {
            lines.push_back(window.saved.appName + ": " + std::string(RestorePreviews::text(window.fate)));
        }
        std::ranges::sort(lines);
        return lines;
    }
    [[nodiscard]] std::string refusal() {
        story.runFor(1);
        return results.back() ? "" : results.back().error();
    }
};

TEST_F(Previews, SayWhatTheRestoreThenDoes) {
    story.move(story.mail, {{50, 60}, {500, 400}});
    story.desk.window(story.terminal).states.isMinimized = true;
    story.desk.close(story.browserLeft);
    const auto before = story.frames();
    flow().preview(take());
    EXPECT_THAT(told(), ElementsAre("Browser: in place", "Browser: no such window is open",
                                    "Mail: would move", "Terminal: would move"));
    const RestorePreview preview = *results.back();
    EXPECT_EQ(RestorePreviews::summary(preview), "2 windows would move · 1 in place · 1 not open");
    EXPECT_EQ(story.frames(), before);
    ASSERT_TRUE(restore());
    for (const auto& window : preview.windows) {
        if (window.match) {
            EXPECT_EQ(story.frame(window.match->window), window.saved.frame) << window.saved.title;
        }
    }
    flow().preview(take());
    EXPECT_THAT(told(), Each(testing::Not(testing::HasSubstr("would move"))));
}

TEST_F(Previews, OfScenesSayWhatWouldBeOpenedAndOfRulesWhatStaysAway) {
    story.controller->scenes().saveCurrentAsScene("Work", {});
    story.runFor(2);
    const Scene scene = story.published().scenes.front();
    story.desk.quit(story.desk.window(story.mail).pid);
    flow().previewScene(scene, take());
    EXPECT_THAT(told(), Contains("Mail: would be opened"));
    ASSERT_TRUE(story.controller->scenes().setOpensMissingApps(false, scene.id));
    flow().previewScene(story.published().scenes.front(), take());
    EXPECT_THAT(told(), Contains("Mail: not running"));
    story.controller->scenes().createEmptyScene("Empty");
    flow().previewScene(story.published().scenes.back(), take());
    EXPECT_THAT(told(), IsEmpty());
    EXPECT_THAT(results.back()->unremembered, SizeIs(3));
}

TEST_F(Previews, OfAnotherDesksLayoutAreTranslatedAndRefusedWhileNothingCanBeRead) {
    const Layout layout = *story.storedLayout();
    story.connect("laptop-and-monitor");
    flow().previewLayout(layout, take());
    EXPECT_THAT(told(), SizeIs(4));
    flow().preview(take());
    EXPECT_EQ(refusal(), "Nothing is remembered for this desk yet.");
    story.desk.setTrusted(false);
    flow().previewLayout(layout, take());
    EXPECT_EQ(refusal(), "The permission to read and move windows is missing.");
}

} // namespace
} // namespace vantrel::simulated
