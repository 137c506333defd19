#include "Vantrel/controller/LaunchPlacementFlow.h"

#include "Vantrel/controller/ControllerText.h"
#include "VantrelCore/windows/AXPermission.h"
#include "VantrelCore/windows/LaunchPlacement.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

namespace vantrel {

namespace {

// Seconds between checks for a window that has not appeared; the last delay repeats.
constexpr double lookDelays[] = {0.3, 0.5, 1, 2};

// Seconds until a blocked check is tried again.
constexpr double holdDelay = 0.5;

std::string nameOf(const RunningApp& app) {
    return app.localizedName.value_or(*app.bundleID);
}

// True when a restore, undo or scene ended within `seconds` and found windows of the application: it has
// already decided about them. If it found none, this flow places them when they appear.
bool wasJustRestored(const PublishedState& state, const std::string& bundleID, Date now, double seconds) {
    const auto& last = state.lastRestore;
    return last && secondsBetween(last->date, now) <= seconds &&
           std::ranges::any_of(last->report.items, [&](const RestoreReport::Item& item) {
               return item.bundleID == bundleID && item.outcome.kind != RestoreReport::Kind::skipped;
           });
}

} // namespace

LaunchPlacementFlow::LaunchPlacementFlow(ControllerContext& context) : m_context(context) {
    // The context, and with it the publisher, is destroyed after this flow; no observer is called in between.
    m_context.publisher.add([this](Topics changed) {
        if (changed.containsAnyOf({Topic::desk, Topic::layouts})) {
            noteLayouts();
        }
    });
}

void LaunchPlacementFlow::noteLayouts() {
    const PublishedState& state = m_context.state();
    if (m_noted != std::pair(state.configID, state.layoutsVersion)) {
        m_noted = {state.configID, state.layoutsVersion};
        m_remembered.note(state.configID, state.currentLayouts);
    }
}

void LaunchPlacementFlow::handleAppLaunched(const RunningApp& app) {
    if (app.policy != ActivationPolicy::regular || !app.bundleID || app.bundleID == m_context.ownBundleID ||
        !isWanted(app)) {
        return;
    }
    const Key key{app.pid, *app.bundleID};
    m_launches[key] = {.app = app, .at = m_context.ports.clock.monotonicSeconds(), .looks = 0, .next = {}};
    lookAfter(key, firstLook);
}

void LaunchPlacementFlow::lookAfter(const Key& key, double seconds) {
    m_launches.at(key).next = m_context.ports.mainQueue.after(seconds, [this, key] { awaitTurn(key); });
}

void LaunchPlacementFlow::awaitTurn(const Key& key) {
    auto turn = m_context.moves.inTurn([this, key] { attemptPlacement(key); });
    if (turn) {
        m_launches.at(key).next = std::move(turn);
    }
}

bool LaunchPlacementFlow::isWanted(const RunningApp& app) {
    if (!m_context.settings.placeNewAppsEnabled() || !m_context.state().enabled ||
        !m_context.entitledToRun()) {
        return false;
    }
    if (isAwaitedBySettlement && isAwaitedBySettlement(*app.bundleID)) {
        m_context.log(fmt::format(
            "launch placement: {} is settling into a scene slot, deferring to settlement", nameOf(app)));
        return false;
    }
    return true;
}

bool LaunchPlacementFlow::isHeldUp() {
    return !m_context.isDeskCurrent() || !AXPermission::isGranted(m_context.ports.desk);
}

void LaunchPlacementFlow::attemptPlacement(const Key& key) {
    const auto found = m_launches.find(key);
    if (found == m_launches.end()) {
        return;
    }
    const Launch& launch = found->second;
    const double age = m_context.ports.clock.monotonicSeconds() - launch.at;
    const bool isOvertaken =
        wasJustRestored(m_context.state(), *launch.app.bundleID, m_context.ports.clock.now(), age);
    const bool isHeld = isHeldUp();
    const bool isTooLate = isHeld && age >= longestHold;
    if (isOvertaken || isTooLate || !isWanted(launch.app) || (!isHeld && !hasPlace(launch.app))) {
        m_launches.erase(found);
    } else if (isHeld) {
        lookAfter(key, holdDelay);
    } else {
        m_context.runMove(
            [task = task(launch.app), ports = m_context.ports](const MovePermit& permit) {
                return LaunchPlacementPass::run(task, ports.desk, permit, ports.clock);
            },
            [this, key](const std::optional<LaunchPlacementPass::Result>& result) {
                // A failed check saw no window; the next one may see one.
                finish(key, result.value_or(LaunchPlacementPass::Result()));
            });
    }
}

bool LaunchPlacementFlow::hasPlace(const RunningApp& app) {
    // Any size will do: it only chooses among several places.
    const auto known = task(app);
    return LaunchPlacement::target(*app.bundleID, {}, known.rules, known.layout, known.displays).has_value();
}

LaunchPlacementPass::Task LaunchPlacementFlow::task(const RunningApp& app) {
    const Layout* active = m_context.state().activeLayout();
    return {.app = app,
            .rules = m_context.store.rules(),
            .layout = active != nullptr ? std::optional(m_remembered.completed(active->withOtherWindows()))
                                        : std::nullopt,
            .displays = m_context.state().displays,
            .sizes = m_context.settings.restoreSizes() ? RestoreEngine::Sizes::restore
                                                       : RestoreEngine::Sizes::leave};
}

void LaunchPlacementFlow::finish(const Key& key, const LaunchPlacementPass::Result& result) {
    const auto found = m_launches.find(key);
    if (found == m_launches.end()) {
        return;
    }
    if (result.isAbandoned) {
        // The next check, once the desk has settled, decides again.
        lookAfter(key, holdDelay);
        return;
    }
    if (result.windows == 0) {
        lookAgainOrGiveUp(key);
        return;
    }
    const std::string name = nameOf(found->second.app);
    if (result.moved > 0) {
        m_context.log(fmt::format("launch placement: moved {} window(s) of {}", result.moved, name));
        m_context.announce(HUD::AppPlaced{name, m_context.state().layoutTitle});
        m_context.gate.afterPass(m_context.onDeskArranged);
    }
    if (result.failed > 0) {
        m_context.log(fmt::format("launch placement: {} window(s) of {} did not go to their place",
                                  result.failed, name));
    }
    m_launches.erase(found);
}

void LaunchPlacementFlow::lookAgainOrGiveUp(const Key& key) {
    Launch& launch = m_launches.at(key);
    const double delay = lookDelays[std::min(launch.looks++, std::size(lookDelays) - 1)];
    if (m_context.ports.clock.monotonicSeconds() - launch.at + delay > longestWait) {
        m_launches.erase(key);
    } else {
        lookAfter(key, delay);
    }
}

} // namespace vantrel
