#include "Vantrel/controller/RestorePreviewFlow.h"

#include "VantrelCore/scenes/SceneOnDesk.h"
#include "VantrelCore/windows/AXPermission.h"
#include "VantrelCore/windows/VisibleWindows.h"

#include <algorithm>
#include <utility>

namespace vantrel {

void RestorePreviewFlow::preview(const Done& done) {
    if (const auto layout = m_context.layoutToRestore()) {
        capture({.layout = *layout}, done);
    } else {
        done(std::unexpected(
            RestoreOutcome{.kind = RestoreOutcome::Kind::nothingStored, .report = {}}.text()));
    }
}

void RestorePreviewFlow::previewLayout(const Layout& layout, const Done& done) {
    capture({.layout = m_context.fittedToDesk(layout)}, done);
}

void RestorePreviewFlow::previewScene(const Scene& scene, const Done& done) {
    const PublishedState& state = m_context.state();
    SceneOnDesk onDesk = SceneOnDesk::make(scene, state.configID, state.displays, m_context.store.rules());
    Question question{.layout = std::move(onDesk.layout),
                      .reach = DeskCapture::Reach::visible,
                      .opensMissingApps = scene.effectiveOpensMissingApps()};
    for (SceneSlot& ghost : onDesk.ghosts) {
        question.slots.push_back(std::move(ghost.record));
    }
    capture(std::move(question), done);
}

// This only reads, so it needs no pass: the desk may be learned or restored at the same time.
void RestorePreviewFlow::capture(Question question, Done done) {
    using Kind = SaveOutcome::Kind;
    const auto refuse = [&](Kind kind) { done(std::unexpected(SaveOutcome{.kind = kind}.text())); };
    if (!AXPermission::isGranted(m_context.ports.desk)) {
        refuse(Kind::needsPermission);
    } else if (m_context.gate.isRestoring()) {
        refuse(Kind::restoreInFlight);
    } else if (!m_context.isDeskCurrent()) {
        refuse(m_context.currentDisplays().empty() ? Kind::noDisplays : Kind::displaysChanging);
    } else {
        m_context.inBackground(
            WorkPriority::userInitiated,
            [filter = m_context.captureScope({}).filter, &desk = m_context.ports.desk] {
                return desk.capture(filter);
            },
            [this, question = std::move(question), done,
             began = m_context.gate.now()](const std::optional<DeskSnapshot>& snapshot) {
                if (!snapshot) {
                    done(std::unexpected(SaveOutcome{.kind = Kind::captureFailed}.text()));
                } else if (!m_context.gate.isUndisturbed(began) || !m_context.isDeskCurrent()) {
                    done(std::unexpected(SaveOutcome{.kind = Kind::displaysChanging}.text()));
                } else {
                    answer(question, *snapshot, done);
                }
            });
    }
}

void RestorePreviewFlow::answer(const Question& question, const DeskSnapshot& snapshot, const Done& done) {
    using Fate = RestorePreview::Fate;
    const auto& displays = m_context.state().displays;
    const auto live = question.reach == DeskCapture::Reach::every
                          ? VisibleWindows::every(snapshot, displays)
                          : VisibleWindows::ordinary(snapshot, displays);
    std::set<std::string> running;
    for (const RunningApp& app : AXApps::regularApps(snapshot.apps, m_context.ownBundleID)) {
        running.insert(*app.bundleID);
    }
    const auto sizes =
        m_context.settings.restoreSizes() ? RestoreEngine::Sizes::restore : RestoreEngine::Sizes::leave;
    RestorePreview preview =
        RestorePreviews::of(question.layout, m_context.notes.find(question.layout), {live, running}, sizes);
    for (const WindowRecord& slot : question.slots) {
        preview.windows.push_back(
            {.saved = slot, .fate = running.contains(slot.bundleID) ? Fate::noSuchWindow : Fate::notRunning});
    }
    if (question.opensMissingApps) {
        for (RestorePreview::Window& window : preview.windows) {
            window.fate = window.fate == Fate::notRunning ? Fate::wouldOpen : window.fate;
        }
    }
    done(preview);
}

} // namespace vantrel
