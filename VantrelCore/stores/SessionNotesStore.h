// "session.json": which live window is which remembered one, for the running session.
#pragma once

#include "VantrelCore/model/SessionNotes.h"
#include "VantrelCore/stores/JsonStore.h"

namespace vantrel {

using SessionNotesStore = JsonStore<SessionNotes>;

// A file that cannot be used is not worth telling anybody about: the notes are made anew.
[[nodiscard]] inline std::expected<SessionNotesStore, std::error_code>
openSessionNotes(const std::filesystem::path& directory, const StoreFiles& files) {
    return SessionNotesStore::open(directory, "session.json",
                                   StoreFiles(files.files(), nullptr, files.writer()));
}

} // namespace vantrel
