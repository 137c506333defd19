#include "VantrelCore/stores/RestoreLogStore.h"

#include "VantrelCore/model/JsonCoding.h"

#include <utility>

namespace vantrel {

RestoreLogStore::RestoreLogStore(JsonStore<StoreFile> file) : m_file(std::move(file)) {}

std::expected<RestoreLogStore, std::error_code> RestoreLogStore::open(const std::filesystem::path& directory,
                                                                      const StoreFiles& files) {
    return JsonStore<StoreFile>::openAs<RestoreLogStore>(directory, "restore-log.json", files);
}

RestoreLog RestoreLogStore::load() {
    return m_file.load().log;
}

bool RestoreLogStore::record(const RestoreLog::Entry& entry, const Saving& saving) {
    return m_file.update(
        [&](StoreFile& file) {
            const std::size_t held = file.log.entries.size();
            file.log.entries.insert(file.log.entries.begin(), entry);
            return AgeLoss{held, file.log.prune(entry.date)};
        },
        saving);
}

bool RestoreLogStore::replaceNewest(const RestoreLog::Entry& entry, const Saving& saving) {
    return !m_file.load().log.entries.empty() &&
           m_file.update([&](StoreFile& file) { file.log.entries.front() = entry; }, saving);
}

bool RestoreLogStore::clear() {
    return m_file.update([](StoreFile& file) { file.log.entries.clear(); });
}

void to_json(nlohmann::json& json, const RestoreLogStore::StoreFile& file) {
    json = {{"version", file.version}, {"log", file.log}};
}

void from_json(const nlohmann::json& json, RestoreLogStore::StoreFile& file) {
    file = {.version = JsonCoding::required<std::int64_t>(json, "version"),
            .log = JsonCoding::required<RestoreLog>(json, "log")};
}

} // namespace vantrel
