// What the panel asks of the program.
#pragma once

#include "Vantrel/interface/controls/HotKeyRecorder.h"
#include "Vantrel/interface/panel/PanelContent.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct PanelActions {
    // Why something is not possible, as a sentence for the user; none when it was done.
    using Problem = std::optional<std::string>;

    std::function<void(bool)> setEnabled = [](bool) {};
    std::function<Problem(const std::string& name)> renameDesk = [](const auto&) { return std::nullopt; };
    // While the name is typed, as are the others called so.
    std::function<Problem(const std::string& name)> problemWithDeskName = [](const auto&) {
        return std::nullopt;
    };
    // The last argument is what was typed, if the deed needs that.
    std::function<void(PanelContent::Message::Deed, const std::string&)> perform = [](auto, const auto&) {};
    std::function<void(PanelContent::Message::Kind)> dismiss = [](auto) {};

    std::function<void()> restore = [] {};
    std::function<void()> save = [] {};
    std::function<void()> stash = [] {};
    std::function<void()> undo = [] {};

    std::function<void(const std::string& name)> switchLayout = [](const auto&) {};
    std::function<void(const std::string& name)> saveLayoutAs = [](const auto&) {};
    std::function<Problem(const std::string& name)> problemWithLayoutName = [](const auto&) {
        return std::nullopt;
    };
    std::function<void(bool)> setPinned = [](bool) {};

    struct Scenes {
        std::function<void(const std::string& id)> apply = [](const auto&) {};
        std::function<Problem(const std::string& id, const std::string& name)> rename =
            [](const auto&, const auto&) { return std::nullopt; };
        std::function<void(const std::string& id)> update = [](const auto&) {};
        std::function<Problem(const std::string& id)> remove = [](const auto&) { return std::nullopt; };
        // Brings back the scene that was removed last.
        std::function<void()> putBack = [] {};
        std::function<void(const std::string& id, bool)> setPinned = [](const auto&, bool) {};
        std::function<Problem(const std::string& id, std::optional<HotKeyCombo>)> setHotkey =
            [](const auto&, auto) { return std::nullopt; };
        // Saves the desk under this name.
        std::function<void(const std::string& name)> save = [](const auto&) {};
        std::function<Problem(const std::string& name)> problemWithName = [](const auto&) {
            return std::nullopt;
        };
        std::function<Problem(const std::string& id, const std::string& name)> problemWithRename =
            [](const auto&, const auto&) { return std::nullopt; };
    };
    Scenes scenes{};
    HotKeyRecorder::KeyReader keyCode = [](const QKeyEvent&) { return std::nullopt; };
    std::function<std::vector<TakenHotKey>()> takenHotKeys = [] { return std::vector<TakenHotKey>(); };

    // Null while these windows do not exist; their entries are then left out.
    std::function<void()> openWorkbench{};
    std::function<void()> openSettings{};
    std::function<void()> showHistory{};
    std::function<void()> openIntroduction{};
    std::function<void()> quit = [] {};
};

} // namespace vantrel
