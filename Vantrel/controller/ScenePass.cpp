#include "Vantrel/controller/ScenePass.h"

#include "VantrelCore/windows/VisibleWindows.h"

#include <algorithm>
#include <utility>

namespace vantrel::ScenePass {

namespace {

using Kind = RestoreReport::Kind;

// The windows that may fill a slot: ordinary windows for which the restore has no place, and panels and
// dialogs of applications with slots.
SlotFilling::Candidates candidates(const RestoredDesk& restored, const DeskSnapshot& snapshot) {
    SlotFilling::Candidates result;
    for (const std::size_t index : restored.matched.unmatchedCurrent) {
        result.ordinary.push_back(restored.live[index]);
    }
    result.panels = VisibleWindows::panels(snapshot, restored.scope.displays);
    return result;
}

// A slot that a saved window left open has that window's item; one that was never anything else gets its own.
std::map<std::int64_t, std::size_t> addItems(const SceneOnDesk& scene, const RestoredDesk& restored,
                                             RestoreReport& report) {
    std::map<std::size_t, std::size_t> itemOfSaved;
    for (std::size_t i = 0; i < report.items.size(); ++i) {
        if (const auto saved = report.items[i].saved) {
            itemOfSaved[*saved] = i;
        }
    }
    std::map<std::int64_t, std::size_t> itemOfSlot;
    for (const std::size_t saved : restored.matched.unmatchedSaved) {
        itemOfSlot[scene.indices[saved]] = itemOfSaved.at(saved);
    }
    for (const SceneSlot& ghost : scene.ghosts) {
        itemOfSlot[ghost.index] = report.items.size();
        report.items.push_back({ghost.record.appName,
                                ghost.record.bundleID,
                                ghost.record.title,
                                {Kind::skipped, RestoreEngine::goneReason}});
    }
    return itemOfSlot;
}

std::vector<std::string> runningBundleIDs(const DeskSnapshot& snapshot, const CaptureFilter& filter) {
    std::vector<std::string> bundleIDs;
    for (const RunningApp& app : AXApps::regularApps(snapshot.apps, filter.excludedBundleID)) {
        if (!filter.ignoredBundleIDs.contains(*app.bundleID) &&
            std::ranges::find(bundleIDs, *app.bundleID) == bundleIDs.end()) {
            bundleIDs.push_back(*app.bundleID);
        }
    }
    return bundleIDs;
}

} // namespace

Result run(const SceneOnDesk& scene, const RestoredDesk& restored, RestoreReport& report, Desk& desk,
           Clock& clock) {
    const double start = clock.monotonicSeconds();
    const auto slots = scene.openSlots(restored.matched.unmatchedSaved);
    CaptureFilter filter = restored.scope.filter;
    filter.onlyBundleIDs.emplace();
    for (const SceneSlot& slot : slots) {
        filter.onlyBundleIDs->insert(slot.record.bundleID);
    }
    const DeskSnapshot snapshot = desk.capture(filter);
    Result result;
    result.runningBundleIDs = runningBundleIDs(snapshot, filter);
    result.itemOfSlot = addItems(scene, restored, report);
    result.slots = SlotFilling::fill(slots, candidates(restored, snapshot),
                                     {result.runningBundleIDs.begin(), result.runningBundleIDs.end()},
                                     restored.scope.displays, restored.sizes, desk, restored.permit, clock);
    const auto itemOf = [&](const SceneSlot& slot) -> RestoreReport::Item& {
        return report.items[result.itemOfSlot.at(slot.index)];
    };
    for (const auto& filled : result.slots.filled) {
        itemOf(filled.slot).outcome = {Kind::restored, ""};
        itemOf(filled.slot).move = RestoreReport::Move{.window = filled.window,
                                                       .by = Pairing::order,
                                                       .from = filled.from,
                                                       .target = filled.slot.record.frame,
                                                       .achieved = filled.frame};
    }
    for (const SceneSlot& slot : result.slots.refused) {
        itemOf(slot).outcome = {Kind::failed, RestoreEngine::driftedReason};
    }
    report.elapsed += clock.monotonicSeconds() - start;
    return result;
}

} // namespace vantrel::ScenePass
