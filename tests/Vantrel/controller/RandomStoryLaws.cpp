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
        m_stood[m_story.published().configID][title].push_back(m_story.frame(window));
    }
}

void RandomStory::checkAtRest() {
    expect(!m_story.controller->restoreInFlight(), "every restore ends");
    expect(!m_story.controller->snapshotsSuspended(), "learning resumes");
    if (m_hasRestoredDesk) {
        checkEverythingIsAtItsSavedPlace();
    }
    checkOnlyWhatStoodIsStored();
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

void RandomStory::checkStands(const Layout& layout, const std::string& law) {
    for (const WindowRecord& saved : layout.windows) {
        const auto window = m_tame.find(saved.title);
        if (window != m_tame.end()) {
            const Rect frame = m_story.frame(window->second);
            expect(frame == saved.frame, fmt::format("{}: {} is at {}, was at {}", law, saved.title,
                                                     textOf(frame), textOf(saved.frame)));
        }
    }
}

void RandomStory::checkOnlyWhatStoodIsStored() {
    for (const Layout& layout : m_story.store().allLayouts()) {
        for (const WindowRecord& saved : layout.windows) {
            if (m_tame.contains(saved.title)) {
                const Frames& stood = m_stood[layout.configID][saved.title];
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
