#include "Vantrel/controller/RestorePass.h"

#include "Vantrel/controller/AchievedSizes.h"
#include "Vantrel/controller/LiveWindows.h"
#include "Vantrel/controller/PerApplication.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantrel::RestorePass {

Result run(const Task& task, Accessibility& accessibility, Clock& clock, Background& background) {
    if (task.trigger == RestoreTrigger::automatic || task.awaitsQuiet) {
        // After the displays settle, the window manager moves windows itself in response to the change.
        accessibility.awaitQuiet();
    }
    if (task.permit->isRevoked()) {
        return {.report = {}, .landed = {}, .sizes = {}, .isAbandoned = true};
    }
    auto [live, matched] =
        task.known ? LiveWindows::known(task.layout, *task.known, task.scope, accessibility, background)
                   : LiveWindows::found(task.layout, task.scope, accessibility, clock);
    Result result;
    result.changedNothing = RestoreEngine::isInPlace(task.layout, live, matched, task.options);
    if (!task.known) {
        result.before = Before{live, clock.now()};
    }
    const auto current = underPermit(std::move(live), task.permit);
    result.report = RestoreEngine::restore(task.layout, current, matched, task.options, clock, background);
    if (task.scene) {
        result.scene = ScenePass::run(*task.scene,
                                      {.live = current,
                                       .matched = matched,
                                       .scope = task.scope,
                                       .sizes = task.options.sizes,
                                       .permit = task.permit},
                                      result.report, accessibility, clock, background);
        result.changedNothing = result.changedNothing && result.scene->slots.filled.empty();
    }
    auto moved = RestoreFollowUp::moved(task.layout, current, matched, result.report);
    if (task.options.sizes == RestoreEngine::Sizes::restore) {
        result.sizes = AchievedSizes::read(moved, result.report, background);
        if (result.scene) {
            std::ranges::copy(AchievedSizes::of(result.scene->slots.filled),
                              std::back_inserter(result.sizes));
        }
    }
    result.landed = RestoreFollowUp::landed(std::move(moved), result.report);
    if (task.trigger == RestoreTrigger::automatic) {
        // Before the end is announced: user moves count from then on.
        PerApplication::forEach(result.landed, background,
                                [&](std::size_t index) { RestoreFollowUp::watch(result.landed[index]); });
    }
    result.isAbandoned = task.permit->isRevoked();
    result.hasMovedWindows = task.permit->isUsed() && !result.changedNothing;
    return result;
}

} // namespace vantrel::RestorePass
