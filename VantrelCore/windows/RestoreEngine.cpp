#include "VantrelCore/windows/RestoreEngine.h"

#include "VantrelCore/windows/StackingPlan.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <utility>

namespace vantrel::RestoreEngine {

namespace {

using Kind = RestoreReport::Kind;
using Outcome = RestoreReport::Outcome;
using Pairs = std::vector<MatchResult::Pair>;

constexpr const char* rejectedReason = marked("app rejected the move");

RestoreReport::Item itemFor(const Layout& layout, std::size_t index, Outcome outcome) {
    const WindowRecord& saved = layout.windows[index];
    return {.appName = saved.appName,
            .bundleID = saved.bundleID,
            .title = saved.title,
            .outcome = std::move(outcome),
            .saved = index,
            .move = std::nullopt};
}

Pairs backToFront(Pairs pairs, const std::vector<WindowRecord>& saved) {
    std::ranges::stable_sort(pairs, [&](const MatchResult::Pair& a, const MatchResult::Pair& b) {
        return saved[a.saved].zOrder > saved[b.saved].zOrder;
    });
    return pairs;
}

// The windows that are moved, checked and tried again together.
class Wave {
public:
    Wave(const Options& options, Desk& desk, const MovePermit& permit, Clock& clock)
        : m_options(options), m_desk(desk), m_permit(permit), m_clock(clock) {}

    void add(const Layout& layout, const MatchResult::Pair& pair, const LiveWindow& live) {
        m_strays.push_back(m_items.size());
        m_items.push_back(itemFor(layout, pair.saved, {Kind::failed, driftedReason}));
        m_items.back().move =
            RestoreReport::Move{.window = live.id,
                                .by = pair.by,
                                .from = live.record.frame,
                                .target = layout.windows[pair.saved].frame,
                                .achieved = std::nullopt,
                                .place = PlaceTarget::of(layout.windows[pair.saved], live.record)};
    }

    std::vector<RestoreReport::Item> restore() {
        for (const std::size_t rejected :
             move(m_strays, WindowOrder::Sequence::positionFirst, Kind::restored)) {
            m_items[rejected].outcome = {Kind::failed, rejectedReason};
            std::erase(m_strays, rejected);
        }
        // The plan of a stubborn application leaves out attempts of the ordinary one.
        for (const Attempt attempt : attemptPlan(false)) {
            tryAgain(attempt);
        }
        return std::move(m_items);
    }

private:
    // Those that stray are moved as their plans provide.
    void tryAgain(Attempt attempt) {
        std::vector<std::size_t> strays = m_strays;
        std::erase_if(strays, [&](std::size_t index) {
            const auto plan = attemptPlan(m_options.stubbornBundleIDs.contains(m_items[index].bundleID));
            return std::ranges::find(plan, attempt) == plan.end();
        });
        if (strays.empty()) {
            return;
        }
        if (attempt == Attempt::settle) {
            m_clock.sleep(settleSeconds);
        } else {
            move(strays,
                 attempt == Attempt::place ? WindowOrder::Sequence::positionFirst
                                           : WindowOrder::Sequence::sizeFirst,
                 Kind::retried);
        }
    }

    // Items of windows that arrive get `success`. Returns those whose windows rejected the move.
    std::vector<std::size_t> move(std::vector<std::size_t> items, WindowOrder::Sequence sequence,
                                  Kind success) {
        std::vector<WindowOrder> orders;
        for (const std::size_t index : items) {
            const RestoreReport::Move& move = *m_items[index].move;
            orders.push_back(place(move.window, move.target, m_options.sizes));
            orders.back().sequence = sequence;
            orders.back().place = move.place;
        }
        auto outcomes = m_desk.arrange(orders, m_permit);
        if (success == Kind::retried) {
            lookAtRejected(orders, outcomes);
        }
        std::vector<std::size_t> rejected;
        for (std::size_t i = 0; i < items.size(); ++i) {
            RestoreReport::Item& item = m_items[items[i]];
            item.move->achieved = outcomes[i].frame;
            if (outcomes[i].hasPlace && isReached(outcomes[i].frame, item.move->target, m_options.sizes)) {
                item.outcome = {success, ""};
                std::erase(m_strays, items[i]);
            } else if (outcomes[i].isTiled) {
                item.outcome = {Kind::skipped, tiledReason};
                std::erase(m_strays, items[i]);
            } else if (!outcomes[i].isTaken) {
                rejected.push_back(items[i]);
            }
        }
        return rejected;
    }

    // A window may have arrived although a later move was rejected.
    void lookAtRejected(const std::vector<WindowOrder>& orders, std::vector<WindowOutcome>& outcomes) {
        std::vector<WindowID> rejected;
        std::vector<std::size_t> indices;
        for (std::size_t i = 0; i < orders.size(); ++i) {
            if (!outcomes[i].isTaken) {
                rejected.push_back(orders[i].window);
                indices.push_back(i);
            }
        }
        if (rejected.empty() || m_permit.isRevoked()) {
            return;
        }
        const auto windows = m_desk.look(rejected);
        for (std::size_t i = 0; i < indices.size(); ++i) {
            const auto& place = orders[indices[i]].place;
            outcomes[indices[i]].frame = windows[i] ? windows[i]->frame : std::nullopt;
            outcomes[indices[i]].hasPlace =
                windows[i] && (!place || place->isReached(windows[i]->states, windows[i]->desktop));
        }
    }

