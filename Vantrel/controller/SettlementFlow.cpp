#include "Vantrel/controller/SettlementFlow.h"

#include "Vantrel/controller/AchievedSizes.h"
#include "VantrelCore/scenes/SceneSettlementCaption.h"
#include "VantrelCore/windows/MissingAppsPolicy.h"
#include "VantrelCore/windows/VisibleWindows.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace vantrel {

// The result of one check.
struct SettlementFlow::Seen {
    SlotFilling::Result slots;
    // Applications with a panel or dialog that fills no slot.
    std::set<std::string> withPanels;
};

namespace {

// Values only, so that a worker can own it.
struct Look {
    std::vector<SceneSlot> slots;
    // The applications whose panels may fill a slot.
    std::set<std::string> panelsOf;
    std::vector<SettlementFlow::Seated> seated;
    DeskCapture::Scope scope;
    RestoreEngine::Sizes sizes = RestoreEngine::Sizes::restore;
};

// Leaves out windows that are already in their places.
void eraseSeated(std::vector<LiveWindow>& windows, const Look& look) {
    std::erase_if(windows, [&](const LiveWindow& window) {
        return std::ranges::find(look.seated, window.id, &SettlementFlow::Seated::window) !=
               look.seated.end();
    });
}

SlotFilling::Candidates candidates(const Look& look, Desk& desk) {
    const DeskSnapshot snapshot = desk.capture(look.scope.filter);
    SlotFilling::Candidates result{.ordinary = VisibleWindows::ordinary(snapshot, look.scope.displays),
                                   .panels = VisibleWindows::panels(snapshot, look.scope.displays)};
    eraseSeated(result.ordinary, look);
    eraseSeated(result.panels, look);
    return result;
}

} // namespace

void SettlementFlow::begin(Opening opening) {
    const bool isSameScene = m_pending && m_pending->settlement.sceneID == opening.sceneID;
    if (m_pending && !isSameScene) {
        cancel("another scene was applied");
    }
    if (!isSameScene && opening.launched.empty()) {
        return;
    }
    const Date now = m_context.ports.clock.now();
    const Date deadline = now + std::chrono::seconds{static_cast<int>(deadlineSpan)};
    if (isSameScene) {
        m_pending->settlement.refresh(opening.launched, deadline);
    } else {
        m_pending = Pending();
        m_pending->settlement =
            SceneSettlement::make(opening.sceneID, opening.sceneName, ++m_token, opening.launched, deadline);
    }
    m_pending->openSlots = std::move(opening.slots);
    m_pending->itemOfSlot = std::move(opening.itemOfSlot);
    // Slots filled earlier are now either kept in the scene or open again.
    m_pending->filled.clear();
    m_pending->panelPolls.clear();
    m_pending->seated = std::move(opening.seated);
    m_pending->placed = opening.placed;
    m_pending->due = m_context.ports.clock.monotonicSeconds() + deadlineSpan;
    m_pending->restored = m_context.gate.now();
    schedulePoll();
}

bool SettlementFlow::isAwaiting(const std::string& bundleID) const {
    return m_pending && m_pending->settlement.awaiting.contains(bundleID);
}

bool SettlementFlow::isOvertaken() const {
    return !m_context.gate.isSameDesk(m_pending->restored) || !m_context.gate.isUnmoved(m_pending->restored);
}

bool SettlementFlow::isExpired() {
    return m_pending->settlement.isExpired(m_context.ports.clock.now()) ||
           m_context.ports.clock.monotonicSeconds() >= m_pending->due;
}

void SettlementFlow::schedulePoll() {
    m_turn.reset();
    m_poll = m_context.ports.mainQueue.after(pollInterval, [this] { awaitTurn(); });
}

void SettlementFlow::awaitTurn() {
    m_turn = m_context.moves.inTurn([this] { poll(); });
}

void SettlementFlow::poll() {
    if (isOvertaken()) {
        cancel("the desk has changed");
    } else if (m_context.hindranceToMoving()) {
        cancel("windows may no longer be moved");
    } else {
        look();
    }
}

std::vector<SceneSlot> SettlementFlow::expectedSlots() const {
    const SceneSettlement& settlement = m_pending->settlement;
    std::vector<SceneSlot> slots;
    std::ranges::copy_if(m_pending->openSlots, std::back_inserter(slots), [&](const SceneSlot& slot) {
        const std::string& bundleID = slot.record.bundleID;
        return settlement.awaiting.contains(bundleID) ||
               std::ranges::find(settlement.placed, bundleID) != settlement.placed.end();
    });
    return slots;
}

void SettlementFlow::look() {
    const auto sizes =
        m_context.settings.restoreSizes() ? RestoreEngine::Sizes::restore : RestoreEngine::Sizes::leave;
    m_context.runMove(
        [look = Look{.slots = expectedSlots(),
                     .panelsOf = bundleIDsWithEligiblePanels(),
                     .seated = m_pending->seated,
                     .scope = m_context.captureScope(m_context.state().displays),
                     .sizes = sizes},
         ports = m_context.ports](const MovePermit& permit) {
            auto found = candidates(look, ports.desk);
            Seen seen;
            for (const LiveWindow& panel : found.panels) {
                seen.withPanels.insert(panel.record.bundleID);
            }
            std::erase_if(found.panels, [&](const LiveWindow& panel) {
                return !look.panelsOf.contains(panel.record.bundleID);
            });
            // Applications without a window yet are still starting, not missing.
            seen.slots = SlotFilling::fill(look.slots, found, {}, look.scope.displays, look.sizes, ports.desk,
                                           permit, ports.clock);
            return seen;
        },
        [this, token = m_pending->settlement.token](const std::optional<Seen>& seen) {
            if (m_pending && m_pending->settlement.token == token) {
                // A failed check saw nothing; the next one may.
                settle(seen.value_or(Seen()));
            }
        });
}

