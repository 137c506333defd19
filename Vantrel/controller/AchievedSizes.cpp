#include "Vantrel/controller/AchievedSizes.h"

#include "Vantrel/controller/PerApplication.h"

namespace vantrel::AchievedSizes {

namespace {

// A window that refused to move, or did not respond, tells us nothing about sizes.
bool tookTheMove(const RestoreReport::Outcome& outcome) {
    return outcome.kind != RestoreReport::Kind::failed || outcome.reason == RestoreEngine::driftedReason;
}

} // namespace

std::vector<AppSizeBehaviorStore::Observation> read(const std::vector<RestoreFollowUp::Moved>& moved,
                                                    const RestoreReport& report, Background& background) {
    std::vector<std::optional<Rect>> frames(moved.size());
    PerApplication::forEach(moved, background, [&](std::size_t i) {
        if (tookTheMove(report.items[moved[i].item].outcome)) {
            frames[i] = RestoreFollowUp::visibleFrame(moved[i]);
        }
    });
    std::vector<AppSizeBehaviorStore::Observation> observations;
    for (std::size_t i = 0; i < moved.size(); ++i) {
        if (frames[i]) {
            observations.push_back({moved[i].bundleID, moved[i].target.size, frames[i]->size});
        }
    }
    return observations;
}

std::vector<AppSizeBehaviorStore::Observation> of(const std::vector<SlotFilling::Filled>& filled) {
    std::vector<AppSizeBehaviorStore::Observation> observations;
    for (const auto& window : filled) {
        const WindowRecord& wanted = window.slot.record;
        if (!window.isPanel) {
            observations.push_back({wanted.bundleID, wanted.frame.size, window.frame.size});
        }
    }
    return observations;
}

} // namespace vantrel::AchievedSizes
