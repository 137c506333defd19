#include "VantrelCore/scenes/QuickSwitcherStrip.h"

#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

bool matches(const std::string& name, const std::string& filter) {
    const std::string lowered = Unicode::lowercased(name);
    for (std::size_t at = lowered.find(filter); at != std::string::npos; at = lowered.find(filter, at + 1)) {
        if (at == 0 || lowered[at - 1] == ' ' || lowered[at - 1] == '-') {
            return true;
        }
    }
    return false;
}

} // namespace

QuickSwitcherStrip::QuickSwitcherStrip(std::vector<Scene> scenes, const std::vector<std::string>& recent,
                                       const std::optional<std::string>& current)
    : m_scenes(std::move(scenes)), m_current(current) {
    std::ranges::stable_sort(m_scenes, {}, [&](const Scene& scene) {
        return isCurrent(scene) ? -1 : std::ranges::find(recent, scene.id) - recent.begin();
    });
    setFilter("");
    if (m_scenes.size() > 1 && isCurrent(m_scenes.front())) {
        m_selected = 1;
    }
}

std::vector<const Scene*> QuickSwitcherStrip::shown() const {
    std::vector<const Scene*> scenes;
    for (const std::size_t index : m_shown) {
        scenes.push_back(&m_scenes[index]);
    }
    return scenes;
}

std::optional<std::size_t> QuickSwitcherStrip::selected() const {
    return m_shown.empty() ? std::nullopt : std::optional(m_selected);
}

const Scene* QuickSwitcherStrip::selectedScene() const {
    return m_shown.empty() ? nullptr : &m_scenes[m_shown[m_selected]];
}

void QuickSwitcherStrip::go(int steps) {
    if (const auto count = static_cast<int>(m_shown.size()); count > 0) {
        const int target = (static_cast<int>(m_selected) + steps) % count;
        m_selected = static_cast<std::size_t>(target < 0 ? target + count : target);
    }
}

void QuickSwitcherStrip::goToFirst() {
    m_selected = 0;
}

void QuickSwitcherStrip::goToLast() {
    m_selected = m_shown.empty() ? 0 : m_shown.size() - 1;
}

void QuickSwitcherStrip::select(std::size_t index) {
    if (index < m_shown.size()) {
        m_selected = index;
    }
}

void QuickSwitcherStrip::type(std::string_view text) {
    if (m_filter.empty() && text.size() == 1 && text[0] >= '0' && text[0] <= '9') {
        // The tenth scene is reached by 0, the last digit of the row.
        select(text[0] == '0' ? 9 : static_cast<std::size_t>(text[0] - '1'));
    } else if (!m_filter.empty() || text != " ") {
        setFilter(m_filter + Unicode::lowercased(text));
    }
}

void QuickSwitcherStrip::erase() {
    setFilter(std::string(
        Unicode::prefix(m_filter, std::max<std::size_t>(Unicode::characterCount(m_filter), 1) - 1)));
}

void QuickSwitcherStrip::setFilter(std::string filter) {
    const Scene* const former = selectedScene();
    const std::string formerID = former == nullptr ? "" : former->id;
    m_filter = std::move(filter);
    m_shown.clear();
    for (std::size_t index = 0; index < m_scenes.size(); ++index) {
        if (matches(m_scenes[index].name, m_filter)) {
            m_shown.push_back(index);
        }
    }
    const auto kept =
        std::ranges::find(m_shown, formerID, [&](std::size_t index) { return m_scenes[index].id; });
    m_selected = kept == m_shown.end() ? 0 : static_cast<std::size_t>(kept - m_shown.begin());
}

} // namespace vantrel
