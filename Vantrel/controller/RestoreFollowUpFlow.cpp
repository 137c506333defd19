#include "Vantrel/controller/RestoreFollowUpFlow.h"

#include "Vantrel/controller/ControllerText.h"
#include "Vantrel/controller/PerApplication.h"

#include <algorithm>
#include <cstdint>
#include <fmt/format.h>
#include <iterator>

namespace vantrel {

namespace {

using RestoreFollowUp::Moved;

// In seconds after the end of the restore.
constexpr double lookTimes[] = {1, 3, 7};

enum class Finding : std::uint8_t { nothing, putBack, leftToUser, leftUnwatched };

Finding look(const Moved& window, RestoreEngine::Sizes sizes) {
    if (!RestoreFollowUp::isDisplaced(RestoreFollowUp::visibleFrame(window), window.target, sizes)) {
        return Finding::nothing;
    }
    if (!window.userMoves) {
        // The user may have just moved it there.
        return Finding::leftUnwatched;
    }
    if (window.userMoves->hasSeenUser()) {
        return Finding::leftToUser;
    }
    RestoreEngine::place(window.target, window.handle, sizes);
    return RestoreEngine::isReached(window.handle.frame(), window.target, sizes) ? Finding::putBack
                                                                                 : Finding::nothing;
}

// The finding for each window, in order.
std::vector<Finding> lookAt(const std::vector<Moved>& landed, RestoreEngine::Sizes sizes,
                            Background& background) {
    std::vector<Finding> findings(landed.size());
    PerApplication::forEach(landed, background,
                            [&](std::size_t index) { findings[index] = look(landed[index], sizes); });
    return findings;
}

// The report items of windows with this finding.
std::vector<std::size_t> itemsOf(const std::vector<Moved>& landed, const std::vector<Finding>& findings,
                                 Finding finding) {
    std::vector<std::size_t> items;
    for (std::size_t i = 0; i < landed.size(); ++i) {
        if (findings[i] == finding) {
            items.push_back(landed[i].item);
        }
    }
    return items;
}

} // namespace

void RestoreFollowUpFlow::begin(std::vector<Moved> landed) {
    end();
    m_landed = std::move(landed);
    if (m_landed.empty()) {
        return;
    }
    for (const double seconds : lookTimes) {
        m_looks.push_back(m_context.ports.mainQueue.after(seconds, [this, seconds, epoch = m_epoch] {
            if (epoch != m_epoch) {
                return;
            }
            look();
            if (seconds == std::rbegin(lookTimes)[0]) {
                // Stop watching after the last check.
                m_landed.clear();
            }
        }));
    }
}

void RestoreFollowUpFlow::end() {
    ++m_epoch;
    m_landed.clear();
    m_looks.clear();
}

void RestoreFollowUpFlow::look() {
    if (!m_context.snapshotsSuspended || m_context.axWorkInFlight() || !m_context.state().enabled) {
        return;
    }
    const auto sizes =
        m_context.settings.restoreSizes() ? RestoreEngine::Sizes::restore : RestoreEngine::Sizes::leave;
    m_context.runPass(
        WorkPriority::userInitiated,
        [landed = m_landed, sizes, &background = m_context.ports.background] {
            return lookAt(landed, sizes, background);
        },
        [this, epoch = m_epoch, landed = m_landed](const std::optional<std::vector<Finding>>& findings) {
            if (!findings) {
                return;
            }
            const auto putBack = itemsOf(landed, *findings, Finding::putBack);
            if (!putBack.empty()) {
                m_context.log("restore follow-up: put back " + ControllerText::windows(putBack.size()));
                m_onPutBack(putBack);
            }
            if (epoch == m_epoch) {
                leaveAlone(itemsOf(landed, *findings, Finding::leftToUser), "to the user");
                leaveAlone(itemsOf(landed, *findings, Finding::leftUnwatched),
                           "alone, because user moves cannot be detected here");
            }
        });
}

void RestoreFollowUpFlow::leaveAlone(const std::vector<std::size_t>& items, std::string_view how) {
    if (items.empty()) {
        return;
    }
    m_context.log(fmt::format("restore follow-up: left {} {}", ControllerText::windows(items.size()), how));
    std::erase_if(m_landed,
                  [&](const Moved& window) { return std::ranges::find(items, window.item) != items.end(); });
}

} // namespace vantrel
