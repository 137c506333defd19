#include "VantrelCore/windows/WindowMatcher.h"

#include "VantrelCore/windows/NearTitle.h"

#include <algorithm>
#include <unordered_map>

namespace vantrel::WindowMatcher {

namespace {

using Identities = std::vector<WindowIdentity>;
using Indices = std::vector<std::size_t>;

struct AppWindows {
    Indices saved;
    Indices current;
};

std::vector<AppWindows> byApplication(const Identities& saved, const Identities& current) {
    std::vector<AppWindows> apps;
    std::unordered_map<std::string_view, std::size_t> appOf;
    const auto windowsOf = [&](std::string_view bundleID) -> AppWindows& {
        const auto [found, isNew] = appOf.try_emplace(bundleID, apps.size());
        if (isNew) {
            apps.emplace_back();
        }
        return apps[found->second];
    };
    for (std::size_t i = 0; i < saved.size(); ++i) {
        windowsOf(saved[i].bundleID).saved.push_back(i);
    }
    for (std::size_t i = 0; i < current.size(); ++i) {
        windowsOf(current[i].bundleID).current.push_back(i);
    }
    return apps;
}

void sortFrontToBack(Indices& indices, const Identities& windows) {
    std::ranges::stable_sort(indices, {}, [&](std::size_t index) { return windows[index].zOrder; });
}

// The windows of one application, front to back, and which are paired. Positions index these lists.
class Matching {
public:
    Matching(const Identities& saved, const Identities& current, AppWindows app)
        : m_saved(saved), m_current(current), m_app(std::move(app)), m_isSavedTaken(m_app.saved.size()),
          m_isCurrentTaken(m_app.current.size()) {
        sortFrontToBack(m_app.saved, saved);
        sortFrontToBack(m_app.current, current);
    }

    std::vector<MatchResult::Pair> pairs() {
        pairExactTitles();
        if (!isFinished()) {
            pairNearTitles();
        }
        pairInOrder();
        return std::move(m_pairs);
    }

private:
    [[nodiscard]] bool isFinished() const {
        return m_pairs.size() == std::min(m_app.saved.size(), m_app.current.size());
    }

    void pair(std::size_t savedPosition, std::size_t currentPosition, Pairing by) {
        m_isSavedTaken[savedPosition] = true;
        m_isCurrentTaken[currentPosition] = true;
        m_pairs.push_back({m_app.saved[savedPosition], m_app.current[currentPosition], by});
    }

    void pairExactTitles() {
        TitleBuckets titles(m_app.current.size());
        for (std::size_t c = m_app.current.size(); c-- > 0;) {
            titles.add(m_current[m_app.current[c]].title, c);
        }
        for (std::size_t s = 0; s < m_app.saved.size(); ++s) {
            const auto c = titles.firstFree(m_saved[m_app.saved[s]].title, m_isCurrentTaken);
            if (c != TitleBuckets::none) {
                pair(s, c, Pairing::sameTitle);
            }
        }
    }

    void pairNearTitles() {
        std::vector<NearTitle> titles;
        titles.reserve(m_app.current.size() - m_pairs.size());
        NearTitleIndex index(m_app.current.size());
        for (std::size_t c = m_app.current.size(); c-- > 0;) {
            if (!m_isCurrentTaken[c]) {
                index.add(titles.emplace_back(m_current[m_app.current[c]].title), c);
            }
        }
        for (std::size_t s = 0; s < m_app.saved.size() && !isFinished(); ++s) {
            if (m_isSavedTaken[s]) {
                continue;
            }
            const auto c = index.firstFree(NearTitle(m_saved[m_app.saved[s]].title), m_isCurrentTaken);
            if (c != TitleBuckets::none) {
                pair(s, c, Pairing::nearTitle);
            }
        }
    }

    void pairInOrder() {
        std::size_t c = 0;
        for (std::size_t s = 0; s < m_app.saved.size() && !isFinished(); ++s) {
            if (m_isSavedTaken[s]) {
                continue;
            }
            while (m_isCurrentTaken[c]) {
                ++c;
            }
            pair(s, c, Pairing::order);
        }
    }

    const Identities& m_saved;
    const Identities& m_current;
    AppWindows m_app;
    std::vector<bool> m_isSavedTaken;
    std::vector<bool> m_isCurrentTaken;
    std::vector<MatchResult::Pair> m_pairs;
};

Indices unmatched(std::size_t count, const std::vector<MatchResult::Pair>& pairs,
                  std::size_t MatchResult::Pair::* side) {
    std::vector<bool> isMatched(count);
    for (const auto& pair : pairs) {
        isMatched[pair.*side] = true;
    }
    Indices result;
    for (std::size_t i = 0; i < count; ++i) {
        if (!isMatched[i]) {
            result.push_back(i);
        }
    }
    return result;
}

} // namespace

MatchResult match(const Identities& saved, const Identities& current) {
    MatchResult result;
    for (auto& app : byApplication(saved, current)) {
        const auto pairs = Matching(saved, current, std::move(app)).pairs();
        result.pairs.insert(result.pairs.end(), pairs.begin(), pairs.end());
    }
    std::ranges::sort(result.pairs);
    result.unmatchedSaved = unmatched(saved.size(), result.pairs, &MatchResult::Pair::saved);
    result.unmatchedCurrent = unmatched(current.size(), result.pairs, &MatchResult::Pair::current);
    return result;
}

} // namespace vantrel::WindowMatcher
