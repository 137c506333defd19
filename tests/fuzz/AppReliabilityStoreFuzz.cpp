#include "VantrelCore/stores/AppReliabilityStore.h"
#include "tests/fuzz/StoreFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrel;
    fuzz::feed<AppReliabilityStore::StoreFile>(
        "app-reliability.json", data, size, [](const auto& folder, auto& files) {
            auto store = AppReliabilityStore::open(folder, files).value();
            std::vector<RestoreLog::Item> items;
            for (const auto& app : store.all()) {
                items.push_back({app.appName, app.bundleID, "", RestoreLog::Outcome::failed, "reason"});
            }
            fuzz::require(store.record(items, Date{}), "any record can count");
            fuzz::require(store.stubbornBundleIDs().size() <= store.all().size(),
                          "only applications are stubborn");
        });
    return 0;
}
