#include "VantrelCore/stores/StoreInspection.h"

#include "VantrelCore/stores/AppReliabilityStore.h"
#include "VantrelCore/stores/AppSizeBehaviorStore.h"
#include "VantrelCore/stores/LayoutStore.h"
#include "VantrelCore/stores/ProgramNotesStore.h"
#include "VantrelCore/stores/RestoreLogStore.h"
#include "VantrelCore/stores/RestoreReceiptsStore.h"
#include "VantrelCore/stores/SceneStore.h"
#include "VantrelCore/stores/SetAside.h"
#include "VantrelCore/stores/StashStore.h"
#include "VantrelCore/stores/TriggerStore.h"
#include "VantrelCore/stores/UsageStatsStore.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>

namespace vantrel::StoreInspection {

namespace {

template <typename Record>
void decode(const nlohmann::json& document) {
    Record record;
    from_json(document, record);
}

const std::map<std::string, JsonFile::Decode>& decoders() {
    static const std::map<std::string, JsonFile::Decode> byName{
        {"layouts.json", decode<LayoutStore::StoreFile>},
        {"scenes.json", decode<SceneStore::StoreFile>},
        {"stashes.json", decode<StashStore::StoreFile>},
        {"triggers.json", decode<TriggerStore::StoreFile>},
        {"restore-log.json", decode<RestoreLogStore::StoreFile>},
        {"receipts.json", decode<RestoreReceipts>},
        {"usage.json", decode<UsageStats>},
        {"notes.json", decode<ProgramNotes>},
        {"app-reliability.json", decode<AppReliabilityStore::StoreFile>},
        {"app-size-behavior.json", decode<AppSizeBehaviorStore::StoreFile>}};
    return byName;
}

} // namespace

bool isStore(const std::filesystem::path& file) {
    return decoders().contains(file.filename().string());
}

std::string problemWith(FileSystem& files, const std::filesystem::path& place,
                        const std::filesystem::path& file) {
    const auto content = files.read(place);
    if (!content) {
        return content.error().message();
    }
    return JsonFile::problemWith(*content, decoders().at(file.filename().string()));
}

std::vector<Finding> inspect(FileSystem& files, std::vector<std::filesystem::path> directories) {
    std::ranges::sort(directories);
    directories.erase(std::unique(directories.begin(), directories.end()), directories.end());
    std::vector<FileEntry> entries;
    for (const auto& directory : directories) {
        std::ranges::move(files.list(directory).value_or(std::vector<FileEntry>()),
                          std::back_inserter(entries));
    }
    std::vector<Finding> findings;
    for (const FileEntry& entry : entries) {
        const auto original = SetAside::original(entry.file);
        const auto& store = original.empty() ? entry.file : original;
        if (isStore(store)) {
            findings.push_back({.file = entry.file,
                                .original = original,
                                .problem = problemWith(files, entry.file, store),
                                .modified = entry.modified});
        }
    }
    std::ranges::sort(findings, {}, &Finding::file);
    return findings;
}

} // namespace vantrel::StoreInspection
