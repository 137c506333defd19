#include "VantrelCore/stores/AppReliabilityStore.h"

#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/text/LocalizedComparison.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace vantrel {

namespace {

using Apps = std::vector<AppReliability>;

bool isWorse(const AppReliability& a, const AppReliability& b) {
    const double rateA = a.failureRate().value_or(0);
    const double rateB = b.failureRate().value_or(0);
    if (rateA != rateB) {
        return rateA > rateB;
    }
    if (a.failedCount != b.failedCount) {
        return a.failedCount > b.failedCount;
    }
    return LocalizedComparison::caseInsensitive(a.appName, b.appName) < 0;
}

void ingest(Apps& apps, const std::vector<RestoreLog::Item>& items, Date at) {
    std::unordered_map<std::string, std::size_t> indexOf;
    for (std::size_t i = 0; i < apps.size(); ++i) {
        indexOf.try_emplace(apps[i].bundleID, i);
    }
    for (const auto& item : items) {
        const auto [found, isNew] = indexOf.try_emplace(item.bundleID, apps.size());
        if (isNew) {
            auto& app = apps.emplace_back();
            app.bundleID = item.bundleID;
            app.appName = item.appName;
            app.lastSeen = at;
        }
        auto& app = apps[found->second];
        app = app.ingesting(item, at);
    }
}

void dropLongestUnseen(Apps& apps) {
    if (apps.size() > AppReliabilityStore::maxApps) {
        std::ranges::stable_sort(apps, std::ranges::greater{}, &AppReliability::lastSeen);
        apps.resize(AppReliabilityStore::maxApps);
    }
}

} // namespace

AppReliabilityStore::AppReliabilityStore(JsonStore<StoreFile> file) : m_file(std::move(file)) {}

std::expected<AppReliabilityStore, std::error_code>
AppReliabilityStore::open(const std::filesystem::path& directory, const StoreFiles& files) {
    return JsonStore<StoreFile>::openAs<AppReliabilityStore>(directory, "app-reliability.json", files);
}

std::vector<AppReliability> AppReliabilityStore::all() {
    auto apps = m_file.load().apps;
    std::ranges::stable_sort(apps, isWorse);
    return apps;
}

std::optional<AppReliability> AppReliabilityStore::record(const std::string& bundleID) {
    const auto& apps = m_file.load().apps;
    const auto found = std::ranges::find(apps, bundleID, &AppReliability::bundleID);
    return found == apps.end() ? std::nullopt : std::optional(*found);
}

std::set<std::string> AppReliabilityStore::stubbornBundleIDs() {
    std::set<std::string> stubborn;
    for (const auto& app : m_file.load().apps) {
        if (app.isStubborn()) {
            stubborn.insert(app.bundleID);
        }
    }
    return stubborn;
}

bool AppReliabilityStore::record(const std::vector<RestoreLog::Item>& items, Date at, const Saving& saving) {
    return items.empty() || m_file.update(
                                [&](StoreFile& file) {
                                    ingest(file.apps, items, at);
                                    dropLongestUnseen(file.apps);
                                },
                                saving);
}

bool AppReliabilityStore::clear() {
    return m_file.update([](StoreFile& file) { file.apps.clear(); });
}

void to_json(nlohmann::json& json, const AppReliabilityStore::StoreFile& file) {
    json = {{"version", file.version}, {"apps", file.apps}};
}

void from_json(const nlohmann::json& json, AppReliabilityStore::StoreFile& file) {
    file = {.version = JsonCoding::required<std::int64_t>(json, "version"),
            .apps = JsonCoding::required<std::vector<AppReliability>>(json, "apps")};
}

} // namespace vantrel
