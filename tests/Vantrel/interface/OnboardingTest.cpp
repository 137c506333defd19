#include "Vantrel/interface/onboarding/OnboardingFilm.h"
#include "Vantrel/interface/onboarding/OnboardingStory.h"
#include "Vantrel/interface/onboarding/OnboardingWindow.h"

#include <QRadioButton>
#include <QTest>

#include <algorithm>
#include <gmock/gmock.h>
#include <stdexcept>

namespace vantrel {

namespace {

template <typename Child>
Child& first(const QObject& parent) {
    for (QObject* const child : parent.findChildren<QObject*>()) {
        if (auto* const found = dynamic_cast<Child*>(child)) {
            return *found;
        }
    }
    throw std::logic_error("there is none");
}

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
    EXPECT_EQ(OnboardingContent::checkSummary(OnboardingContent::macChecks(state, true)),
              "Two things of your Mac. One is there.");
    EXPECT_EQ(OnboardingContent::macChecks(state, true)[0].action, "Open System Settings");
    state.hasPermission = true;
    EXPECT_EQ(OnboardingContent::checkSummary(OnboardingContent::macChecks(state, true)),
              "Two things of your Mac. Both are there.");
    for (const auto& answer : OnboardingContent::answers()) {
        EXPECT_EQ(OnboardingContent::frequency(OnboardingContent::stored(answer.frequency)),
                  answer.frequency);
    }
    EXPECT_EQ(OnboardingContent::frequency("never"), std::nullopt);
}

// What rest() promises must be true, or the film would stop or jump.
TEST(Onboarding, TheFilmRestsOnlyWhileNothingMovesAndBringsEveryWindowHome) {
    namespace Story = OnboardingStory;
    constexpr double step = 0.02;
    const DeskPicture home = Story::at(0);
    bool hasPiledUp = false;
    for (double time = 0; time < Story::length; time += step) {
        const DeskPicture now = Story::at(time);
        if (Story::rest(time) > step) {
            EXPECT_EQ(Story::at(time + step), now) << time;
        }
        hasPiledUp |= std::ranges::all_of(now.windows, [&](const auto& window) {
            return !window.flight && now.displays[1].frame.contains(window.frame.center());
        });
    }
    EXPECT_TRUE(hasPiledUp);
    EXPECT_EQ(Story::at(Story::length - step), home);
    EXPECT_EQ(Story::still().movedCount(), home.windows.size());
}

TEST(Onboarding, IsGoneThroughByKeyboardAlone) {
    PublishedState state;
    state.hotKeys = {{.taken = {.surface = {HotKeySurface::Kind::fixedRestore, {}},
                                .combo = HotKeyDefaults::restore,
                                .label = "Restore now"}}};
    const auto shortcuts = OnboardingContent::shortcuts(state);
    EXPECT_NE(shortcuts[0].keys, "");
    EXPECT_EQ(shortcuts[1].keys, "");

    ApplicationLooks looks(nullptr);
    std::optional<DockFrequency> answered;
    int saved = 0;
    int finished = 0;
    int checked = 0;
    std::optional<HotKeyCombo> recorded;
    OnboardingWindow window(looks, {},
                            {.checks =
                                 [&] {
                                     ++checked;
                                     return OnboardingContent::checks(state, {});
                                 },
                             .answer = [&](DockFrequency frequency) -> std::optional<std::string> {
                                 answered = frequency;
                                 return "The settings could not be written.";
                             },
                             .shortcuts = [&] { return OnboardingContent::shortcuts(state); },
                             .keyCode = [](const QKeyEvent&) { return std::optional<std::int64_t>(19); },
                             .setHotkey = [&](const auto&, auto combo) -> std::optional<std::string> {
                                 recorded = combo;
                                 return std::nullopt;
                             },
                             .finished = [&] { ++finished; },
                             .save = [&] { ++saved; }});
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto press = [&](Qt::Key key) { QTest::keyClick(window.focusWidget(), key); };
    press(Qt::Key_Space);
    EXPECT_EQ(window.page(), 1);
    EXPECT_EQ(checked, 1);
    EXPECT_FALSE(first<OnboardingFilm>(window).isRunning());
    press(Qt::Key_Space);
    EXPECT_EQ(window.page(), 2);
    window.findChildren<QRadioButton*>()[1]->setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(answered, DockFrequency::onceADay);
    EXPECT_TRUE(std::ranges::any_of(window.findChildren<Label*>(), [](const Label* label) {
        return label->isVisible() && label->text() == "The settings could not be written.";
    }));
    press(Qt::Key_PageUp);
    EXPECT_EQ(window.page(), 1);
    EXPECT_TRUE(first<Switch>(window).isChecked());
    window.showPage(3);
    first<HotKeyRecorder>(window).setFocus();
    press(Qt::Key_Space);
    QTest::keyClick(window.focusWidget(), Qt::Key_2, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(recorded,
              (HotKeyCombo{.keyCode = 19, .modifiers = HotKeyModifiers::control | HotKeyModifiers::option}));
    window.showPage(3);
    press(Qt::Key_Space);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(saved, 1);
    EXPECT_EQ(finished, 1);
}

} // namespace

} // namespace vantrel
