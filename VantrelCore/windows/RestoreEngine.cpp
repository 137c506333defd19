#include "VantrelCore/windows/RestoreEngine.h"

#include "VantrelCore/windows/RestoreOrder.h"
#include "VantrelCore/windows/WindowMatcher.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <utility>

namespace vantrel::RestoreEngine {

namespace {

using Kind = RestoreReport::Kind;
using Outcome = RestoreReport::Outcome;
using Pairs = std::vector<MatchResult::Pair>;

void placeSizeFirst(const Rect& target, const AXWindowHandle& handle, Sizes sizes) {
    if (sizes == Sizes::restore) {
        handle.setFrameSizeFirst(target);
    } else {
        handle.setPosition(target.origin);
    }
}

Outcome restoreOne(const Rect& target, const AXWindowHandle& handle, Sizes sizes, bool isStubborn,
                   Clock& clock) {
    if (!place(target, handle, sizes)) {
        return {Kind::failed, "app rejected the move"};
    }
    if (isReached(handle.frame(), target, sizes)) {
        return {Kind::restored, ""};
    }
    for (const Attempt attempt : attemptPlan(isStubborn)) {
        if (attempt == Attempt::settle) {
            clock.sleep(settleSeconds);
            continue;
        }
        if (attempt == Attempt::place) {
            place(target, handle, sizes);
        } else {
            placeSizeFirst(target, handle, sizes);
        }
        if (isReached(handle.frame(), target, sizes)) {
            return {Kind::retried, ""};
        }
    }
    return {Kind::failed, driftedReason};
}

RestoreReport::Item itemFor(const WindowRecord& saved, Outcome outcome) {
    return {saved.appName, saved.bundleID, saved.title, std::move(outcome)};
}

Pairs backToFront(Pairs pairs, const std::vector<WindowRecord>& saved) {
    std::ranges::stable_sort(pairs, [&](const MatchResult::Pair& a, const MatchResult::Pair& b) {
        return saved[a.saved].zOrder > saved[b.saved].zOrder;
    });
    return pairs;
}

// Raises the back-most saved window first, so that the front-most one ends up on top.
void raiseInOrder(const Pairs& pairs, const std::vector<WindowRecord>& saved,
                  const std::vector<CurrentWindow>& current) {
    for (const auto& pair : backToFront(pairs, saved)) {
        current[pair.current].handle.raise();
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

MatchResult match(const std::vector<WindowRecord>& saved, const std::vector<CurrentWindow>& current) {
    std::vector<WindowIdentity> savedIdentities;
    savedIdentities.reserve(saved.size());
    for (const auto& record : saved) {
        savedIdentities.emplace_back(record);
    }
    std::vector<WindowIdentity> currentIdentities;
    currentIdentities.reserve(current.size());
    for (const auto& window : current) {
        currentIdentities.emplace_back(window.record);
    }
    return WindowMatcher::match(savedIdentities, currentIdentities);
}

std::vector<Attempt> attemptPlan(bool isStubborn) {
    if (isStubborn) {
        return {Attempt::settle, Attempt::placeSizeFirst};
    }
    return {Attempt::place, Attempt::settle, Attempt::placeSizeFirst};
}

bool isInPlace(const Layout& layout, const std::vector<CurrentWindow>& current, const MatchResult& matched,
               const Options& options) {
    const bool haveArrived = std::ranges::all_of(matched.pairs, [&](const MatchResult::Pair& pair) {
        return isReached(current[pair.current].record.frame, layout.windows[pair.saved].frame, options.sizes);
    });
    if (options.raising == Raising::leave || !haveArrived) {
        return haveArrived;
    }
    std::vector<std::int64_t> orders;
    for (const auto& pair : backToFront(matched.pairs, layout.windows)) {
        orders.push_back(current[pair.current].record.zOrder);
    }
    return std::ranges::is_sorted(orders, std::ranges::greater{}) &&
           (orders.empty() || std::cmp_less(orders.front(), orders.size()));
}

RestoreReport restore(const Layout& layout, const std::vector<CurrentWindow>& current, const Options& options,
                      Clock& clock, Background& background) {
    return restore(layout, current, match(layout.windows, current), options, clock, background);
}

RestoreReport restore(const Layout& layout, const std::vector<CurrentWindow>& current,
                      const MatchResult& matched, const Options& options, Clock& clock,
                      Background& background) {
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
    std::mutex itemsLock;
    const auto restoreApp = [&](const std::string& bundleID) {
        const bool isStubborn = options.stubbornBundleIDs.contains(bundleID);
        // Several processes may share the identifier.
        std::vector<std::shared_ptr<void>> moves;
        for (const auto& pair : pairsByApp.at(bundleID)) {
            moves.push_back(current[pair.current].handle.beginMoves());
        }
        for (const auto& pair : pairsByApp.at(bundleID)) {
            const WindowRecord& saved = layout.windows[pair.saved];
            auto item = itemFor(saved, restoreOne(saved.frame, current[pair.current].handle, options.sizes,
                                                  isStubborn, clock));
            const std::scoped_lock lock(itemsLock);
            report.items.push_back(std::move(item));
        }
    };
    for (const auto& wave : RestoreOrder::waves(bundleIDs, options.restoreLast)) {
        background.concurrentPerform(wave.size(), [&](std::size_t index) { restoreApp(wave[index]); });
    }

    if (options.raising == Raising::raise) {
        raiseInOrder(matched.pairs, layout.windows, current);
    }
    for (const std::size_t index : matched.unmatchedSaved) {
        report.items.push_back(itemFor(layout.windows[index], {Kind::skipped, goneReason}));
    }
    report.elapsed = clock.monotonicSeconds() - start;
    return report;
}

bool place(const Rect& target, const AXWindowHandle& handle, Sizes sizes) {
    return sizes == Sizes::restore ? handle.setFrame(target) : handle.setPosition(target.origin);
}

} // namespace vantrel::RestoreEngine
