#include "Vantrel/interface/onboarding/OnboardingContent.h"

#include "Vantrel/interface/Text.h"
#include "VantrelCore/commands/HotKeyText.h"

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

std::vector<std::string> keys(const PublishedState& state, HotKeySurface::Kind kind) {
    const auto found = std::ranges::find_if(
        state.hotKeys, [&](const HotKeyStatus& status) { return status.taken.surface.kind == kind; });
    std::vector<std::string> parts;
    if (found == state.hotKeys.end() || found->state != HotKeyStatus::State::registered) {
        return parts;
    }
    std::string text = HotKeyText::text(found->taken.combo);
    // The last key may itself be a plus sign.
    for (auto plus = text.find('+'); plus != std::string::npos && plus + 1 < text.size();
         plus = text.find('+')) {
        parts.push_back(text.substr(0, plus));
        text.erase(0, plus + 1);
    }
    parts.push_back(text);
    return parts;
}

DeskPicture::Window window(const char* app, const Rect& home, const Rect& now) {
    return {.bundleID = app, .appName = app, .title = "", .frame = home, .now = now};
}

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
                    tr("This desktop shows no tray icons. Start Vantrel once more to open the panel."),
                    false},
    };
}

std::string OnboardingContent::checkSummary(const std::vector<Check>& checks) {
    switch (std::ranges::count(checks, true, &Check::isThere)) {
    case 3:
        return tr("Three things of your desktop. All are there.");
    case 2:
        return tr("Three things of your desktop. Two are there.");
    case 1:
        return tr("Three things of your desktop. One is there.");
    default:
        return tr("Three things of your desktop. None is there.");
    }
}

std::vector<OnboardingContent::Answer> OnboardingContent::answers() {
    return {
        {DockFrequency::severalTimesADay, tr("Several times a day"), tr("At a desk, in meetings, at home")},
        {DockFrequency::onceADay, tr("About once a day"), tr("To work and back")},
        {DockFrequency::nowAndThen, tr("Now and then"), tr("The displays mostly stay as they are")}};
}

std::vector<OnboardingContent::Shortcut> OnboardingContent::shortcuts(const PublishedState& state) {
    using Kind = HotKeySurface::Kind;
    return {{"restore", tr("Restore now"), tr("Every window goes back to its place"),
             keys(state, Kind::fixedRestore)},
            {"save", tr("Save now"), tr("This is how the desk should be"), keys(state, Kind::fixedSave)},
            {"stash", tr("Stash"), tr("Puts the desk aside, once more brings it back"),
             keys(state, Kind::stash)}};
}

DeskPicture OnboardingContent::picture() {
    DeskPicture picture;
    const auto display = [&](const char* name, const Rect& frame, bool isBuiltin) {
        DisplayInfo& info = picture.displays.emplace_back();
        info.uuid = info.name = name;
        info.frame = frame;
        info.visibleFrame = Rect{{frame.minX(), frame.minY() + 44}, {frame.width(), frame.height() - 44}};
        info.isBuiltin = isBuiltin;
    };
    display("Studio Display", {{0, 0}, {2560, 1440}}, false);
    display("Built-in Display", {{2560, 458}, {1512, 982}}, true);
    picture.windows = {
        window("Code", {{24, 68}, {1140, 1348}}, {{2700, 560}, {640, 520}}),
        window("Firefox", {{1188, 68}, {1348, 860}}, {{2790, 650}, {640, 520}}),
        window("Terminal", {{1188, 952}, {1348, 464}}, {{2880, 740}, {640, 520}}),
    };
    return picture;
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
