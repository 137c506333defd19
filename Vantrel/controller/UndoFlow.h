// Remembers the desk as it was just before the last restore, and puts it back so when the user wants that.
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

    // A restore has finished, or was abandoned when it had moved windows.
    void remember(const RestoreRequest& request, const RestorePass::Result& result);

    // Brings every window back to where it was, and with it what noteHidden() was told. False when nothing is
    // going to move.
    bool undoLastRestore(const RestoreOutcome::Done& done);

    // The restore that finished last also hid these applications; undo will show them again. To be called in
    // its `done` or later.
    void noteHidden(const std::vector<std::string>& bundleIDs);

private:
    struct Picture {
        UndoSlot slot;
        // The windows of the slot's layout.
        std::vector<AXWindowHandle> handles;
        // As the restore did, so that undo leaves alone what the restore left alone.
        RestoreEngine::Raising raising = RestoreEngine::Raising::leave;
        // What the restore wants done besides.
        std::function<void()> undone;
    };

    void forgetUndone();
    void fill(RestoreRequest& request);
    void prepare(RestoreRequest& request);
    void finish(const RestoreOutcome& outcome);
    void setSlot(std::optional<Picture> picture);

    ControllerContext& m_context;
    RestoreRunner& m_runner;
    // Before the restore that finished last.
    std::optional<Picture> m_latest;
    // Before the last restore that changed anything.
    std::optional<Picture> m_slot;
    bool m_isUndoing = false;
    // Applications that the undo under way has shown again.
    std::size_t m_unhidden = 0;
};

} // namespace vantrel
