#include "Vantrel/controller/CaptureNow.h"

#include "VantrelCore/windows/AXPermission.h"

#include <optional>
#include <utility>

namespace vantrel::CaptureNow {

namespace {

using Kind = SaveOutcome::Kind;

std::optional<Kind> hindrance(ControllerContext& context) {
    if (!AXPermission::isGranted(context.ports.desk)) {
        return Kind::needsPermission;
    }
    if (context.gate.isRestoring()) {
        return Kind::restoreInFlight;
    }
    if (context.currentDisplays().empty()) {
        return Kind::noDisplays;
    }
    if (!context.isDeskCurrent()) {
        return Kind::displaysChanging;
    }
    return std::nullopt;
}

} // namespace

void perform(ControllerContext& context, DeskCapture::Reach reach, std::function<void(const Result&)> done) {
    if (context.gate.isPassUnderWay()) {
        context.gate.afterPass([&context, reach, done = std::move(done)] { perform(context, reach, done); });
        return;
    }
    if (const auto kind = hindrance(context)) {
        done(std::unexpected(*kind));
        return;
    }
    const auto displays = context.currentDisplays();
    context.runPass(
        WorkPriority::userInitiated,
        [scope = context.captureScope(displays), ports = context.ports] {
            return DeskCapture::picture(ports.desk, ports.clock, scope);
        },
        [&context, displays, reach, done = std::move(done),
         began = context.gate.now()](const std::optional<DeskCapture::Picture>& picture) {
            Result result =
                std::unexpected(picture                                       ? Kind::displaysChanging
                                : AXPermission::isGranted(context.ports.desk) ? Kind::captureFailed
                                                                              : Kind::needsPermission);
            if (picture && context.gate.isUndisturbed(began) && context.isDeskCurrent()) {
                context.normalFrames.remember(picture->windows);
                Layout layout = context.layoutOf(*picture, displays);
                if (reach == DeskCapture::Reach::visible) {
                    layout.otherWindows.clear();
                }
                context.notes.note(layout, picture->windows);
                context.onNoted();
                result = layout.windows.empty() ? Result(std::unexpected(Kind::nothingToSave))
                                                : Result(std::move(layout));
            }
            done(result);
            context.refreshStatus();
        });
}

} // namespace vantrel::CaptureNow
