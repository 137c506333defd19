#include "Vantrel/controller/LearningFlow.h"

#include "Vantrel/controller/CaptureNow.h"
#include "VantrelCore/displays/DisplayTopology.h"
#include "VantrelCore/stores/UserEdit.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/windows/AXPermission.h"

#include <fmt/format.h>
#include <utility>

namespace vantrel {

bool LearningFlow::mayCapture() {
    return m_context.state().enabled && m_context.gate.mayCapture() && m_context.entitledToRun() &&
           AXPermission::isGranted(m_context.ports.desk);
}

void LearningFlow::snapshotIfChanged() {
    if (!mayCapture()) {
        return;
    }
    const auto displays = m_context.currentDisplays();
    const std::string configID = displays.empty() ? "" : DisplayTopology::configID(displays);
    if (configID != m_context.state().configID) {
        // Windows and displays do not match yet; the change may not have been announced by an event.
        if (onUnannouncedChange) {
            onUnannouncedChange();
        }
        return;
    }
    if (displays.empty()) {
        return;
    }
    m_context.runPass(
        WorkPriority::utility,
        [scope = m_context.captureScope(displays), ports = m_context.ports] {
            return DeskCapture::picture(ports.desk, ports.clock, scope);
        },
        [this, displays, began = m_context.gate.now()](const std::optional<Picture>& picture) {
            const DeskGate& gate = m_context.gate;
            if (picture && gate.isUndisturbed(began) && gate.isUnmoved(began) && gate.isUnedited(began) &&
                !gate.isLearningSuspended() && m_context.state().enabled && m_context.entitledToRun() &&
                m_context.isDeskCurrent()) {
                finishSnapshotTick(*picture, displays);
            }
            m_context.refreshStatus();
        });
}

std::optional<Layout> LearningFlow::storedLike(const Layout& layout) {
    return m_context.store.layout(layout.configID, layout.layoutName);
}

void LearningFlow::keepForAdoption(const Layout& layout, std::vector<LiveWindow> windows) {
    m_lastTickSnapshot = PreChangeSnapshot::Candidate{layout, layout.savedAt};
    m_lastTickWindows = std::move(windows);
    m_lastTick = m_context.gate.now();
}

void LearningFlow::finishSnapshotTick(const Picture& picture, const std::vector<DisplayInfo>& displays) {
    m_context.normalFrames.remember(picture.windows);
    const Layout actual = m_context.layoutOf(picture, displays);
    const Picture wanted{m_context.strays.corrected(actual.configID, picture.windows), picture.takenAt};
    const Layout layout = m_context.layoutOf(wanted, displays);
    keepForAdoption(layout, wanted.windows);
    if (layout.windows.empty()) {
        // The window manager may be restarting, or everything is minimized: no reason to forget the desk.
        m_stabilityGate.reset();
        return;
    }
    if (onFreshDesk) {
        onFreshDesk(actual);
    }
    const auto stored = storedLike(layout);
    const bool isLearned = stored && layout.hasSamePlaces(*stored);
    if (isLearned) {
        m_context.notes.note(*stored, wanted.windows);
        m_context.onNoted();
        if (onLearnedDesk) {
            onLearnedDesk(*stored);
        }
    }
    if (stored && stored->isPinned()) {
        if (onPinnedDesk) {
            onPinnedDesk(actual.withOtherWindows());
        }
        return;
    }
    const auto learned = m_stabilityGate.observe(layout, stored);
    if (!learned) {
        if (isLearned) {
            // Nothing remains to be saved.
            m_context.showLearningFailed(false);
        }
        return;
    }
    saveLater(*learned, wanted.windows,
              fmt::format("learned layout: {} windows for {}",
                          learned->windows.size() + learned->otherWindows.size(), learned->name),
              "learning failed: the layout could not be written");
}

void LearningFlow::adoptPreChangeSnapshotIfNeeded() {
    const auto candidate = std::exchange(m_lastTickSnapshot, std::nullopt);
    const bool isOutdated = !m_context.gate.isUnmoved(m_lastTick) || !m_context.gate.isUnedited(m_lastTick);
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
    saveLater(layout, m_lastTickWindows,
              fmt::format("pre-change snapshot adopted: {} windows for {}",
                          layout.windows.size() + layout.otherWindows.size(), layout.configID),
              "pre-change snapshot lost: the layout could not be written");
}

void LearningFlow::saveLater(const Layout& layout, const std::vector<LiveWindow>& windows,
                             std::string success, std::string failure) {
    // At once: whether the file could be written or not, these are the windows.
    m_context.notes.note(layout, windows);
    m_context.onNoted();
    m_context.store.save(layout, Saving::later([this, success = std::move(success),
                                                failure = std::move(failure)](bool isSaved) {
                             m_context.log(isSaved ? success : failure);
                             publishOutcome(isSaved);
                             m_context.refreshStatus();
                         }));
}

void LearningFlow::publishOutcome(bool isSaved) {
    m_context.showStoredLayouts();
    m_context.showLearningFailed(!isSaved);
}

void LearningFlow::saveLayoutNow(std::function<void(const SaveOutcome&)> done) {
    CaptureNow::perform(m_context, DeskCapture::Reach::every,
                        [this, done = std::move(done)](const CaptureNow::Result& captured) {
                            const SaveOutcome outcome =
                                captured ? finishSave(*captured) : SaveOutcome{.kind = captured.error()};
                            m_context.log("save layout: " + inEnglish([&] { return outcome.text(); }));
                            if (outcome.kind != SaveOutcome::Kind::saved) {
                                m_context.announce(HUD::Refused{outcome.text()});
                            }
                            if (done) {
                                done(outcome);
                            }
                        });
}

SaveOutcome LearningFlow::finishSave(Layout layout) {
    m_context.strays.forget(layout.configID);
    // Its windows have been noted already.
    keepForAdoption(layout, {});
    if (const auto stored = storedLike(layout)) {
        layout.pinned = stored->pinned;
    }
    const UserEdit edit;
    const bool isSaved = m_context.store.save(layout);
    publishOutcome(isSaved);
    if (!isSaved) {
        return {.kind = SaveOutcome::Kind::writeFailed};
    }
    const std::size_t count = layout.windows.size() + layout.otherWindows.size();
    m_context.announce(HUD::Saved{static_cast<std::int64_t>(count)});
    return {.kind = SaveOutcome::Kind::saved, .windows = count};
}

} // namespace vantrel
