#include "Vantrel/interface/onboarding/OnboardingContent.h"

#include "Vantrel/interface/ShortcutText.h"
#include "Vantrel/interface/Text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vantrel {

namespace {

constexpr std::array<std::pair<DockFrequency, std::string_view>, 3> names{{
    {DockFrequency::severalTimesADay, "severalTimesADay"},
    {DockFrequency::onceADay, "onceADay"},
    {DockFrequency::nowAndThen, "nowAndThen"},
}};

} // namespace

std::vector<OnboardingContent::Check> OnboardingContent::checks(const PublishedState& state,
                                                                const Desktop& desktop) {
    return {
        state.hasPermission
            ? Check{tr("Window manager"), tr("Windows can be seen and moved.")}
            : Check{tr("Window manager"),
                    tr("None is running, so no window can be moved. Start your desktop session."), false},
        desktop.hasBus
            ? Check{tr("Session bus"), tr("Connected, so vantrelctl and shortcuts of other programs work.")}
            : Check{tr("Session bus"), tr("Not connected. Vantrel works; vantrelctl cannot reach it."),
                    false},
        desktop.hasTray
            ? Check{tr("Tray"), tr("A click on the icon opens the panel.")}
            : Check{tr("Tray"),
                    desktop.opensPanelAtStart
                        ? tr("This desktop shows no tray icons. The panel opens as a window instead, when "
                             "Vantrel starts and whenever you start it again.")
                        : tr("This desktop shows no tray icons. Start Vantrel once more to open the panel."),
                    false},
    };
}

std::vector<OnboardingContent::Check> OnboardingContent::macChecks(const PublishedState& state,
                                                                   bool isIconShown) {
    return {
        state.hasPermission
            ? Check{tr("Accessibility access"), tr("Windows can be seen and moved.")}
            : Check{tr("Accessibility access"), tr("Without it, no window can be seen or moved."), false,
                    tr("Open System Settings")},
        isIconShown
            ? Check{tr("Menu bar"), tr("A click on the icon opens the panel.")}
            : Check{tr("Menu bar"),
                    tr("It has no room for the icon. Open Vantrel once more to open the panel."), false},
    };
}

std::string OnboardingContent::checkSummary(const std::vector<Check>& checks) {
    const auto there = std::ranges::count(checks, true, &Check::isThere);
    if (checks.size() == 2) {
        return there == 2   ? tr("Two things of your Mac. Both are there.")
               : there == 1 ? tr("Two things of your Mac. One is there.")
                            : tr("Two things of your Mac. None is there.");
    }
    return there == 3   ? tr("Three things of your desktop. All are there.")
           : there == 2 ? tr("Three things of your desktop. Two are there.")
           : there == 1 ? tr("Three things of your desktop. One is there.")
                        : tr("Three things of your desktop. None is there.");
}

std::vector<OnboardingContent::Answer> OnboardingContent::answers() {
    return {{DockFrequency::severalTimesADay, tr("Several times a day"),
             tr("Windows go back half a second after a display comes")},
            {DockFrequency::onceADay, tr("About once a day"), tr("The same, and suggests scenes that recur")},
            {DockFrequency::nowAndThen, tr("Now and then"),
             tr("Gives displays a second longer, and speaks up less")}};
}

OnboardingContent::Suggestion OnboardingContent::suggestion(DockFrequency frequency) {
    switch (frequency) {
    case DockFrequency::severalTimesADay:
        return {.suggestsScenes = false};
    case DockFrequency::onceADay:
        return {};
    case DockFrequency::nowAndThen:
        break;
    }
    // A display that is rarely there, such as a projector, takes its time.
    return {.settleDelay = 1.5, .suggestsScenes = false, .nudges = false};
}

std::vector<OnboardingContent::Shortcut> OnboardingContent::shortcuts(const PublishedState& state) {
    using Kind = HotKeySurface::Kind;
    std::vector<Shortcut> shortcuts{
        {{Kind::fixedRestore, {}}, "restore", tr("Restore now"), tr("Every window goes back to its place")},
        {{Kind::fixedSave, {}}, "save", tr("Save now"), tr("This is how the desk should be")},
        {{Kind::stash, {}}, "stash", tr("Stash"), tr("Puts the desk aside, once more brings it back")}};
    for (Shortcut& shortcut : shortcuts) {
        const auto found = std::ranges::find_if(state.hotKeys, [&](const HotKeyStatus& status) {
            return status.taken.surface == shortcut.surface;
        });
        if (found != state.hotKeys.end()) {
            shortcut.keys = ShortcutText::of(found->taken.combo);
            shortcut.isRefused = found->state == HotKeyStatus::State::refused;
        }
    }
    return shortcuts;
}

std::string_view OnboardingContent::stored(DockFrequency frequency) {
    return std::ranges::find(names, frequency, &std::pair<DockFrequency, std::string_view>::first)->second;
}

std::optional<DockFrequency> OnboardingContent::frequency(std::string_view stored) {
    const auto* const found =
        std::ranges::find(names, stored, &std::pair<DockFrequency, std::string_view>::second);
    return found == names.end() ? std::nullopt : std::optional(found->first);
}

} // namespace vantrel
