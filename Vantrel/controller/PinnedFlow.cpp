#include "Vantrel/controller/PinnedFlow.h"

#include "VantrelCore/text/Translation.h"
#include <fmt/format.h>

namespace vantrel {

namespace {

// The same tolerance as DriftGuard, in points.
constexpr double driftTolerance = 2;

std::string reasonFor(const RestoreRequest& request) {
    switch (request.purpose) {
    case RestorePurpose::sceneSwitch:
        return trf("the scene \"{}\" was applied", request.sceneName.value_or(""));
    case RestorePurpose::stashReturn:
        return tr("a stash was brought back");
    case RestorePurpose::undo:
        return tr("a restore was undone");
    case RestorePurpose::restore:
        break;
    }
    return tr("another layout was applied");
}

// Ignores the layout's name.
bool isSameArrangement(const std::optional<Layout>& a, const std::optional<Layout>& b) {
    return a.has_value() == b.has_value() &&
           (!a || (a->configID == b->configID && a->savedAt == b->savedAt && a->windows == b->windows));
}

} // namespace

void PinnedFlow::follow(const std::optional<Layout>& pinned) {
    if (!isSameArrangement(m_pinned, pinned)) {
        m_driftGuard.reset();
        m_strikes = 0;
        publish(std::nullopt);
    }
    m_pinned = pinned;
}

void PinnedFlow::publish(const std::optional<PinPause>& pause) {
    if (m_context.state().pinPause == pause) {
        return;
    }
    m_context.publisher.publish<LayoutsTopic>([&](auto& layouts) { layouts.pinPause = pause; });
}

void PinnedFlow::observe(const Layout& current) {
    const auto pinned = m_context.layoutToRestore();
    if (!pinned) {
        return;
    }
    follow(pinned);
    if (m_context.state().isPinPausedForUser()) {
        return;
    }
    const bool hasDrifted = m_driftGuard.observe(current, *pinned);
    if (hasDrifted) {
        m_context.gate.afterPass([this, pinned] { enforce(*pinned); });
    } else if (m_driftGuard.driftCount() == 0) {
        m_strikes = 0;
        publish(std::nullopt);
    }
}

void PinnedFlow::enforce(const Layout& pinned) {
    // What the user has requested meanwhile takes precedence; a remaining drift is noticed again.
    if (m_context.state().pinPause || m_context.gate.isRestoring()) {
        return;
    }
    if (m_strikes == maxStrikes) {
        publish(PinPause{PinPause::Cause::gaveUp, tr("its windows did not stay in place")});
        m_context.log("pinned drift persists after 3 enforcements, pausing until the layout changes");
        return;
    }
    ++m_strikes;
    m_context.log(fmt::format("pinned drift: enforcing {} windows for {} (attempt {})", pinned.windows.size(),
                              pinned.name, m_strikes));
    m_runner.perform(
        {.layout = pinned, .displays = m_context.state().displays, .reason = "pinned enforcement"});
}

bool PinnedFlow::asksForAnother(const RestoreRequest& request) const {
    Layout asked = request.layout;
    asked.layoutName = m_pinned->layoutName;
    // A scene may also start applications.
    const bool opensWindows = request.scene && !request.scene->ghosts.empty();
    return opensWindows || !asked.geometryMatches(*m_pinned, driftTolerance);
}

void PinnedFlow::restored(const RestoreRequest& request) {
    layoutsChanged();
    if (!m_pinned) {
        return;
    }
    if (!asksForAnother(request)) {
        endPauseForUser();
        return;
    }
    const auto pause = [&] { return PinPause{PinPause::Cause::userAskedForAnother, reasonFor(request)}; };
    m_driftGuard.reset();
    publish(pause());
    m_context.log("pinned layout: " + inEnglish([&] { return pause().text(); }));
}

void PinnedFlow::endPauseForUser() {
    if (m_context.state().isPinPausedForUser()) {
        publish(std::nullopt);
        m_context.log("pinned layout: kept in place again");
    }
}

void PinnedFlow::layoutsChanged() {
    follow(m_context.state().activePinned ? m_context.layoutToRestore() : std::nullopt);
}

} // namespace vantrel
