#include "Vantrel/controller/StashFlow.h"

#include "Vantrel/controller/CaptureNow.h"
#include "Vantrel/controller/ControllerText.h"
#include "VantrelCore/model/FreshUUID.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace vantrel {

StashFlow::StashFlow(ControllerContext& context, RestoreRunner& runner, StashStore& store)
    : m_context(context), m_runner(runner), m_store(store) {
    m_context.publisher.publish([&](PublishedState& state) { state.stashes = stashes(); });
}

std::vector<Stash> StashFlow::stashes() {
    std::vector<Stash> all = m_store.allStashes();
    std::erase_if(all, [now = m_context.ports.clock.now()](const Stash& stash) {
        return StashStore::hasExpired(stash, now);
    });
    return all;
}

void StashFlow::showStored() {
    m_context.publisher.publish([&](PublishedState& state) {
        state.stashes = stashes();
        ++state.stashesVersion;
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
    CaptureNow::perform(m_context, [this, done = std::move(done)](const CaptureNow::Result& captured) {
        Result result = std::unexpected(SaveOutcome::Kind::writeFailed);
        if (!captured) {
            result = std::unexpected(captured.error());
        } else {
            const auto count = static_cast<std::int64_t>(captured->windows.size());
            const Scene* scene = m_context.state().lastAppliedScene();
            const Stash stash = m_store.add(
                {.id = freshUUID(),
                 .createdAt = m_context.ports.clock.now(),
                 .configID = captured->configID,
                 .layout = *captured,
                 .windowCount = count,
                 .deskName = m_context.state().configName,
                 .appliedSceneName = scene ? std::optional(scene->name) : std::nullopt,
                 .appliedSceneWindowCount =
                     scene ? std::optional(static_cast<std::int64_t>(scene->layout.windows.size()))
                           : std::nullopt});
            // The store keeps what it could not write to itself.
            if (m_store.stash(stash.id)) {
                result = stash;
                showStored();
            }
        }
        m_context.log(result ? fmt::format("stash: {} put aside",
                                           ControllerText::windows(result->layout.windows.size()))
                             : "stash: " + SaveOutcome{.kind = result.error()}.text());
        if (done) {
            done(result);
        }
    });
}

bool StashFlow::bringBack(const std::string& stashID, const RestoreOutcome::Done& done) {
    // First: the identifier may be part of the published state, which changes from here on.
    const auto stored = m_store.stash(stashID);
    m_context.refreshStatus();
    if (const auto hindrance = m_context.hindranceToMoving()) {
        return RestoreOutcome::refuse(*hindrance, done);
    }
    dropExpired();
    const auto& published = m_context.state().stashes;
    if (!stored || std::ranges::find(published, stored->id, &Stash::id) == published.end()) {
        return RestoreOutcome::refuse(RestoreOutcome::Kind::noSuchStash, done);
    }
    const Stash& stash = *stored;
    m_runner.perform({.layout = m_context.fittedToDesk(stash.layout),
                      .displays = m_context.state().displays,
                      .reason = "stash",
                      .purpose = RestorePurpose::stashReturn,
                      .announcement = Announcement::announce,
                      .raising = RestoreEngine::Raising::raise,
                      .undone =
                          [this, stash] {
                              if (!m_store.stash(stash.id)) {
                                  m_store.add(stash);
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
    // Nothing of it came back: it is kept for when its applications run again.
    if (outcome.kind != RestoreOutcome::Kind::finished || outcome.report.restoredCount() == 0) {
        return;
    }
    if (!m_store.remove(stash.id)) {
        m_context.log("stash: brought back, and kept because the file could not be written");
    }
    showStored();
}

void StashFlow::stashOrBringBack(const Told& told) {
    if (const Stash* stash = m_context.state().activeStash()) {
        bringBack(stash->id, told.broughtBack);
    } else {
        stashNow(told.stashed);
    }
}

} // namespace vantrel
