#include "Vantrel/controller/UndoFlow.h"

#include "VantrelCore/model/DeskRenaming.h"
#include "VantrelCore/windows/RuleApplication.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace vantrel {

void UndoFlow::remember(const RestoreRequest& request, const RestoreCallbacks& callbacks,
                        const RestorePass::Result& result) {
    if (!result.before) {
        m_unhidden = result.unhidden;
        // An interrupted undo can be repeated when its desk is back.
        if (!result.isAbandoned) {
            forgetUndone();
        }
        return;
    }
    const RestorePass::Before& before = *result.before;
    const DeskCapture::Picture picture{before.windows, before.takenAt};
    // An abandoned scene has only moved windows; it never became the desk's scene.
    const bool isWindowsOnly = result.isAbandoned && request.scene;
    m_latest = Picture{.slot = {.layout = m_context.layoutOf(picture, request.displays).withOtherWindows(),
                                .configID = request.layout.configID,
                                .reason = request.reason,
                                .date = before.takenAt,
                                .hiddenBundleIDs = {}},
                       .windows = {},
                       .raising = request.raising,
                       .undone = isWindowsOnly ? nullptr : callbacks.undone};
    // Use the restore's desk, not the one that has replaced it meanwhile.
    m_latest->slot.layout.configID = request.layout.configID;
    for (const LiveWindow& window : before.windows) {
        m_latest->windows.push_back(window.id);
    }
    if (!result.changedNothing || callbacks.undone) {
        setSlot(m_latest);
    }
}

void UndoFlow::forgetUndone() {
    const auto undone = m_slot ? m_slot->undone : nullptr;
    m_latest.reset();
    setSlot(std::nullopt);
    if (undone) {
        undone();
    }
}

void UndoFlow::noteHidden(const std::vector<std::string>& bundleIDs) {
    if (!m_latest || bundleIDs.empty()) {
        return;
    }
    auto& hidden = m_latest->slot.hiddenBundleIDs;
    for (const std::string& bundleID : bundleIDs) {
        if (std::ranges::find(hidden, bundleID) == hidden.end()) {
            hidden.push_back(bundleID);
        }
    }
    setSlot(m_latest);
}

void UndoFlow::moveDesk(const std::string& from, const std::string& to,
                        const std::vector<DisplayInfo>& displays) {
    for (auto* const picture : {&m_latest, &m_slot}) {
        if (*picture && (*picture)->slot.configID == from) {
            UndoSlot& slot = (*picture)->slot;
            slot.layout = DeskRenaming::renamed(slot.layout, to, displays);
            slot.configID = to;
        }
    }
    setSlot(m_slot);
}

void UndoFlow::setSlot(std::optional<Picture> picture) {
    m_slot = std::move(picture);
    m_context.publisher.publish<HistoryTopic>(
        [&](auto& history) { history.undoSlot = m_slot ? std::optional(m_slot->slot) : std::nullopt; });
}

bool UndoFlow::undoLastRestore(const RestoreOutcome::Done& done) {
    using Kind = RestoreOutcome::Kind;
    m_context.refreshStatus();
    if (const auto hindrance = m_context.hindranceToMoving()) {
        return m_context.refuse(*hindrance, done);
    }
    if (!m_slot || m_isUndoing) {
        return m_context.refuse(Kind::nothingToUndo, done);
    }
    if (m_context.state().applicableUndo() == nullptr) {
        return m_context.refuse(Kind::undoElsewhere, done);
    }
    m_isUndoing = true;
    RestoreRequest request{.layout = {},
                           .displays = m_context.state().displays,
                           .reason = "",
                           .purpose = RestorePurpose::undo,
                           .announcement = Announcement::announce};
    fill(request);
    m_runner.perform(std::move(request),
                     {.prepare = [this](RestoreRequest& due, RestoreCallbacks&) { prepare(due); },
                      .done =
                          [this, done](const RestoreOutcome& outcome) {
                              finish(outcome);
                              if (done) {
                                  done(outcome);
                              }
                          }});
    return true;
}

void UndoFlow::prepare(RestoreRequest& request) {
    if (!m_slot || m_slot->slot.configID != request.layout.configID) {
        return;
    }
    fill(request);
    request.unhides = m_slot->slot.hiddenBundleIDs;
}

void UndoFlow::finish(const RestoreOutcome& outcome) {
    m_isUndoing = false;
    const std::size_t unhidden = std::exchange(m_unhidden, 0);
    if (outcome.kind == RestoreOutcome::Kind::finished && unhidden > 0) {
        m_context.log(fmt::format("undo un-hid {} app(s) the change had hidden", unhidden));
    }
}

// Called on request and again when its turn comes, so that a restore that ran meanwhile is undone too.
void UndoFlow::fill(RestoreRequest& request) {
    request.layout = m_slot->slot.layout;
    request.windows = m_slot->windows;
    request.reason = "undo (" + m_slot->slot.reason + ")";
    request.raising = m_slot->raising;
    const auto ignored = RuleApplication::ignoredBundleIDs(m_context.store.rules());
    for (std::size_t i = request.windows.size(); i-- > 0;) {
        if (ignored.contains(request.layout.windows[i].bundleID)) {
            const auto offset = static_cast<std::ptrdiff_t>(i);
            request.layout.windows.erase(request.layout.windows.begin() + offset);
            request.windows.erase(request.windows.begin() + offset);
        }
    }
}

} // namespace vantrel
