#include "Vantrel/controller/SessionNotesFlow.h"

#include <tuple>
#include <utility>

namespace vantrel {

SessionNotesFlow::SessionNotesFlow(ControllerContext& context, SessionNotesStore& store)
    : m_context(context), m_store(store) {
    const auto session = m_context.ports.desk.session();
    const SessionNotes& notes = m_store.load();
    if (session && notes.session == *session) {
        m_context.notes.adopt(notes);
        m_context.strays.adopt(notes);
        m_context.normalFrames.adopt(notes);
        m_context.log("session notes: taken over from the last run");
    }
}

void SessionNotesFlow::keep() {
    const auto session = m_context.ports.desk.session();
    if (!session) {
        return;
    }
    SessionNotes notes{.session = *session, .arrangements = {}, .strays = {}, .normalFrames = {}};
    m_context.notes.keepIn(notes);
    m_context.strays.keepIn(notes);
    m_context.normalFrames.keepIn(notes);
    if (notes != m_store.load()) {
        std::ignore = m_store.write(std::move(notes), Saving::later());
    }
}

} // namespace vantrel
