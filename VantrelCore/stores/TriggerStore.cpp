#include "VantrelCore/stores/TriggerStore.h"

#include "VantrelCore/model/JsonCoding.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace vantrel {

TriggerStore::TriggerStore(JsonStore<StoreFile> file) : m_file(std::move(file)) {}

std::expected<TriggerStore, std::error_code> TriggerStore::open(const std::filesystem::path& directory,
                                                                const StoreFiles& files) {
    return JsonStore<StoreFile>::openAs<TriggerStore>(directory, "triggers.json", files);
}

std::vector<SceneTrigger> TriggerStore::allTriggers() {
    auto triggers = m_file.load().triggers;
    std::ranges::stable_sort(triggers, {}, &SceneTrigger::createdAt);
    return triggers;
}

std::optional<SceneTrigger> TriggerStore::trigger(const std::string& id) {
    const auto& triggers = m_file.load().triggers;
    const auto found = std::ranges::find(triggers, id, &SceneTrigger::id);
    return found == triggers.end() ? std::nullopt : std::optional(*found);
}

TriggerStore::Result<SceneTrigger> TriggerStore::add(const SceneTrigger& trigger) {
    const auto added = addAll({trigger});
    return added ? Result<SceneTrigger>(trigger) : std::unexpected(added.error());
}

TriggerStore::Result<void> TriggerStore::addAll(const std::vector<SceneTrigger>& triggers,
                                                std::optional<std::size_t> at) {
    if (m_file.load().triggers.size() + triggers.size() > maxTriggers) {
        return std::unexpected(TriggerStoreError::capReached);
    }
    if (!m_file.update([&](StoreFile& file) {
            const std::size_t index = std::min(at.value_or(file.triggers.size()), file.triggers.size());
            file.triggers.insert(file.triggers.begin() + static_cast<std::ptrdiff_t>(index), triggers.begin(),
                                 triggers.end());
        })) {
        return std::unexpected(TriggerStoreError::writeFailed);
    }
    return {};
}

TriggerStore::Result<void> TriggerStore::setEnabled(const std::string& id, bool enabled) {
    return changeTrigger(id, [&](SceneTrigger& trigger) { trigger.enabled = enabled; });
}

TriggerStore::Result<void> TriggerStore::update(const SceneTrigger& trigger) {
    return changeTrigger(trigger.id, [&](SceneTrigger& stored) { stored = trigger; });
}

TriggerStore::Result<void> TriggerStore::recordFired(const std::string& id, Date at, const Saving& saving) {
    return changeTrigger(id, [&](SceneTrigger& trigger) { trigger.lastFiredAt = at; }, saving);
}

void TriggerStore::deleteTrigger(const std::string& id) {
    if (trigger(id)) {
        // After a failed write the trigger is simply still there; there is nothing to report.
        std::ignore = m_file.update([&](StoreFile& file) {
            std::erase_if(file.triggers, [&](const SceneTrigger& trigger) { return trigger.id == id; });
        });
    }
}

template <typename Change>
TriggerStore::Result<void> TriggerStore::changeTrigger(const std::string& id, Change&& change,
                                                       const Saving& saving) {
    StoreFile file = m_file.load();
    const auto found = std::ranges::find(file.triggers, id, &SceneTrigger::id);
    if (found == file.triggers.end()) {
        return std::unexpected(TriggerStoreError::notFound);
    }
    std::forward<Change>(change)(*found);
    if (!m_file.write(std::move(file), saving)) {
        return std::unexpected(TriggerStoreError::writeFailed);
    }
    return {};
}

void to_json(nlohmann::json& json, const TriggerStore::StoreFile& file) {
    json = {{"version", file.version}, {"triggers", file.triggers}};
}

void from_json(const nlohmann::json& json, TriggerStore::StoreFile& file) {
    file = {.version = JsonCoding::required<std::int64_t>(json, "version"),
            .triggers = JsonCoding::required<std::vector<SceneTrigger>>(json, "triggers")};
}

} // namespace vantrel
