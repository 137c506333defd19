#include "Vantrel/controller/ScenePass.h"

#include "VantrelCore/windows/AXApps.h"
#include "VantrelCore/windows/WindowSnapshotter.h"

#include <algorithm>
#include <utility>

namespace vantrel::ScenePass {

namespace {

using Kind = RestoreReport::Kind;

// The windows that may fill a slot: ordinary windows for which the restore has no place, and panels and
// dialogs of applications with slots.
SlotFilling::Candidates candidates(const std::vector<SceneSlot>& slots, const Desk& desk,
                                   DeskReading& reading, const std::vector<RunningApp>& running) {
    SlotFilling::Candidates result;
    for (const std::size_t index : desk.matched.unmatchedCurrent) {
        result.ordinary.push_back(desk.live[index]);
    }
    std::vector<WindowSnapshotter::AppWindows> apps;
    for (const RunningApp& app : running) {
        const bool isWanted = std::ranges::any_of(
            slots, [&](const SceneSlot& slot) { return slot.record.bundleID == *app.bundleID; });
        if (isWanted) {
            apps.push_back({app, reading.windows(app)});
        }
    }
    const auto entries = WindowSnapshotter::zOrderEntries(reading.onScreenWindows());
    result.panels =
        underPermit(WindowSnapshotter::capturedPanels(apps, entries, desk.scope.displays), desk.permit);
    return result;
}

// The report ends with the layout's unmatched windows, in order.
std::map<std::int64_t, std::size_t> addItems(const SceneOnDesk& scene, const Desk& desk,
                                             RestoreReport& report) {
    std::map<std::int64_t, std::size_t> itemOfSlot;
    const auto& unmatched = desk.matched.unmatchedSaved;
    const std::size_t first = report.items.size() - unmatched.size();
    for (std::size_t i = 0; i < unmatched.size(); ++i) {
        itemOfSlot[scene.indices[unmatched[i]]] = first + i;
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

} // namespace

Result run(const SceneOnDesk& scene, const Desk& desk, RestoreReport& report, Accessibility& accessibility,
           Clock& clock, Background& background) {
    const double start = clock.monotonicSeconds();
    const auto reading = accessibility.beginReading();
    std::vector<RunningApp> running =
        AXApps::regularApps(reading->runningApps(), desk.scope.excludedBundleID);
    std::erase_if(running,
                  [&](const RunningApp& app) { return desk.scope.ignoredBundleIDs.contains(*app.bundleID); });
    Result result;
    for (const RunningApp& app : running) {
        if (std::ranges::find(result.runningBundleIDs, *app.bundleID) == result.runningBundleIDs.end()) {
            result.runningBundleIDs.push_back(*app.bundleID);
        }
    }
    result.itemOfSlot = addItems(scene, desk, report);
    const auto slots = scene.openSlots(desk.matched.unmatchedSaved);
    result.slots = SlotFilling::fill(slots, candidates(slots, desk, *reading, running),
                                     {result.runningBundleIDs.begin(), result.runningBundleIDs.end()},
                                     desk.scope.displays, desk.sizes, clock, background);
    const auto outcomeOf = [&](const SceneSlot& slot) -> RestoreReport::Outcome& {
        return report.items[result.itemOfSlot.at(slot.index)].outcome;
    };
    for (const auto& filled : result.slots.filled) {
        outcomeOf(filled.slot) = {Kind::restored, ""};
    }
    for (const SceneSlot& slot : result.slots.refused) {
        outcomeOf(slot) = {Kind::failed, RestoreEngine::driftedReason};
    }
    report.elapsed += clock.monotonicSeconds() - start;
    return result;
}

} // namespace vantrel::ScenePass
