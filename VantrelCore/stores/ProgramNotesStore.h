// "notes.json": the program's own notes, on systems whose settings are a file that people edit.
#pragma once

#include "VantrelCore/model/ProgramNotes.h"
#include "VantrelCore/stores/JsonStore.h"

namespace vantrel {

using ProgramNotesStore = JsonStore<ProgramNotes>;

[[nodiscard]] inline std::expected<ProgramNotesStore, std::error_code>
openProgramNotes(const std::filesystem::path& directory, const StoreFiles& files) {
    return ProgramNotesStore::open(directory, "notes.json", files);
}

} // namespace vantrel
