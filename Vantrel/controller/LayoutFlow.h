// The named layouts of a desk: switches between them, applies any layout, saves under a new name, renames and
// deletes.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/LayoutChange.h"
#include "Vantrel/controller/LearningFlow.h"
#include "Vantrel/controller/RestoreRunner.h"
#include "Vantrel/controller/SaveOutcome.h"

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

    // Makes a stored layout of this desk the active one and puts its windows back; what the desk looked like
    // goes into the layout that is left, as when a desk is left. False when nothing is going to move. Undoing
    // it makes the former layout the active one again.
    bool switchLayout(const std::string& name, const RestoreOutcome::Done& done);

    // Puts the windows where this layout has them, brought onto the displays at hand when it is another
    // desk's. The active layout stays the active one. False when nothing is going to move.
    bool applyLayout(const Layout& layout, const RestoreOutcome::Done& done);

    // Remembers the desk as it stands under this name and makes that layout the active one. `done` is called
    // once.
    void saveLayoutAs(const std::string& name, std::function<void(const SaveOutcome&)> done);

    [[nodiscard]] LayoutChange rename(const std::string& name, const std::string& newName);
    // Called when a layout of that desk has got another name.
    std::function<void(const std::string& configID, const std::string& name, const std::string& newName)>
        onRenamed = [](const auto&...) {};

    // Gives the current desk a name of the user's, which it keeps.
    [[nodiscard]] LayoutChange renameDesk(const std::string& newName);

    // When it was the active layout, another one becomes active and is put back.
    [[nodiscard]] LayoutChange remove(const std::string& name);

private:
    // The layout that the last switch went away from: what undo makes the active one again.
    struct Left {
        std::string desk;
        // Follows the layout when it is renamed.
        std::string name;
        // As it was then; none when only its name was known.
        std::optional<Layout> layout;
    };

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
