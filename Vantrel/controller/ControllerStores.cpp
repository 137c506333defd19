#include "Vantrel/controller/ControllerStores.h"

#include <utility>

namespace vantrel {

std::expected<ControllerStores, std::error_code>
ControllerStores::open(const std::filesystem::path& directory, const std::filesystem::path& stateDirectory,
                       const StoreFiles& files, Clock& clock) {
    std::error_code failure;
    // The first failure is returned.
    const auto opened = [&](auto store) {
        if (!store && !failure) {
            failure = store.error();
        }
        return store;
    };
    auto layouts = opened(LayoutStore::open(directory, files));
    auto scenes = opened(SceneStore::open(directory, files));
    auto triggers = opened(TriggerStore::open(directory, files));
    auto restoreLog = opened(RestoreLogStore::open(directory, files));
    auto receipts = opened(openRestoreReceipts(directory, files));
    auto usage = opened(openUsageStats(directory, files));
    auto reliability = opened(AppReliabilityStore::open(directory, files));
    auto sizeBehavior = opened(AppSizeBehaviorStore::open(directory, files));
    auto stashes = opened(StashStore::open(directory, files, clock));
    auto sessionNotes = opened(openSessionNotes(stateDirectory, files));
    if (failure) {
        return std::unexpected(failure);
    }
    return ControllerStores{.layouts = std::move(*layouts),
                            .scenes = std::move(*scenes),
                            .triggers = std::move(*triggers),
                            .restoreLog = std::move(*restoreLog),
                            .receipts = std::move(*receipts),
                            .usage = std::move(*usage),
                            .reliability = std::move(*reliability),
                            .sizeBehavior = std::move(*sizeBehavior),
                            .stashes = std::move(*stashes),
                            .sessionNotes = std::move(*sessionNotes)};
}

void ControllerStores::readAll() {
    layouts.read();
    scenes.read();
    triggers.read();
    restoreLog.read();
    receipts.read();
    usage.read();
    reliability.read();
    sizeBehavior.read();
    stashes.read();
    sessionNotes.read();
}

} // namespace vantrel
