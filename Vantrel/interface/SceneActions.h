// The scene operations of the panel and the workbench.
#pragma once

#include "Vantrel/controller/AppController.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel {

struct SceneActions {
    // The sentence that says why something is not possible, or none if it was done.
    using Problem = std::optional<std::string>;

    std::function<void(const std::string& id)> apply = [](const auto&) {};
    std::function<Problem(const std::string& id, const std::string& name)> rename =
        [](const auto&, const auto&) { return std::nullopt; };
    std::function<void(const std::string& id)> update = [](const auto&) {};
    std::function<Problem(const std::string& id)> remove = [](const auto&) { return std::nullopt; };
    std::function<void(const std::string& id)> duplicate = [](const auto&) {};
    // Among the scenes of its desk.
    std::function<void(const std::string& id, std::size_t position)> move = [](const auto&, std::size_t) {};
    // Brings back the scene that was removed last.
    std::function<void()> putBack = [] {};
    std::function<void(const std::string& id, bool)> setPinned = [](const auto&, bool) {};
    std::function<void(const std::string& id, bool)> setOpensMissingApps = [](const auto&, bool) {};
    std::function<Problem(const std::string& id, std::optional<HotKeyCombo>)> setHotkey =
        [](const auto&, auto) { return std::nullopt; };
    // Saves the desk under this name.
    std::function<void(const std::string& name)> save = [](const auto&) {};
    // Called while the user types the name.
    std::function<Problem(const std::string& name)> problemWithName = [](const auto&) {
        return std::nullopt;
    };
    std::function<Problem(const std::string& id, const std::string& name)> problemWithRename =
        [](const auto&, const auto&) { return std::nullopt; };

    // Shows the outcome of a request.
    using Tell = std::function<void(const std::string& text, bool isProblem)>;
    // The words for a problem, which differ from place to place.
    using Words = std::string_view (*)(SceneProblem);

    // `tell` is called only while `alive` exists; `names` words the problems with typed names.
    [[nodiscard]] static SceneActions of(AppController& controller, const std::weak_ptr<bool>& alive,
                                         const Tell& tell, Words names = SceneProblems::panelText);
};

// Says why a restore did not happen, only while `alive` exists.
[[nodiscard]] RestoreOutcome::Done tellRefusal(const std::weak_ptr<bool>& alive,
                                               const SceneActions::Tell& tell);

} // namespace vantrel
