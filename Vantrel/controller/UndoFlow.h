// Records the desk just before the last restore, and returns to it on request.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/RestoreRunner.h"
#include "VantrelCore/model/UndoSlot.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

class UndoFlow {
public:
    UndoFlow(ControllerContext& context, RestoreRunner& runner) : m_context(context), m_runner(runner) {}

    // Called when a restore has finished, or was abandoned after it had moved windows.
    void remember(const RestoreRequest& request, const RestoreCallbacks& callbacks,
                  const RestorePass::Result& result);

    // Moves every window back and shows the applications passed to noteHidden(). Returns false when nothing
    // is going to move.
    bool undoLastRestore(const RestoreOutcome::Done& done);

    // Records applications that the last finished restore also hid, so that undo shows them again. Call in
    // its `done` or later.
    void noteHidden(const std::vector<std::string>& bundleIDs);

    // The desk has a new identifier, and so have its displays.
    void moveDesk(const std::string& from, const std::string& to, const std::vector<DisplayInfo>& displays);

private:
    struct Picture {
        UndoSlot slot;
        // The windows of the slot's layout.
        std::vector<WindowID> windows;
        // As in the restore, so that undo does not raise windows if the restore did not.
        RestoreEngine::Raising raising = RestoreEngine::Raising::leave;
        // Additional work to do after the undo, set by the restore.
        std::function<void()> undone;
    };

    void forgetUndone();
    void fill(RestoreRequest& request);
    void prepare(RestoreRequest& request);
    void finish(const RestoreOutcome& outcome);
    void setSlot(std::optional<Picture> picture);

    ControllerContext& m_context;
    RestoreRunner& m_runner;
    // The desk before the last finished restore.
    std::optional<Picture> m_latest;
    // The desk before the last restore that changed anything.
    std::optional<Picture> m_slot;
    bool m_isUndoing = false;
    // The number of applications that the running undo has shown again.
    std::size_t m_unhidden = 0;
};

} // namespace vantrel
