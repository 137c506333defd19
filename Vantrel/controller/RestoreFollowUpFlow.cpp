#include "Vantrel/controller/RestoreFollowUpFlow.h"

#include "Vantrel/controller/ControllerText.h"
#include "VantrelCore/windows/VisibleWindows.h"

#include <algorithm>
#include <cstdint>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <iterator>
#include <utility>

namespace vantrel {

namespace {

using RestoreFollowUp::Kept;

// In seconds after the end of the restore.
constexpr double lookTimes[] = {1, 3, 7, 15};

enum class Finding : std::uint8_t { inPlace, putBack, missed, leftToUser, leftToProgram, leftUnwatched };

// Whether to put a displaced window back: missed until it has been, or the reason not to.
Finding judge(const Kept& window, const std::optional<Rect>& frame) {
    if (!window.userMoves) {
        // The user may have just moved it there, unless it is still where the restore gave up on it.
        return frame == window.failedAt ? Finding::missed : Finding::leftUnwatched;
    }
    if (window.userMoves->hasSeenUser()) {
        return Finding::leftToUser;
    }
    return window.userMoves->hasSeenRequest() ? Finding::leftToProgram : Finding::missed;
}

// The frame to judge a window by; none when it is in nobody's way. Whoever has changed the states of a window
// that had arrived wanted that.
std::optional<Rect> frameToKeep(const Kept& kept, const DeskWindow& window) {
    if (!kept.place) {
        return VisibleWindows::ordinaryFrame(window);
    }
    const auto frame = VisibleWindows::placedFrame(window);
    const bool isUntouched =
        kept.place->isReached(window.states, window.desktop) || (frame && frame == kept.failedAt);
    return isUntouched ? frame : std::nullopt;
}

// Puts displaced windows back. Returns the finding for each window, in order.
std::vector<Finding> lookAt(const std::vector<Kept>& kept, RestoreEngine::Sizes sizes, Desk& desk,
                            const MovePermit& permit) {
    std::vector<Finding> findings(kept.size(), Finding::inPlace);
    std::vector<WindowOrder> orders;
    std::vector<std::size_t> ordered;
    const auto windows = desk.look(RestoreFollowUp::windowsOf(kept));
    for (std::size_t i = 0; i < kept.size(); ++i) {
        const auto frame = windows[i] ? frameToKeep(kept[i], *windows[i]) : std::nullopt;
        if (!RestoreFollowUp::isDisplaced(frame, kept[i].target, sizes)) {
            continue;
        }
        findings[i] = judge(kept[i], frame);
        if (findings[i] == Finding::missed) {
            orders.push_back(RestoreEngine::place(kept[i].window, kept[i].target, sizes));
            orders.back().place = kept[i].place;
            ordered.push_back(i);
        }
    }
    const auto outcomes = desk.arrange(orders, permit);
    for (std::size_t i = 0; i < ordered.size(); ++i) {
        if (outcomes[i].hasPlace &&
            RestoreEngine::isReached(outcomes[i].frame, kept[ordered[i]].target, sizes)) {
            findings[ordered[i]] = Finding::putBack;
        }
    }
    return findings;
}

// The report items of windows with this finding.
std::vector<std::size_t> itemsOf(const std::vector<Kept>& kept, const std::vector<Finding>& findings,
                                 Finding finding) {
    std::vector<std::size_t> items;
    for (std::size_t i = 0; i < kept.size(); ++i) {
        if (findings[i] == finding) {
            items.push_back(kept[i].item);
        }
    }
    return items;
}

std::string names(const std::vector<Kept>& kept, const std::vector<std::size_t>& items) {
    std::vector<std::string> found;
    for (const Kept& window : kept) {
        if (std::ranges::find(items, window.item) != items.end()) {
            found.push_back(window.name);
        }
    }
    return fmt::format("{}", fmt::join(found, ", "));
}

} // namespace

void RestoreFollowUpFlow::begin(std::vector<Kept> kept) {
    end();
    m_kept = std::move(kept);
    if (m_kept.empty()) {
        return;
    }
    m_begin = m_context.gate.now();
    for (const double seconds : lookTimes) {
        const bool isLast = seconds == std::rbegin(lookTimes)[0];
        m_looks.push_back(m_context.ports.mainQueue.after(seconds, [this, isLast] { awaitTurn(isLast); }));
    }
}

void RestoreFollowUpFlow::end() {
    ++m_epoch;
    m_kept.clear();
    m_looks.clear();
    m_turn.reset();
}

void RestoreFollowUpFlow::awaitTurn(bool isLast) {
    m_turn = m_context.moves.inTurn([this, isLast] { look(isLast); });
}

void RestoreFollowUpFlow::look(bool isLast) {
    const DeskGate& gate = m_context.gate;
    if (!m_context.state().enabled || gate.isAway() || !gate.isSameDesk(m_begin) ||
        !gate.isUnedited(m_begin)) {
        end();
        return;
    }
    const auto sizes =
        m_context.settings.restoreSizes() ? RestoreEngine::Sizes::restore : RestoreEngine::Sizes::leave;
    m_context.runMove(
        [kept = m_kept, sizes, &desk = m_context.ports.desk](const MovePermit& permit) {
            return lookAt(kept, sizes, desk, permit);
        },
        [this, isLast, epoch = m_epoch, kept = m_kept](const std::optional<std::vector<Finding>>& findings) {
            if (!findings) {
                return;
            }
            const auto putBack = itemsOf(kept, *findings, Finding::putBack);
            if (!putBack.empty()) {
                m_context.log(fmt::format("restore follow-up: put back {}: {}",
                                          ControllerText::windows(putBack.size()), names(kept, putBack)));
                m_onPutBack(putBack);
            }
            if (epoch != m_epoch) {
                return;
            }
            for (Kept& window : m_kept) {
                if (std::ranges::find(putBack, window.item) != putBack.end()) {
                    window.failedAt.reset();
                }
            }
            leaveAlone(itemsOf(kept, *findings, Finding::leftToUser), "to the user");
            leaveAlone(itemsOf(kept, *findings, Finding::leftToProgram), "to another program");
            leaveAlone(itemsOf(kept, *findings, Finding::leftUnwatched),
                       "alone, because user moves cannot be detected here");
            if (isLast) {
                leaveAlone(itemsOf(kept, *findings, Finding::missed), "out of place");
                // Stop watching.
                end();
            }
        });
}

void RestoreFollowUpFlow::leaveAlone(const std::vector<std::size_t>& items, std::string_view how) {
    if (items.empty()) {
        return;
    }
    m_context.log(fmt::format("restore follow-up: left {} {}: {}", ControllerText::windows(items.size()), how,
                              names(m_kept, items)));
    std::erase_if(m_kept,
                  [&](const Kept& window) { return std::ranges::find(items, window.item) != items.end(); });
}

} // namespace vantrel
