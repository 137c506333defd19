// The named layouts of desks: switches between those of this desk, applies any layout, saves under a new
// name, renames, pins and deletes.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/LayoutChange.h"
#include "Vantrel/controller/LearningFlow.h"
#include "Vantrel/controller/RestoreRunner.h"
#include "Vantrel/controller/SaveOutcome.h"

#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace vantrel {

class LayoutFlow {
public:
    // In user-perceived characters.
    static constexpr std::size_t maxNameLength = 60;

    LayoutFlow(ControllerContext& context, LearningFlow& learning, RestoreRunner& runner)
        : m_context(context), m_learning(learning), m_runner(runner) {}

    // Makes a stored layout of this desk the active one and restores its windows. The layout being left keeps
    // the latest capture, as when a desk is left. Returns false when nothing is going to move. Undo makes the
    // former layout active again.
    bool switchLayout(const std::string& name, const RestoreOutcome::Done& done);

    // Moves the windows to their places in this layout, translated to the current displays if it is another
    // desk's. The active layout does not change. Returns false when nothing is going to move.
    bool applyLayout(const Layout& layout, const RestoreOutcome::Done& done);

    // Why the desk cannot be saved under this name; none if it can.
    [[nodiscard]] std::optional<SaveOutcome> problemWithNewName(const std::string& name) const;
    // Saves the desk under this name and makes that layout the active one. `done` is called once.
    void saveLayoutAs(const std::string& name, std::function<void(const SaveOutcome&)> done);

    // The name as it is stored, or none when it is invalid. The same rules hold for names of desks.
    [[nodiscard]] static std::optional<std::string> validName(const std::string& name);

    // These take any remembered desk; without one, they mean the current desk.
    [[nodiscard]] LayoutChange rename(const std::string& configID, const std::string& name,
                                      const std::string& newName);
    [[nodiscard]] LayoutChange rename(const std::string& name, const std::string& newName) {
        return rename(m_context.state().configID, name, newName);
    }
    // Called when a layout of that desk has been renamed.
    std::function<void(const std::string& configID, const std::string& name, const std::string& newName)>
        onRenamed = [](const auto&...) {};

    // If the layout was active, another one becomes active, and is restored if the desk is the current one.
    // RecentDeletions can undo the removal and then restores the layout's windows.
    [[nodiscard]] LayoutChange remove(const std::string& configID, const std::string& name);
    [[nodiscard]] LayoutChange remove(const std::string& name) {
        return remove(m_context.state().configID, name);
    }

    // A pinned layout is not overwritten by learning, and while it is active on the current desk, it is
    // restored when the windows drift from it.
    [[nodiscard]] LayoutChange setPinned(bool isPinned, const std::string& configID, const std::string& name);
    // Called when a layout has been pinned, even if it was pinned before.
    std::function<void(const std::string& configID, const std::string& name)> onPinned = [](const auto&...) {
    };

    // Restores the active layout of this desk, as if it had just been switched to, unless windows may not be
    // moved now.
    void restoreActiveLayout();

private:
    // The layout that the last switch left; undo makes it active again.
    struct Left {
        std::string desk;
        // Follows the layout when it is renamed.
        std::string name;
        // The layout at that time; none when only its name was known.
        std::optional<Layout> layout;
    };

    struct Deleted {
        Layout layout;
        bool wasActive = false;
        // The desk had no other layout. It then learns one at once, under the default name.
        bool wasOnlyOne = false;
    };

    std::expected<void, std::string> putBack(const Deleted& deleted);
    [[nodiscard]] SaveOutcome store(Layout layout, const std::string& name);
    // False when no layout is active.
    bool restoreActive(std::function<void()> undone, const RestoreOutcome::Done& done);
    void returnTo(const Left& left);
    void layoutsChanged();

    ControllerContext& m_context;
    LearningFlow& m_learning;
    RestoreRunner& m_runner;
    std::shared_ptr<Left> m_left;
};

} // namespace vantrel