    const Options& m_options;
    Desk& m_desk;
    const MovePermit& m_permit;
    Clock& m_clock;
    std::vector<RestoreReport::Item> m_items;
    // The items whose windows have not arrived.
    std::vector<std::size_t> m_strays;
};

// The back-most saved window first, so that the front-most one ends on top.
void raiseInOrder(const Pairs& pairs, const std::vector<WindowRecord>& saved,
                  const std::vector<LiveWindow>& current, Desk& desk, const MovePermit& permit) {
    std::vector<WindowOrder> orders;
    for (const auto& pair : backToFront(pairs, saved)) {
        if (current[pair.current].isVisible) {
            orders.push_back({.window = current[pair.current].id, .target = {}, .raises = true});
        }
    }
    static_cast<void>(desk.arrange(orders, permit));
}

void restackMoved(const RestoreReport& report, const std::vector<WindowRecord>& saved,
                  const std::vector<LiveWindow>& current, Desk& desk, const MovePermit& permit) {
    std::vector<WindowID> stack;
    for (const LiveWindow& window : current) {
        if (window.isVisible) {
            stack.push_back(window.id);
        }
    }
    std::vector<const RestoreReport::Item*> moved;
    for (const RestoreReport::Item& item : report.items) {
        if (item.move && item.move->hasMoved()) {
            moved.push_back(&item);
        }
    }
    std::ranges::stable_sort(moved, {},
                             [&](const RestoreReport::Item* item) { return saved[*item->saved].zOrder; });
    std::vector<WindowID> wanted;
    std::ranges::transform(moved, std::back_inserter(wanted),
                           [](const RestoreReport::Item* item) { return item->move->window; });
    std::vector<WindowOrder> orders;
    for (const auto& [window, sibling] : StackingPlan::steps(std::move(stack), std::move(wanted))) {
        orders.push_back({.window = window, .target = {}, .inFrontOf = sibling});
    }
    if (!orders.empty()) {
        static_cast<void>(desk.arrange(orders, permit));
    }
}

} // namespace

bool isReached(const std::optional<Rect>& frame, const Rect& target, Sizes sizes) {
    if (!frame) {
        return false;
    }
    const Size size = sizes == Sizes::restore ? frame->size : target.size;
    return approxEqual({frame->origin, size}, target, tolerance);
}

std::vector<Attempt> attemptPlan(bool isStubborn) {
    if (isStubborn) {
        return {Attempt::settle, Attempt::placeSizeFirst};
    }
    return {Attempt::place, Attempt::settle, Attempt::placeSizeFirst};
}

bool isInPlace(const Layout& layout, const std::vector<LiveWindow>& current, const MatchResult& matched,
               const Options& options) {
    const bool haveArrived = std::ranges::all_of(matched.pairs, [&](const MatchResult::Pair& pair) {
        const WindowRecord& live = current[pair.current].record;
        const WindowRecord& saved = layout.windows[pair.saved];
        const auto place = PlaceTarget::of(saved, live);
        return isReached(live.frame, saved.frame, options.sizes) &&
               (!place || place->isReached(live.states, live.desktop));
    });
    if (options.raising != Raising::raise || !haveArrived) {
        return haveArrived;
    }
    std::vector<std::int64_t> orders;
    for (const auto& pair : backToFront(matched.pairs, layout.windows)) {
        if (current[pair.current].isVisible) {
            orders.push_back(current[pair.current].record.zOrder);
        }
    }
    return std::ranges::is_sorted(orders, std::ranges::greater{}) &&
           (orders.empty() || std::cmp_less(orders.front(), orders.size()));
}

RestoreReport restore(const Layout& layout, const std::vector<LiveWindow>& current,
                      const MatchResult& matched, const Options& options, Desk& desk,
                      const MovePermit& permit, Clock& clock) {
    const double start = clock.monotonicSeconds();
    std::map<std::string, Pairs> pairsByApp;
    for (const auto& pair : matched.pairs) {
        pairsByApp[layout.windows[pair.saved].bundleID].push_back(pair);
    }
    std::vector<std::string> bundleIDs;
    bundleIDs.reserve(pairsByApp.size());
    for (const auto& [bundleID, pairs] : pairsByApp) {
        bundleIDs.push_back(bundleID);
    }

    RestoreReport report;
    report.items.reserve(layout.windows.size());
    for (const auto& apps : RestoreOrder::waves(bundleIDs, options.restoreLast)) {
        Wave wave(options, desk, permit, clock);
        for (const std::string& app : apps) {
            for (const auto& pair : pairsByApp.at(app)) {
                wave.add(layout, pair, current[pair.current]);
            }
        }
        std::ranges::move(wave.restore(), std::back_inserter(report.items));
    }
    if (options.raising == Raising::raise) {
        raiseInOrder(matched.pairs, layout.windows, current, desk, permit);
    } else if (options.raising == Raising::amongMoved) {
        restackMoved(report, layout.windows, current, desk, permit);
    }
    for (const std::size_t index : matched.unmatchedSaved) {
        report.items.push_back(itemFor(layout, index, {Kind::skipped, goneReason}));
    }
    report.elapsed = clock.monotonicSeconds() - start;
    return report;
}

WindowOrder place(WindowID window, const Rect& target, Sizes sizes) {
    WindowOrder order{.window = window, .target = {.position = target.origin}};
    if (sizes == Sizes::restore) {
        order.target.size = target.size;
    }
    return order;
}

} // namespace vantrel::RestoreEngine

namespace vantrel::RestoreOrder {

std::vector<std::vector<std::string>> waves(const std::vector<std::string>& bundleIDs,
                                            const std::set<std::string>& restoreLast) {
    std::vector<std::string> first;
    std::vector<std::string> last;
    for (const auto& bundleID : bundleIDs) {
        (restoreLast.contains(bundleID) ? last : first).push_back(bundleID);
    }
    std::vector<std::vector<std::string>> result;
    for (auto* wave : {&first, &last}) {
        if (!wave->empty()) {
            result.push_back(std::move(*wave));
        }
    }
    return result;
}

} // namespace vantrel::RestoreOrder
