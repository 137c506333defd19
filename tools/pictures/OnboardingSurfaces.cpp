// The introduction, page by page.
#include "Vantrel/interface/onboarding/OnboardingWindow.h"
#include "tools/pictures/SampleDesks.h"
#include "tools/pictures/StandInIcons.h"
#include "tools/pictures/Surface.h"

namespace vantrel::pictures {

namespace {

enum class System : std::uint8_t { desktop, mac };

std::unique_ptr<QWidget> window(int page, System system = System::desktop) {
    static StandInIcons icons;
    static ApplicationLooks looks(&icons);
    const auto state = SampleDesks::state();
    OnboardingWindow::Actions actions;
    actions.checks = [state, system] {
        auto missing = state;
        missing.hasPermission = false;
        return system == System::mac ? OnboardingContent::macChecks(missing, true)
                                     : OnboardingContent::checks(state, {.hasBus = true, .hasTray = false});
    };
    actions.shortcuts = [state] { return OnboardingContent::shortcuts(state); };
    auto window = std::make_unique<OnboardingWindow>(
        looks,
        OnboardingWindow::Start{
            .answer = DockFrequency::onceADay, .startsWithSession = true, .wantsMotion = false},
        actions);
    window->showPage(page);
    return window;
}

} // namespace

std::vector<Surface> onboardingSurfaces() {
    std::vector<Surface> surfaces;
    for (int page = 0; page < OnboardingWindow::pageCount; ++page) {
        surfaces.push_back({"onboarding-" + std::to_string(page + 1), [page] { return window(page); }});
    }
    surfaces.push_back({"onboarding-2-mac", [] { return window(1, System::mac); }});
    return surfaces;
}

} // namespace vantrel::pictures
