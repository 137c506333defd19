#include "Vantrel/controller/RestorePass.h"

#include "Vantrel/controller/AchievedSizes.h"

#include <utility>

namespace vantrel::RestorePass {

namespace {

// A capture that took this long, in seconds, waited for an application that does not answer; another one
// would wait as long again.
constexpr double promptCapture = 0.5;

// A window that moves while the desk is being read can look as if it was not on screen. So when windows are
// missing, one more look is taken, and the better one counts.
std::vector<CurrentWindow> liveWindows(const Task& task, Accessibility& accessibility, Clock& clock) {
    const double start = clock.monotonicSeconds();
    std::vector<CurrentWindow> windows = DeskCapture::windows(accessibility, task.scope);
    const auto found = [&](const std::vector<CurrentWindow>& live) {
        return RestoreEngine::match(task.request.layout.windows, live).pairs.size();
    };
    const std::size_t foundFirst = found(windows);
    if (foundFirst < task.request.layout.windows.size() && clock.monotonicSeconds() - start < promptCapture) {
        std::vector<CurrentWindow> again = DeskCapture::windows(accessibility, task.scope);
        if (found(again) > foundFirst) {
            return again;
        }
    }
    return windows;
}

} // namespace

Result run(const Task& task, Accessibility& accessibility, Clock& clock, Background& background) {
    const RestoreRequest& request = task.request;
    if (request.trigger == RestoreTrigger::automatic) {
        // The window manager answers a display change by moving windows itself, after the displays settled.
        accessibility.awaitQuiet();
    }
    if (task.permit->isRevoked()) {
        return {.report = {}, .landed = {}, .sizes = {}, .isAbandoned = true};
    }
    const auto current = underPermit(liveWindows(task, accessibility, clock), task.permit);
    Result result;
    result.report = RestoreEngine::restore(request.layout, current, task.options, clock, background);
    auto moved = RestoreFollowUp::moved(request.layout, current, result.report);
    if (task.options.sizes == RestoreEngine::Sizes::restore) {
        result.sizes = AchievedSizes::read(moved, result.report, background);
    }
    result.landed = RestoreFollowUp::landed(std::move(moved), result.report);
    result.isAbandoned = task.permit->isRevoked();
    return result;
}

} // namespace vantrel::RestorePass
