// The laws that hold in every random story, and how a breach is told.
#include "tests/Vantrel/controller/RandomStory.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace vantrel::simulated {

namespace {

std::string textOf(const Rect& rect) {
    return fmt::format("({}, {}) {}x{}", rect.minX(), rect.minY(), rect.width(), rect.height());
}

} // namespace

void RandomStory::noteWhatStands() {
    if (m_story.time.monotonicSeconds() < m_restlessUntil) {
        return;
    }
    for (const auto& [title, window] : m_tame) {
        m_stood[deskOf(m_story.published().displays)][title].push_back(m_story.frame(window));
    }
}

void RandomStory::checkAtRest() {
    expect(!m_story.controller->restoreInFlight(), "every restore ends");
    expect(!m_story.controller->snapshotsSuspended(), "learning resumes");
    const auto& waits = m_story.time.mainThreadWaits();
    expect(waits.empty(), fmt::format("the main thread waits for neither disk nor display server: {}",
                                      fmt::join(waits, ", ")));
    if (m_hasRestoredDesk) {
        checkEverythingIsAtItsSavedPlace();
    }
    checkOnlyWhatStoodIsStored();
    checkStores();
    checkTracesOfRestores();
    const PublishedState& state = m_story.published();
    const auto stored = m_story.storedLayout();
    const Phase resting =
        stored ? Phase{Phase::Saved{std::ssize(stored->withOtherWindows().windows)}} : Phase{Phase::Empty{}};
    expect(state.phase == resting,
           "at rest the phase tells what is stored: " + StatusPhase::text(state.phase));
}

void RandomStory::checkPhase() {
    const PublishedState& state = m_story.published();
    const bool isRestoring = m_story.controller->restoreInFlight();
    bool isTrue = state.phase.is<Phase::Restoring>() == isRestoring;
    if (!state.hasPermission) {
        isTrue = state.phase.is<Phase::NeedsPermission>();
    } else if (!state.enabled) {
        isTrue = state.phase.is<Phase::Off>();
    }
    expect(isTrue, "the phase shown is true: " + StatusPhase::text(state.phase));
}

void RandomStory::watchRestore() {
    const bool isRestoring = m_story.published().phase.is<Phase::Restoring>();
    if (isRestoring && !m_beforeRestore) {
        m_beforeRestore = DeskBefore{m_story.frames(), m_logBeforeMove};
        m_movedByRestore.clear();
    } else if (!isRestoring && m_beforeRestore) {
        const auto frames = m_story.frames();
        const auto isWhereItWas = [&](WindowID window) {
            const auto before = m_beforeRestore->frames.find(window);
            const auto now = frames.find(window);
            return before != m_beforeRestore->frames.end() && now != frames.end() &&
                   before->second == now->second;
        };
        if (std::ranges::all_of(m_movedByRestore, isWhereItWas)) {
            m_logBeforeMove = m_beforeRestore->logBeforeMove;
        }
        m_beforeRestore.reset();
    }
}

void RandomStory::checkStores() {
    const PublishedState& state = m_story.published();
    const auto folder = m_story.log.file().parent_path();
    auto stores = ControllerStores::open(folder, folder, m_story.files, m_story.time).value();
    // By name alone: on disk a date has whole seconds.
    expect(std::ranges::equal(stores.scenes.allScenes(), state.scenes, {}, &Scene::id, &Scene::id) &&
               std::ranges::equal(stores.triggers.allTriggers(), state.triggers, {}, &SceneTrigger::id,
                                  &SceneTrigger::id) &&
               std::ranges::equal(stores.layouts.layouts(state.configID), state.currentLayouts, {},
                                  &Layout::layoutName, &Layout::layoutName) &&
               std::ranges::all_of(
                   state.stashes,
                   [&](const Stash& stash) { return stores.stashes.stash(stash.id).has_value(); }) &&
               stores.usage.load().restores == state.usage.restores,
           "what is shown as stored is on disk");
    std::set<std::pair<std::string, std::string>> layouts;
    for (const Layout& layout : stores.layouts.allLayouts()) {
        layouts.emplace(deskOf(layout.displays), layout.layoutName);
    }
    expect(std::ranges::includes(layouts, m_storedLayouts), "no stored layout is lost");
    m_storedLayouts = layouts;
    expect(state.usage.restores >= m_restoresCounted, "no restore that was counted is forgotten");
    m_restoresCounted = state.usage.restores;
    expect(std::ranges::none_of(m_story.files.files(),
                                [](const auto& file) { return file.extension() == ".corrupt"; }),
           "every store can be read");
}

void RandomStory::checkTracesOfRestores() {
    const auto before = std::exchange(m_logBeforeMove, std::nullopt);
    if (!before) {
        return;
    }
    // Newest first; restores that moved nothing may have come since.
    const auto entries = m_story.controller->restoreLog().entries;
    const auto known = std::ranges::find_if(entries, [&](const RestoreLog::Entry& entry) {
        return !before->entries.empty() && entry.date == before->entries.front().date;
    });
    expect(known != entries.begin(), "a restore that moved a window is in the history");
    expect(known == entries.begin() || std::prev(known)->reason.starts_with("undo") ||
               m_story.published().undoSlot,
           "a restore that moved a window can be undone");
}

void RandomStory::checkEverythingIsAtItsSavedPlace() {
    const auto stored = m_story.storedLayout();
    if (!stored) {
        return;
    }
    for (const WindowRecord& saved : stored->windows) {
        const auto window = m_tame.find(saved.title);
        if (window != m_tame.end()) {
            const Rect frame = m_story.frame(window->second);
            expect(approxEqual(frame, saved.frame, RestoreEngine::tolerance),
                   fmt::format("at rest every window is at its saved place: {} is at {}, saved {}",
                               saved.title, textOf(frame), textOf(saved.frame)));
        }
    }
}

void RandomStory::checkStands(const Layout& layout, const std::string& law, double tolerance) {
    for (const WindowRecord& saved : layout.windows) {
        const auto window = m_tame.find(saved.title);
        if (window != m_tame.end()) {
            const Rect frame = m_story.frame(window->second);
            expect(approxEqual(frame, saved.frame, tolerance),
                   fmt::format("{}: {} is at {}, was at {}", law, saved.title, textOf(frame),
                               textOf(saved.frame)));
        }
    }
}

void RandomStory::checkOnlyWhatStoodIsStored() {
    for (const Layout& layout : m_story.store().allLayouts()) {
        for (const WindowRecord& saved : layout.windows) {
            if (m_tame.contains(saved.title)) {
                const Frames& stood = m_stood[deskOf(layout.displays)][saved.title];
                expect(std::ranges::find(stood, saved.frame) != stood.end(),
                       fmt::format("only what stood still is stored: {} at {} on {}", saved.title,
                                   textOf(saved.frame), layout.name));
            }
        }
    }
}

void RandomStory::expect(bool holds, const std::string& law) {
    if (!holds) {
        m_breaches.push_back(fmt::format("{:.3f} s: {}", m_story.time.monotonicSeconds(), law));
    }
}

std::string RandomStory::transcript() {
    return fmt::format("{}\n--- log\n{}", fmt::join(m_told, "\n"),
                       m_story.files.content(m_story.log.file()).value_or(""));
}

} // namespace vantrel::simulated
