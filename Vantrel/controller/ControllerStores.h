// All stores that the controller keeps.
#pragma once

#include "VantrelCore/stores/AppReliabilityStore.h"
#include "VantrelCore/stores/AppSizeBehaviorStore.h"
#include "VantrelCore/stores/LayoutStore.h"
#include "VantrelCore/stores/RestoreLogStore.h"
#include "VantrelCore/stores/RestoreReceiptsStore.h"
#include "VantrelCore/stores/SceneStore.h"
#include "VantrelCore/stores/SessionNotesStore.h"
#include "VantrelCore/stores/StashStore.h"
#include "VantrelCore/stores/TriggerStore.h"
#include "VantrelCore/stores/UsageStatsStore.h"

#include <expected>
#include <filesystem>
#include <system_error>

namespace vantrel {

struct ControllerStores {
    LayoutStore layouts;
    SceneStore scenes;
    TriggerStore triggers;
    RestoreLogStore restoreLog;
    RestoreReceiptsStore receipts;
    UsageStatsStore usage;
    AppReliabilityStore reliability;
    AppSizeBehaviorStore sizeBehavior;
    StashStore stashes;
    SessionNotesStore sessionNotes;

    // Creates the directories if they are missing. Reads nothing yet. `stateDirectory` is for notes on the
    // session.
    [[nodiscard]] static std::expected<ControllerStores, std::error_code>
    open(const std::filesystem::path& directory, const std::filesystem::path& stateDirectory,
         const StoreFiles& files, Clock& clock);

    // Reads the files that are not in the cache. The first call reads them at once, later ones in the
    // background.
    void readAll();
};

} // namespace vantrel
