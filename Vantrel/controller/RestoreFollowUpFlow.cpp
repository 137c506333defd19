#include "Vantrel/controller/RestoreFollowUpFlow.h"

#include "Vantrel/controller/ControllerText.h"
#include "VantrelCore/windows/VisibleWindows.h"

#include <algorithm>
#include <cstdint>
#include <fmt/format.h>
#include <iterator>

namespace vantrel {

namespace {

using RestoreFollowUp::Landed;

// In seconds after the end of the restore.
constexpr double lookTimes[] = {1, 3, 7};

enum class Finding : std::uint8_t { nothing, putBack, leftToUser, leftUnwatched };

// Puts displaced windows back. Returns the finding for each window, in order.
std::vector<Finding> lookAt(const std::vector<Landed>& landed, RestoreEngine::Sizes sizes, Desk& desk,
                            const MovePermit& permit) {
    std::vector<Finding> findings(landed.size(), Finding::nothing);
    std::vector<WindowOrder> orders;
    std::vector<std::size_t> ordered;
    const auto windows = desk.look(RestoreFollowUp::windowsOf(landed));
    for (std::size_t i = 0; i < landed.size(); ++i) {
        const auto frame = windows[i] ? VisibleWindows::ordinaryFrame(*windows[i]) : std::nullopt;
        if (!RestoreFollowUp::isDisplaced(frame, landed[i].target, sizes)) {
            continue;
        }
        if (!landed[i].userMoves) {
            // The user may have just moved it there.
            findings[i] = Finding::leftUnwatched;
        } else if (landed[i].userMoves->hasSeenUser()) {
            findings[i] = Finding::leftToUser;
        } else {
            orders.push_back(RestoreEngine::place(landed[i].window, landed[i].target, sizes));
            ordered.push_back(i);
        }
    }
    const auto outcomes = desk.arrange(orders, permit);
    for (std::size_t i = 0; i < ordered.size(); ++i) {
        if (RestoreEngine::isReached(outcomes[i].frame, landed[ordered[i]].target, sizes)) {
            findings[ordered[i]] = Finding::putBack;
        }
    }
    return findings;
}

// The report items of windows with this finding.
std::vector<std::size_t> itemsOf(const std::vector<Landed>& landed, const std::vector<Finding>& findings,
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

void RestoreFollowUpFlow::begin(std::vector<Landed> landed) {
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
    if (!m_context.gate.isLearningSuspended() || m_context.gate.isPassUnderWay() ||
        !m_context.state().enabled) {
        return;
    }
    const auto sizes =
        m_context.settings.restoreSizes() ? RestoreEngine::Sizes::restore : RestoreEngine::Sizes::leave;
    m_context.runPass(
        WorkPriority::userInitiated,
        [landed = m_landed, sizes, &desk = m_context.ports.desk, permit = m_context.gate.permit()] {
            return lookAt(landed, sizes, desk, *permit);
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
                  [&](const Landed& window) { return std::ranges::find(items, window.item) != items.end(); });
}

} // namespace vantrel
