#include "Vantrel/controller/StashFlow.h"

#include "Vantrel/controller/CaptureNow.h"
#include "Vantrel/controller/ControllerText.h"
#include "VantrelCore/model/FreshUUID.h"
#include "VantrelCore/stores/UserEdit.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace vantrel {

StashFlow::StashFlow(ControllerContext& context, RestoreRunner& runner, StashStore& store)
    : m_context(context), m_runner(runner), m_store(store) {
    m_context.publisher.publish<StashesTopic>([&](auto& published) { published.stashes = stashes(); });
}

std::vector<Stash> StashFlow::stashes() {
    std::vector<Stash> all = m_store.allStashes();
    std::erase_if(all, [now = m_context.ports.clock.now()](const Stash& stash) {
        return StashStore::hasExpired(stash, now);
    });
    return all;
}

void StashFlow::showStored() {
    m_context.publisher.publish<StashesTopic>([&](auto& published) {
        published.stashes = stashes();
        ++published.stashesVersion;
    });
}

void StashFlow::dropExpired() {
    const auto& published = m_context.state().stashes;
    // Newest first, so the last one expires first.
    if (!published.empty() && StashStore::hasExpired(published.back(), m_context.ports.clock.now())) {
        showStored();
    }
}

void StashFlow::stashNow(std::function<void(const Result&)> done) {
    CaptureNow::perform(m_context, DeskCapture::Reach::visible,
                        [this, done = std::move(done)](const CaptureNow::Result& captured) {
                            tell(captured ? keep(*captured) : std::unexpected(captured.error()), done);
                        });
}

StashFlow::Result StashFlow::keep(const Layout& captured) {
    const auto countOf = [](const Layout& layout) {
        return static_cast<std::int64_t>(layout.windows.size());
    };
    const Scene* scene = m_context.state().lastAppliedScene();
    const UserEdit edit;
    Stash stash = m_store.add(
        {.id = freshUUID(),
         .createdAt = m_context.ports.clock.now(),
         .configID = captured.configID,
         .layout = captured,
         .windowCount = countOf(captured),
         .deskName = m_context.state().configName,
         .appliedSceneName = scene ? std::optional(scene->name) : std::nullopt,
         .appliedSceneWindowCount = scene ? std::optional(countOf(scene->layout)) : std::nullopt});
    // add() does not report a failed write; the stash is missing then.
    if (!m_store.stash(stash.id)) {
        return std::unexpected(SaveOutcome::Kind::writeFailed);
    }
    showStored();
    return stash;
}

void StashFlow::tell(const Result& result, const std::function<void(const Result&)>& done) {
    m_context.log(
        result ? fmt::format("stash: {} put aside", ControllerText::windows(result->layout.windows.size()))
               : "stash: " + SaveOutcome{.kind = result.error()}.text());
    m_context.announce(
        result ? HUDEvent(HUD::Stashed{std::ssize(result->layout.windows), m_context.settings.stashHotkey()})
               : HUD::Refused{SaveOutcome{.kind = result.error()}.text()});
    if (done) {
        done(result);
    }
}

bool StashFlow::bringBack(const std::string& stashID, const RestoreOutcome::Done& done) {
    // Read first: `stashID` may refer to published state, which changes below.
    const auto stored = m_store.stash(stashID);
    m_context.refreshStatus();
    if (const auto hindrance = m_context.hindranceToMoving()) {
        return m_context.refuse(*hindrance, done);
    }
    dropExpired();
    const auto& published = m_context.state().stashes;
    if (!stored || std::ranges::find(published, stored->id, &Stash::id) == published.end()) {
        return m_context.refuse(RestoreOutcome::Kind::noSuchStash, done);
    }
    const Stash& stash = *stored;
    m_runner.perform({.layout = m_context.fittedToDesk(stash.layout),
                      .displays = m_context.state().displays,
                      .reason = "stash",
                      .purpose = RestorePurpose::stashReturn,
                      .announcement = Announcement::announce,
                      .raising = RestoreEngine::Raising::raise},
                     {.undone =
                          [this, stash] {
                              if (!m_store.stash(stash.id)) {
                                  m_store.add(stash, Saving::later([this](bool) { showStored(); }));
                                  showStored();
                              }
                          },
                      .done =
                          [this, stash, done](const RestoreOutcome& outcome) {
                              returned(stash, outcome);
                              if (done) {
                                  done(outcome);
                              }
                          }});
    return true;
}

void StashFlow::returned(const Stash& stash, const RestoreOutcome& outcome) {
    if (outcome.kind != RestoreOutcome::Kind::finished) {
        return;
    }
    if (outcome.report.restoredCount() == 0) {
        // Nothing came back; keep the stash until its applications run again.
        if (outcome.report.failedCount() > 0) {
            m_refused.insert(stash.id);
        }
        return;
    }
    m_store.remove(stash.id, Saving::later([this](bool isWritten) {
                       if (!isWritten) {
                           m_context.log(
                               "stash: brought back, but kept because the file could not be written");
                           showStored();
                       }
                   }));
    showStored();
}

bool StashFlow::discard(const std::string& stashID) {
    const auto stash = m_store.stash(stashID);
    if (!stash || !m_store.remove(stash->id)) {
        return false;
    }
    m_context.log(fmt::format("stash: {} discarded", ControllerText::windows(stash->layout.windows.size())));
    m_context.deletions.add(trf("the stash of {}", stash->deskName),
                            [this, stash = *stash]() -> std::expected<void, std::string> {
                                if (!m_store.putBackAll({stash})) {
                                    return std::unexpected(tr("The stash could not be written to disk."));
                                }
                                showStored();
                                return {};
                            });
    showStored();
    return true;
}

void StashFlow::stashOrBringBack(const Told& told) {
    const Stash* stash = m_context.state().activeStash();
    if (stash == nullptr) {
        stashNow(told.stashed);
        return;
    }
    CaptureNow::perform(m_context, DeskCapture::Reach::visible,
                        [this, id = stash->id, told](const CaptureNow::Result& captured) {
                            // By then the capture has ended, so bringing back need not wait.
                            m_context.gate.isPassUnderWay()
                                ? m_context.gate.afterPass(
                                      [this, id, captured, told] { stashOrBringBack(id, captured, told); })
                                : stashOrBringBack(id, captured, told);
                        });
}

void StashFlow::stashOrBringBack(const std::string& stashID, const CaptureNow::Result& captured,
                                 const Told& told) {
    const auto stash = m_store.stash(stashID);
    if (captured && stash && !canReturn(*stash, *captured)) {
        tell(keep(*captured), told.stashed);
    } else if (!captured && captured.error() == SaveOutcome::Kind::nothingToSave) {
        tell(std::unexpected(captured.error()), told.stashed);
    } else {
        // Also when the capture failed: bringing back either waits for its turn or reports what prevents it.
        bringBack(stashID, told.broughtBack);
    }
}

bool StashFlow::canReturn(const Stash& stash, const Layout& captured) {
    std::set<std::string> running;
    for (const WindowRecord& window : captured.windows) {
        running.insert(window.bundleID);
    }
    // Windows are matched within their application, whatever their titles.
    return !m_refused.contains(stash.id) &&
           std::ranges::any_of(m_context.fittedToDesk(stash.layout).windows,
                               [&](const WindowRecord& window) { return running.contains(window.bundleID); });
}

} // namespace vantrel
