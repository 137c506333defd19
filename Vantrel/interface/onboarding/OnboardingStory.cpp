#include "Vantrel/interface/onboarding/OnboardingStory.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vantrel::OnboardingStory {

namespace {

struct Motion {
    double start = 0;
    double duration = 0;

    [[nodiscard]] constexpr double end() const { return start + duration; }
    // From 0 to 1, slower towards its end.
    [[nodiscard]] double progress(double seconds) const {
        const double share = std::clamp((seconds - start) / duration, 0.0, 1.0);
        return 1 - std::pow(1 - share, 3);
    }
};

// In seconds. Windows start one after the other.
constexpr double between = 0.06;
constexpr Motion displayGoes{1.6, 0.35};
constexpr Motion windowsPileUp{1.75, 0.45};
constexpr Motion displayReturns{4.2, 0.35};
constexpr Motion windowsGoHome{5.0, 0.5};
constexpr std::size_t windowCount = 3;
constexpr double lastWindow = between * (windowCount - 1);
// From the start of the first motion in each to the end of its last one.
constexpr std::array<Motion, 3> scenes{{
    {displayGoes.start, windowsPileUp.end() + lastWindow - displayGoes.start},
    displayReturns,
    {windowsGoHome.start, windowsGoHome.duration + lastWindow},
}};

// What is left of a display that is not there.
constexpr double gone = 0.12;

// The first one is in front.
constexpr std::array<const char*, windowCount> apps{"Code", "Firefox", "Terminal"};
constexpr std::array<Rect, windowCount> homes{Rect{{24, 68}, {1140, 1348}}, Rect{{1188, 68}, {1348, 860}},
                                              Rect{{1188, 952}, {1348, 464}}};
constexpr std::array<Rect, windowCount> pile{Rect{{2630, 540}, {820, 580}}, Rect{{2910, 670}, {820, 580}},
                                             Rect{{3190, 800}, {820, 580}}};

DeskPicture displays() {
    DeskPicture picture;
    const auto add = [&](const char* name, const Rect& frame, bool isBuiltin) {
        DisplayInfo& info = picture.displays.emplace_back();
        info.uuid = info.name = name;
        info.frame = frame;
        info.visibleFrame = Rect{{frame.minX(), frame.minY() + 44}, {frame.width(), frame.height() - 44}};
        info.isBuiltin = isBuiltin;
    };
    add("Studio Display", {{0, 0}, {2560, 1440}}, false);
    add("Built-in Display", {{2560, 458}, {1512, 982}}, true);
    return picture;
}

DeskPicture::Window window(std::size_t index, const Rect& frame) {
    return {.bundleID = apps[index], .appName = apps[index], .title = "", .frame = frame};
}

} // namespace

DeskPicture still() {
    DeskPicture picture = displays();
    for (std::size_t i = 0; i < windowCount; ++i) {
        picture.windows.push_back(window(i, homes[i]));
        picture.windows.back().now = pile[i];
    }
    return picture;
}

DeskPicture at(double seconds) {
    const double time = std::fmod(seconds, length);
    DeskPicture picture = displays();
    const double there = 1 - displayGoes.progress(time) + displayReturns.progress(time);
    picture.displayOpacity = {gone + (1 - gone) * there, 1};
    for (std::size_t i = 0; i < windowCount; ++i) {
        const auto share = [&](Motion motion) {
            motion.start += between * static_cast<double>(i);
            return motion.progress(time);
        };
        const double home = 1 - share(windowsPileUp) + share(windowsGoHome);
        picture.windows.push_back(window(i, home > 0 ? homes[i] : pile[i]));
        if (home > 0 && home < 1) {
            picture.windows.back().now = pile[i];
            picture.windows.back().flight = home;
        }
    }
    return picture;
}

double rest(double seconds) {
    const double time = std::fmod(seconds, length);
    for (const Motion& scene : scenes) {
        if (time < scene.end()) {
            return std::max(0.0, scene.start - time);
        }
    }
    return length - time + scenes.front().start;
}

} // namespace vantrel::OnboardingStory
