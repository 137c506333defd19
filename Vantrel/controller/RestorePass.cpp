#include "Vantrel/controller/RestorePass.h"

namespace vantrel::RestorePass {

Result run(const Task& task, Accessibility& accessibility, Clock& clock, Background& background) {
    const RestoreRequest& request = task.request;
    if (request.trigger == RestoreTrigger::automatic) {
        // The window manager answers a display change by moving windows itself, after the displays settled.
        accessibility.awaitQuiet();
    }
    if (task.permit->isRevoked()) {
        return {.report = {}, .landed = {}, .isAbandoned = true};
    }
    const auto current = underPermit(DeskCapture::windows(accessibility, task.scope), task.permit);
    Result result;
    result.report = RestoreEngine::restore(request.layout, current, task.options, clock, background);
    result.isAbandoned = task.permit->isRevoked();
    result.landed = RestoreFollowUp::landed(request.layout, current, result.report);
    return result;
}

} // namespace vantrel::RestorePass
