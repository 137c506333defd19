#include "Vantrel/controller/LearningFlow.h"

#include "VantrelCore/displays/DisplayTopology.h"

#include <fmt/format.h>
#include <utility>

namespace vantrel {

bool LearningFlow::mayCapture() {
    return m_context.state().enabled && !m_context.snapshotsSuspended && m_context.entitledToRun() &&
           !m_context.axWorkInFlight() && !m_context.restoreInFlight &&
           m_context.ports.accessibility.isTrusted();
}

void LearningFlow::snapshotIfChanged() {
    if (!mayCapture()) {
        return;
    }
    const auto displays = m_context.currentDisplays();
    const std::string configID = displays.empty() ? "" : DisplayTopology::configID(displays);
    if (configID != m_context.state().configID) {
        // Windows and displays do not belong together yet; no event may have told of the change.
        if (onUnannouncedChange) {
            onUnannouncedChange();
        }
        return;
    }
    if (displays.empty()) {
        return;
    }
    capture(WorkPriority::utility, displays, [this, displays, before = epochs()](const Picture& picture) {
        if (before == epochs() && !m_context.snapshotsSuspended && m_context.state().enabled &&
            m_context.isDeskCurrent()) {
            finishSnapshotTick(picture, displays);
        }
        m_context.refreshStatus();
        m_context.endPass();
    });
}

void LearningFlow::capture(WorkPriority priority, const std::vector<DisplayInfo>& displays,
                           std::function<void(const Picture&)> done) {
    m_context.beginPass();
    m_context.inBackground(
        priority,
        [scope = m_context.captureScope(displays), ports = m_context.ports] {
            return DeskCapture::picture(ports.accessibility, ports.clock, scope);
        },
        [done = std::move(done)](const Picture& picture) { done(picture); });
}

std::optional<Layout> LearningFlow::storedLike(const Layout& layout) {
    return m_context.store.layout(layout.configID, layout.layoutName);
}

void LearningFlow::finishSnapshotTick(const Picture& picture, const std::vector<DisplayInfo>& displays) {
    const Layout layout = m_context.layoutOf(picture, displays);
    m_lastTickSnapshot = PreChangeSnapshot::Candidate{layout, picture.takenAt};
    m_lastTickEpochs = epochs();
    if (layout.windows.empty()) {
        // A window manager that restarts, or everything minimised: no reason to forget the desk.
        return;
    }
    const auto stored = storedLike(layout);
    if (stored && stored->isPinned()) {
        if (onPinnedDesk) {
            onPinnedDesk(layout);
        }
        return;
    }
    const auto learned = m_stabilityGate.observe(layout, stored);
    if (!learned) {
        return;
    }
    if (!m_context.store.save(*learned)) {
        m_context.log("learning failed: the layout could not be written");
        return;
    }
    m_context.log(fmt::format("learned layout: {} windows for {}", learned->windows.size(), learned->name));
    m_context.showStoredLayouts();
}

void LearningFlow::adoptPreChangeSnapshotIfNeeded() {
    const auto candidate = std::exchange(m_lastTickSnapshot, std::nullopt);
    const bool isOutdated = m_lastTickEpochs.mutation != m_context.mutationEpoch;
    if (isOutdated || !m_context.state().enabled || !m_context.entitledToRun() ||
        !PreChangeSnapshot::shouldAdopt(candidate, m_context.ports.clock.now(), m_context.state().configID,
                                        maxPreChangeAge)) {
        return;
    }
    const Layout& layout = candidate->layout;
    const auto stored = storedLike(layout);
    if (stored && stored->isPinned()) {
        return;
    }
    if (!m_context.store.save(layout)) {
        m_context.log("pre-change snapshot lost: the layout could not be written");
        return;
    }
    m_context.log(fmt::format("pre-change snapshot adopted: {} windows for {}", layout.windows.size(),
                              layout.configID));
    m_context.showStoredLayouts();
}

std::optional<SaveOutcome> LearningFlow::hindranceToSaving() {
    using Kind = SaveOutcome::Kind;
    const auto hindrance = [](Kind kind) { return SaveOutcome{.kind = kind}; };
    if (!m_context.ports.accessibility.isTrusted()) {
        return hindrance(Kind::needsPermission);
    }
    if (!m_context.entitledToRun()) {
        return hindrance(Kind::notEntitled);
    }
    if (m_context.restoreInFlight) {
        return hindrance(Kind::restoreInFlight);
    }
    if (m_context.axWorkInFlight()) {
        return hindrance(Kind::captureInFlight);
    }
    if (m_context.currentDisplays().empty()) {
        return hindrance(Kind::noDisplays);
    }
    if (!m_context.isDeskCurrent()) {
        return hindrance(Kind::displaysChanging);
    }
    return std::nullopt;
}

void LearningFlow::saveLayoutNow(std::function<void(const SaveOutcome&)> done) {
    const auto report = [this, done = std::move(done)](const SaveOutcome& outcome) {
        m_context.log("save layout: " + outcome.text());
        if (done) {
            done(outcome);
        }
    };
    if (const auto hindrance = hindranceToSaving()) {
        report(*hindrance);
        return;
    }
    const auto displays = m_context.currentDisplays();
    capture(WorkPriority::userInitiated, displays,
            [this, displays, report, before = m_context.resumeEpoch](const Picture& picture) {
                const bool isSameDesk = before == m_context.resumeEpoch && m_context.isDeskCurrent();
                report(isSameDesk ? finishSave(picture, displays)
                                  : SaveOutcome{.kind = SaveOutcome::Kind::displaysChanging});
                m_context.refreshStatus();
                m_context.endPass();
            });
}

SaveOutcome LearningFlow::finishSave(const Picture& picture, const std::vector<DisplayInfo>& displays) {
    Layout layout = m_context.layoutOf(picture, displays);
    if (layout.windows.empty()) {
        return {.kind = SaveOutcome::Kind::nothingToSave};
    }
    if (const auto stored = storedLike(layout)) {
        layout.pinned = stored->pinned;
    }
    if (!m_context.store.save(layout)) {
        return {.kind = SaveOutcome::Kind::writeFailed};
    }
    m_context.showStoredLayouts();
    m_context.announce(HUD::Saved{static_cast<std::int64_t>(layout.windows.size())});
    return {.kind = SaveOutcome::Kind::saved, .windows = layout.windows.size()};
}

} // namespace vantrel
