#include "VantrelCore/stores/AppSizeBehaviorStore.h"

#include "VantrelCore/model/JsonCoding.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantrel {

namespace {

bool isFinite(Size size) {
    return std::isfinite(size.width) && std::isfinite(size.height);
}

AppSizeBehavior& behaviorOf(AppSizeBehaviorStore::StoreFile& file, const std::string& bundleID) {
    const auto found = std::ranges::find(file.behaviors, bundleID, &AppSizeBehavior::bundleID);
    if (found != file.behaviors.end()) {
        return *found;
    }
    file.behaviors.emplace_back().bundleID = bundleID;
    return file.behaviors.back();
}

} // namespace

AppSizeBehaviorStore::AppSizeBehaviorStore(JsonStore<StoreFile> file) : m_file(std::move(file)) {}

std::expected<AppSizeBehaviorStore, std::error_code>
AppSizeBehaviorStore::open(const std::filesystem::path& directory, const StoreFiles& files) {
    return JsonStore<StoreFile>::openAs<AppSizeBehaviorStore>(directory, "app-size-behavior.json", files);
}

AppSizeBehavior::Classification AppSizeBehaviorStore::seed(const std::string& bundleID) {
    if (bundleID == "com.apple.systempreferences") {
        return AppSizeBehavior::FixedSize{{715.0, 600.0}};
    }
    return AppSizeBehavior::Flexible{};
}

std::optional<AppSizeBehavior> AppSizeBehaviorStore::behavior(const std::string& bundleID) {
    const auto& behaviors = m_file.load().behaviors;
    const auto found = std::ranges::find(behaviors, bundleID, &AppSizeBehavior::bundleID);
    return found == behaviors.end() ? std::nullopt : std::optional(*found);
}

AppSizeBehavior::Classification AppSizeBehaviorStore::classification(const std::string& bundleID) {
    const auto learned = behavior(bundleID);
    return learned && learned->sampleCount >= 1 ? learned->classification() : seed(bundleID);
}

bool AppSizeBehaviorStore::record(const Observation& observation) {
    return record(std::vector{observation});
}

bool AppSizeBehaviorStore::record(const std::vector<Observation>& observations, const Saving& saving) {
    StoreFile file = m_file.load();
    bool learned = false;
    for (const auto& [bundleID, requested, achieved] : observations) {
        if (isFinite(requested) && isFinite(achieved)) {
            auto& behavior = behaviorOf(file, bundleID);
            behavior = behavior.ingesting({requested, achieved});
            learned = true;
        }
    }
    return !learned || m_file.write(std::move(file), saving);
}

void to_json(nlohmann::json& json, const AppSizeBehaviorStore::StoreFile& file) {
    json = {{"version", file.version}, {"behaviors", file.behaviors}};
}

void from_json(const nlohmann::json& json, AppSizeBehaviorStore::StoreFile& file) {
    file = {.version = JsonCoding::required<std::int64_t>(json, "version"),
            .behaviors = JsonCoding::required<std::vector<AppSizeBehavior>>(json, "behaviors")};
}

} // namespace vantrel
