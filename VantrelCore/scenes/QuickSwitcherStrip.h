// What the quick switcher shows, as a value: a desk's scenes, the last applied first, those that the typed
// text leaves, and which of them a release applies.
#pragma once

#include "VantrelCore/model/Scene.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

class QuickSwitcherStrip {
public:
    QuickSwitcherStrip() = default;
    // The desk's scenes in the order of `recent`, the ids of applied scenes, newest first; then the others as
    // they are. If the first was the last one applied on this desk, `current`, the second is selected, so
    // that a short press goes back and forth between two scenes.
    QuickSwitcherStrip(std::vector<Scene> scenes, const std::vector<std::string>& recent,
                       const std::optional<std::string>& current);

    [[nodiscard]] bool isEmpty() const { return m_scenes.empty(); }
    // Those that match the filter, in their order.
    [[nodiscard]] std::vector<const Scene*> shown() const;
    // An index of shown(); none when nothing is shown.
    [[nodiscard]] std::optional<std::size_t> selected() const;
    [[nodiscard]] const Scene* selectedScene() const;
    [[nodiscard]] bool isCurrent(const Scene& scene) const { return m_current == scene.id; }
    [[nodiscard]] const std::string& filter() const { return m_filter; }

    // From the last to the first and back.
    void go(int steps);
    void goToFirst();
    void goToLast();
    void select(std::size_t index);
    // Adds to the filter, which matches the beginning of any word of a name, ignoring case. As the first
    // character, a digit selects the scene of that number instead, and a blank is ignored.
    void type(std::string_view text);
    // Takes the filter's last character back.
    void erase();

private:
    void setFilter(std::string filter);

    std::vector<Scene> m_scenes;
    std::optional<std::string> m_current;
    std::string m_filter;
    // Indices of m_scenes.
    std::vector<std::size_t> m_shown;
    std::size_t m_selected = 0;
};

} // namespace vantrel
