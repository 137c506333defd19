#include "Vantrel/controller/DisplaySwapFlow.h"

#include "Vantrel/controller/CaptureNow.h"

namespace vantrel {

namespace {

RestoreOutcome::Kind kindFor(SaveOutcome::Kind problem) {
    using Kind = RestoreOutcome::Kind;
    switch (problem) {
    case SaveOutcome::Kind::restoreInFlight:
        return Kind::restoreInFlight;
    case SaveOutcome::Kind::displaysChanging:
    case SaveOutcome::Kind::noDisplays:
        return Kind::displaysChanging;
    case SaveOutcome::Kind::needsPermission:
        return Kind::needsPermission;
    case SaveOutcome::Kind::nothingToSave:
        return Kind::emptyLayout;
    default:
        return Kind::failed;
    }
}

} // namespace

std::expected<void, std::string> DisplaySwapFlow::swap(const std::string& first, const std::string& second,
                                                       const RestoreOutcome::Done& done) {
    const auto pair = DisplaySwap::choose(m_context.state().displays, first, second);
    if (!pair) {
        return std::unexpected(pair.error());
    }
    m_context.refreshStatus();
    if (const auto hindrance = m_context.hindranceToMoving()) {
        m_context.refuse(*hindrance, done);
        return {};
    }
    CaptureNow::perform(
        m_context, DeskCapture::Reach::every, [this, pair = *pair, done](const CaptureNow::Result& captured) {
            if (!captured) {
                m_context.refuse(kindFor(captured.error()), done);
                return;
            }
            m_runner.perform({.layout = DisplaySwap::swapped(captured->withOtherWindows(), pair),
                              .displays = m_context.state().displays,
                              .reason = "swap displays",
                              .announcement = Announcement::announce},
                             {.done = done});
        });
    return {};
}

} // namespace vantrel