std::vector<std::size_t> SettlementFlow::noteFilled(const SlotFilling::Result& result) {
    std::vector<std::size_t> items;
    for (const auto& filled : result.filled) {
        const std::int64_t index = filled.slot.index;
        // An ordinary window replaces a panel in the slot.
        if (std::erase_if(m_pending->filled,
                          [&](const auto& former) { return former.slot.index == index; }) == 0) {
            items.push_back(m_pending->itemOfSlot.at(index));
        }
        m_pending->filled.push_back(filled);
        m_pending->seated.push_back({filled.slot.record.bundleID, filled.window});
        if (!filled.isPanel) {
            std::erase_if(m_pending->openSlots, [&](const SceneSlot& slot) { return slot.index == index; });
        }
    }
    return items;
}

void SettlementFlow::notePanels(const Seen& seen) {
    for (const std::string& bundleID : seen.withPanels) {
        const bool hasFilled = std::ranges::any_of(
            seen.slots.filled, [&](const auto& filled) { return filled.slot.record.bundleID == bundleID; });
        int& polls = m_pending->panelPolls[bundleID];
        polls = hasFilled ? 0 : polls + 1;
    }
}

// A slot filled by a panel stays open, but only for ordinary windows.
std::set<std::string> SettlementFlow::bundleIDsWithEligiblePanels() const {
    std::set<std::string> bundleIDs;
    for (const auto& [bundleID, polls] : m_pending->panelPolls) {
        if (polls >= patienceWithPanels) {
            bundleIDs.insert(bundleID);
        }
    }
    for (const auto& filled : m_pending->filled) {
        if (filled.isPanel) {
            bundleIDs.erase(filled.slot.record.bundleID);
        }
    }
    return bundleIDs;
}

void SettlementFlow::settle(const Seen& seen) {
    const SlotFilling::Result& result = seen.slots;
    if (isOvertaken()) {
        cancel("the desk has changed");
        return;
    }
    m_history.addSettled(noteFilled(result), m_context.settings.restoreSizes()
                                                 ? AchievedSizes::of(result.filled)
                                                 : std::vector<AppSizeBehaviorStore::Observation>());
    notePanels(seen);
    markPlaced(result);
    if (m_pending->settlement.isComplete() || isExpired()) {
        finish();
    } else {
        schedulePoll();
    }
}

void SettlementFlow::markPlaced(const SlotFilling::Result& result) {
    const auto isOf = [](const std::string& bundleID) {
        return [&bundleID](const SceneSlot& slot) { return slot.record.bundleID == bundleID; };
    };
    const auto isFull = [&](const std::string& bundleID) {
        return std::ranges::none_of(m_pending->openSlots, isOf(bundleID));
    };
    const auto isRefused = [&](const std::string& bundleID) {
        return std::ranges::any_of(result.refused, isOf(bundleID));
    };
    const auto pending = m_pending->settlement.pendingBundleIDs();
    const auto lacking = MissingAppsPolicy::bundlesLackingWindows(
        pending, m_context.ownBundleID.value_or(""), [&](const std::string& bundleID) {
            // A window that refused its slot has appeared nevertheless.
            return isFull(bundleID) || isRefused(bundleID) ||
                   std::ranges::find(m_pending->seated, bundleID, &Seated::bundleID) !=
                       m_pending->seated.end();
        });
    for (const std::string& bundleID : pending) {
        if (std::ranges::find(lacking, bundleID) != lacking.end()) {
            continue;
        }
        int& quietPolls = m_pending->quietPolls[bundleID];
        quietPolls = std::ranges::any_of(result.filled, isOf(bundleID), &SlotFilling::Filled::slot)
                         ? 0
                         : quietPolls + 1;
        if (isFull(bundleID) || quietPolls >= patience || isExpired()) {
            const std::string name = m_pending->settlement.awaiting.at(bundleID);
            m_pending->settlement.markPlaced(bundleID);
            m_context.log(
                fmt::format("scene settlement: {} placed for {}", name, m_pending->settlement.sceneName));
        }
    }
    // Stop moving a window that refuses its slot while others are still awaited.
    std::erase_if(m_pending->openSlots, [&](const SceneSlot& slot) {
        return isRefused(slot.record.bundleID) && !isAwaiting(slot.record.bundleID);
    });
}

// Windows now in their slots become part of the scene.
void SettlementFlow::keepWhatWasFilled() {
    m_poll.reset();
    m_turn.reset();
    m_scenes.solidify(m_pending->settlement.sceneID, m_pending->filled, m_pending->placed);
}

void SettlementFlow::finish() {
    const SettlementSummary summary = m_pending->settlement.summary();
    m_context.log(
        fmt::format("scene settlement: {} for {}",
                    SceneSettlementCaption::detail(summary.opened, summary.placed, summary.stragglers),
                    m_pending->settlement.sceneName));
    end(summary);
    m_context.gate.afterPass(m_context.onDeskArranged);
}

void SettlementFlow::cancel(const char* why) {
    m_context.log(
        fmt::format("scene settlement: cancelled for {}: {}", m_pending->settlement.sceneName, why));
    end(m_pending->settlement.summary());
}

void SettlementFlow::end(const SettlementSummary& summary) {
    m_context.announce(HUD::SceneSettled{m_pending->settlement.sceneName, summary.opened, summary.placed,
                                         summary.stragglers});
    keepWhatWasFilled();
    m_pending.reset();
}

} // namespace vantrel
