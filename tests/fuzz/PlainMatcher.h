// The window matcher's rules read word by word: every pair of windows is looked at. Slow, and the measure
// of the fast one.
#pragma once

#include "VantrelCore/text/Unicode.h"
#include "VantrelCore/windows/WindowMatcher.h"

#include <algorithm>
#include <functional>
#include <set>
#include <string>

namespace vantrel::PlainMatcher {

inline std::vector<std::string> lowerCaseCharacters(std::string_view title) {
    const std::string lower = Unicode::lowercased(title);
    std::vector<std::string> characters;
    std::size_t start = 0;
    for (const std::size_t end : Unicode::characterEnds(lower)) {
        characters.push_back(lower.substr(start, end - start));
        start = end;
    }
    return characters;
}

inline bool isNear(std::string_view savedTitle, std::string_view currentTitle) {
    const auto a = lowerCaseCharacters(savedTitle);
    const auto b = lowerCaseCharacters(currentTitle);
    if (a.size() < 4 || b.size() < 4) {
        return false;
    }
    const std::size_t shorter = std::min(a.size(), b.size());
    const auto common = static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
    return (common == shorter && shorter >= 8) || common >= 10;
}

inline MatchResult match(const std::vector<WindowIdentity>& saved,
                         const std::vector<WindowIdentity>& current) {
    const auto frontToBack = [](const std::vector<WindowIdentity>& windows) {
        std::vector<std::size_t> order(windows.size());
        for (std::size_t i = 0; i < order.size(); ++i) {
            order[i] = i;
        }
        std::ranges::stable_sort(order, {}, [&](std::size_t i) { return windows[i].zOrder; });
        return order;
    };
    const auto savedOrder = frontToBack(saved);
    const auto currentOrder = frontToBack(current);
    std::set<std::size_t> usedSaved;
    std::set<std::size_t> usedCurrent;
    MatchResult result;
    const auto pass = [&](Pairing by, const std::function<bool(std::string_view, std::string_view)>& fits) {
        for (const std::size_t s : savedOrder) {
            for (const std::size_t c : currentOrder) {
                if (!usedSaved.contains(s) && !usedCurrent.contains(c) &&
                    saved[s].bundleID == current[c].bundleID && fits(saved[s].title, current[c].title)) {
                    usedSaved.insert(s);
                    usedCurrent.insert(c);
                    result.pairs.push_back({s, c, by});
                }
            }
        }
    };
    pass(Pairing::sameTitle, std::equal_to<>());
    pass(Pairing::nearTitle, isNear);
    pass(Pairing::order, [](std::string_view, std::string_view) { return true; });

    std::ranges::sort(result.pairs);
    for (std::size_t s = 0; s < saved.size(); ++s) {
        if (!usedSaved.contains(s)) {
            result.unmatchedSaved.push_back(s);
        }
    }
    for (std::size_t c = 0; c < current.size(); ++c) {
        if (!usedCurrent.contains(c)) {
            result.unmatchedCurrent.push_back(c);
        }
    }
    return result;
}

} // namespace vantrel::PlainMatcher
