#include "VantrelCore/stores/StashStore.h"

#include "VantrelCore/model/DeskRenaming.h"
#include "VantrelCore/model/JsonCoding.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace vantrel {

namespace {

void sortNewestFirst(std::vector<Stash>& stashes) {
    std::ranges::stable_sort(stashes, std::ranges::greater{}, &Stash::createdAt);
}

void enforceCap(std::vector<Stash>& stashes) {
    if (stashes.size() > StashStore::maxStashes) {
        sortNewestFirst(stashes);
        stashes.resize(StashStore::maxStashes);
    }
}

template <typename Predicate>
std::optional<Stash> firstWhere(const std::vector<Stash>& stashes, Predicate&& isWanted) {
    const auto found = std::ranges::find_if(stashes, std::forward<Predicate>(isWanted));
    return found == stashes.end() ? std::nullopt : std::optional(*found);
}

} // namespace

StashStore::StashStore(JsonStore<StoreFile> file) : m_file(std::move(file)) {}

std::expected<StashStore, std::error_code> StashStore::open(const std::filesystem::path& directory,
                                                            const StoreFiles& files, Clock& clock) {
    const auto dropExpired = [&clock](StoreFile& file) {
        const std::size_t held = file.stashes.size();
        return AgeLoss{held, std::erase_if(file.stashes, [now = clock.now()](const Stash& stash) {
                           return hasExpired(stash, now);
                       })};
    };
    return JsonStore<StoreFile>::openAs<StashStore>(directory, "stashes.json", files, dropExpired);
}

bool StashStore::hasExpired(const Stash& stash, Date now) {
    return stash.createdAt < now - std::chrono::days{retentionDays};
}

std::vector<Stash> StashStore::allStashes() {
    auto stashes = m_file.load().stashes;
    sortNewestFirst(stashes);
    return stashes;
}

std::optional<Stash> StashStore::stash(const std::string& id) {
    return firstWhere(m_file.load().stashes, [&](const Stash& stash) { return stash.id == id; });
}

std::optional<Stash> StashStore::newest() {
    return firstWhere(allStashes(), [](const Stash&) { return true; });
}

std::optional<Stash> StashStore::newestFor(const std::string& configID) {
    return firstWhere(allStashes(), [&](const Stash& stash) { return stash.configID == configID; });
}

Stash StashStore::add(const Stash& stash, const Saving& saving) {
    // The desk has been put aside even if the write fails.
    std::ignore = m_file.update(
        [&](StoreFile& file) {
            file.stashes.push_back(stash);
            enforceCap(file.stashes);
        },
        saving);
    return stash;
}

bool StashStore::remove(const std::string& id, const Saving& saving) {
    return m_file.update(
        [&](StoreFile& file) {
            std::erase_if(file.stashes, [&](const Stash& stash) { return stash.id == id; });
        },
        saving);
}

bool StashStore::removeAllOf(const std::string& configID) {
    return m_file.update([&](StoreFile& file) {
        std::erase_if(file.stashes, [&](const Stash& stash) { return stash.configID == configID; });
    });
}

bool StashStore::putBackAll(const std::vector<Stash>& stashes) {
    return m_file.update([&](StoreFile& file) {
        for (const Stash& stash : stashes) {
            if (std::ranges::find(file.stashes, stash.id, &Stash::id) == file.stashes.end()) {
                file.stashes.push_back(stash);
            }
        }
        enforceCap(file.stashes);
    });
}

bool StashStore::moveDesk(const std::string& from, const std::string& to,
                          const std::vector<DisplayInfo>& displays, const Saving& saving) {
    StoreFile file = m_file.load();
    for (Stash& stash : file.stashes) {
        if (stash.configID == from) {
            stash.configID = to;
            stash.layout = DeskRenaming::renamed(stash.layout, to, displays);
        }
    }
    return file == m_file.load() || m_file.write(std::move(file), saving);
}

void to_json(nlohmann::json& json, const StashStore::StoreFile& file) {
    json = {{"version", file.version}, {"stashes", file.stashes}};
}

void from_json(const nlohmann::json& json, StashStore::StoreFile& file) {
    file = {.version = JsonCoding::required<std::int64_t>(json, "version"),
            .stashes = JsonCoding::required<std::vector<Stash>>(json, "stashes")};
}

} // namespace vantrel
