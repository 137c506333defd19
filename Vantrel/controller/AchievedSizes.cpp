#include "Vantrel/controller/AchievedSizes.h"

namespace vantrel::AchievedSizes {

namespace {

// A window that refused to move, or did not respond, tells us nothing about sizes.
bool tookTheMove(const RestoreReport::Outcome& outcome) {
    return outcome.kind != RestoreReport::Kind::failed || outcome.reason == RestoreEngine::driftedReason;
}

} // namespace

std::vector<AppSizeBehaviorStore::Observation> of(const RestoreReport& report) {
    std::vector<AppSizeBehaviorStore::Observation> observations;
    for (const RestoreReport::Item& item : report.items) {
        if (item.move && item.move->achieved && tookTheMove(item.outcome)) {
            observations.push_back({item.bundleID, item.move->target.size, item.move->achieved->size});
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
