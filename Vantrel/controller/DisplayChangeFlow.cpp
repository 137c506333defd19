#include "Vantrel/controller/DisplayChangeFlow.h"

#include "Vantrel/controller/ControllerText.h"
#include "VantrelCore/displays/DisplayTopology.h"

#include <fmt/format.h>
#include <utility>

namespace vantrel {

DisplayChangeFlow::DisplayChangeFlow(ControllerContext& context, LearningFlow& learning,
                                     AutomaticRestoreFlow& automaticRestore)
    : m_context(context), m_learning(learning), m_automaticRestore(automaticRestore) {
    m_learning.onUnannouncedChange = [this] {
        if (m_watcher) {
            m_watcher->handleReconfigurationEvent();
        }
    };
}

void DisplayChangeFlow::start() {
    installWatcher();
    const auto displays = m_context.currentDisplays();
    const std::string configID = DisplayTopology::configID(displays);
    onArrival(configID, displays);
    m_context.showDesk(configID, displays);
}

void DisplayChangeFlow::installWatcher() {
    if (m_watcher) {
        m_watcher->stop();
    }
    m_installedSettleDelay = m_context.settings.settleDelay();
    m_watcher = std::make_unique<DisplayWatcher>(m_installedSettleDelay, m_context.ports.displays,
                                                 m_context.ports.mainQueue);
    m_watcher->onChangeBegan = [this, epoch = ++m_watcherEpoch] {
        if (epoch == m_watcherEpoch) {
            changeBegan();
        }
    };
    m_watcher->onSettledChange = [this, epoch = m_watcherEpoch](const std::string& configID,
                                                                const std::vector<DisplayInfo>& displays) {
        if (epoch == m_watcherEpoch) {
            handleSettledChange(configID, displays);
        }
    };
    m_watcher->start();
}

void DisplayChangeFlow::applySettleDelay() {
    const double delay = m_context.settings.settleDelay();
    if (!m_watcher || delay == m_installedSettleDelay) {
        return;
    }
    m_context.log(fmt::format("settleDelay changed to {:#}: reinstalling watcher", delay));
    installWatcher();
    if (m_context.gate.areDisplaysChanging()) {
        // The replaced watcher would have reported the end of this change.
        m_watcher->handleReconfigurationEvent();
    }
}

void DisplayChangeFlow::changeBegan() {
    m_context.gate.displaysBeganChanging();
    m_automaticRestore.displaysBeganChanging();
    m_context.moves.abandon();
    m_learning.adoptPreChangeSnapshotIfNeeded();
}

void DisplayChangeFlow::handleSettledChange(const std::string& configID,
                                            const std::vector<DisplayInfo>& displays) {
    m_context.gate.displaysSettled();
    const auto reconnected = ControllerText::reconnected(m_context.state().displays, displays);
    onArrival(configID, displays);
    m_context.showDesk(configID, displays);
    m_context.log(ControllerText::displaySettled(configID, displays));
    m_context.endRestoredPhase();
    onSettled();
    m_automaticRestore.displaysSettled(reconnected);
    m_context.gate.resumeLearningAfter(resumeDelay);
}

} // namespace vantrel
