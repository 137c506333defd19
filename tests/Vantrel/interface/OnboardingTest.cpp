#include "Vantrel/interface/onboarding/OnboardingWindow.h"

#include <QRadioButton>
#include <QTest>

#include <gmock/gmock.h>

namespace vantrel {

namespace {

TEST(Onboarding, ChecksSayWhatIsMissing) {
    PublishedState state;
    state.hasPermission = true;
    EXPECT_EQ(OnboardingContent::checkSummary(OnboardingContent::checks(state, {})),
              "Three things of your desktop. All are there.");
    state.hasPermission = false;
    const auto checks = OnboardingContent::checks(state, {.hasBus = true, .hasTray = false});
    EXPECT_EQ(OnboardingContent::checkSummary(checks), "Three things of your desktop. One is there.");
    EXPECT_FALSE(checks[0].isThere);
    EXPECT_FALSE(checks[2].isThere);
    for (const auto& answer : OnboardingContent::answers()) {
        EXPECT_EQ(OnboardingContent::frequency(OnboardingContent::stored(answer.frequency)),
                  answer.frequency);
    }
    EXPECT_EQ(OnboardingContent::frequency("never"), std::nullopt);
}

TEST(Onboarding, IsGoneThroughByKeyboardAlone) {
    PublishedState state;
    state.hotKeys = {{.taken = {.surface = {HotKeySurface::Kind::fixedRestore, {}},
                                .combo = HotKeyDefaults::restore,
                                .label = "Restore now"}}};
    const auto shortcuts = OnboardingContent::shortcuts(state);
    EXPECT_THAT(shortcuts[0].keys, testing::ElementsAre("Shift", "Super", "R"));
    EXPECT_THAT(shortcuts[1].keys, testing::IsEmpty());

    ApplicationLooks looks(nullptr);
    std::optional<DockFrequency> answered;
    int saved = 0;
    int finished = 0;
    int checked = 0;
    OnboardingWindow window(looks, shortcuts, std::nullopt, false,
                            {.checks =
                                 [&] {
                                     ++checked;
                                     return OnboardingContent::checks(state, {});
                                 },
                             .answer = [&](DockFrequency frequency) { answered = frequency; },
                             .finished = [&] { ++finished; },
                             .save = [&] { ++saved; }});
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto press = [&](Qt::Key key) { QTest::keyClick(window.focusWidget(), key); };
    press(Qt::Key_Space);
    EXPECT_EQ(window.page(), 1);
    EXPECT_EQ(checked, 1);
    press(Qt::Key_Space);
    EXPECT_EQ(window.page(), 2);
    window.findChildren<QRadioButton*>()[1]->setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(answered, DockFrequency::onceADay);
    press(Qt::Key_PageUp);
    EXPECT_EQ(window.page(), 1);
    window.showPage(3);
    press(Qt::Key_Space);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(saved, 1);
    EXPECT_EQ(finished, 1);
}

} // namespace

} // namespace vantrel
