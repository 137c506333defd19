#include "VantrelCore/windows/WindowPairing.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>

namespace vantrel::WindowPairing {

namespace {

using Indices = std::vector<std::size_t>;

bool isOpen(const WindowRecord& window) {
    return !window.states.isMinimized && !window.states.isFullscreen;
}

// What is not paired yet.
struct Free {
    std::vector<bool> saved;
    std::vector<bool> live;
};

// Matches the free windows of both lists that take part.
void match(const std::vector<WindowRecord>& saved, const std::vector<LiveWindow>& current,
           const std::function<bool(const WindowRecord&)>& takesPart,
           const std::function<bool(Pairing)>& counts, Free& free, std::vector<MatchResult::Pair>& pairs) {
    Indices savedIndices;
    std::vector<WindowIdentity> savedIdentities;
    for (std::size_t i = 0; i < saved.size(); ++i) {
        if (free.saved[i] && takesPart(saved[i])) {
            savedIndices.push_back(i);
            savedIdentities.emplace_back(saved[i]);
        }
    }
    Indices liveIndices;
    std::vector<WindowIdentity> liveIdentities;
    for (std::size_t i = 0; i < current.size(); ++i) {
        if (free.live[i] && takesPart(current[i].record)) {
            liveIndices.push_back(i);
            liveIdentities.emplace_back(current[i].record);
        }
    }
    for (const auto& pair : WindowMatcher::match(savedIdentities, liveIdentities).pairs) {
        if (counts(pair.by)) {
            pairs.push_back({savedIndices[pair.saved], liveIndices[pair.current], pair.by});
            free.saved[savedIndices[pair.saved]] = false;
            free.live[liveIndices[pair.current]] = false;
        }
    }
}

Indices indicesOf(const std::vector<bool>& flags) {
    Indices indices;
    for (std::size_t i = 0; i < flags.size(); ++i) {
        if (flags[i]) {
            indices.push_back(i);
        }
    }
    return indices;
}

} // namespace

MatchResult pair(const std::vector<WindowRecord>& saved, const Known& known,
                 const std::vector<LiveWindow>& current) {
    std::map<WindowID, std::size_t> living;
    for (std::size_t i = 0; i < current.size(); ++i) {
        living.emplace(current[i].id, i);
    }
    MatchResult result;
    Free free{.saved = std::vector<bool>(saved.size(), true),
              .live = std::vector<bool>(current.size(), true)};
    for (std::size_t i = 0; i < known.size(); ++i) {
        const auto found = known[i] ? living.find(*known[i]) : living.end();
        if (found != living.end() && current[found->second].record.bundleID == saved[i].bundleID) {
            result.pairs.push_back({i, found->second, Pairing::known});
            free.saved[i] = false;
            free.live[found->second] = false;
            living.erase(found);
        }
    }
    match(saved, current, isOpen, [](Pairing) { return true; }, free, result.pairs);
    match(
        saved, current, [](const WindowRecord&) { return true; },
        [](Pairing by) { return by != Pairing::order; }, free, result.pairs);
    std::ranges::sort(result.pairs);
    result.unmatchedSaved = indicesOf(free.saved);
    result.unmatchedCurrent = indicesOf(free.live);
    return result;
}

Known inPlace(const std::vector<WindowRecord>& saved, const Known& known,
              const std::vector<LiveWindow>& current) {
    std::vector<bool> isTaken(current.size());
    Known result(saved.size());
    const auto take = [&](const std::function<bool(std::size_t, std::size_t)>& fits) {
        for (std::size_t s = 0; s < saved.size(); ++s) {
            for (std::size_t c = 0; c < current.size() && !result[s]; ++c) {
                const WindowRecord& live = current[c].record;
                if (!isTaken[c] && live.bundleID == saved[s].bundleID &&
                    approxEqual(live.frame, saved[s].frame, 1.0) && fits(s, c)) {
                    isTaken[c] = true;
                    result[s] = current[c].id;
                }
            }
        }
    };
    take([&](std::size_t s, std::size_t c) { return s < known.size() && known[s] == current[c].id; });
    take([&](std::size_t s, std::size_t c) { return saved[s].title == current[c].record.title; });
    take([](std::size_t, std::size_t) { return true; });
    return result;
}

} // namespace vantrel::WindowPairing
