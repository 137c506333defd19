// Keeps what is known about live windows in a file of its own for as long as the session lasts, so that a
// restart of this program goes on pairing windows by identity. A new session starts without notes.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "VantrelCore/stores/SessionNotesStore.h"

namespace vantrel {

class SessionNotesFlow {
public:
    // Takes over the notes of an earlier run in the same session. The store outlives this object.
    SessionNotesFlow(ControllerContext& context, SessionNotesStore& store);

    // Writes the notes in the background if they have changed.
    void keep();

private:
    ControllerContext& m_context;
    SessionNotesStore& m_store;
};

} // namespace vantrel
