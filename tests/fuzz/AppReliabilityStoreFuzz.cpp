#include "VantrelCore/stores/AppReliabilityStore.h"
#include "tests/fuzz/StoreFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrel;
    fuzz::feed<AppReliabilityStore>("app-reliability.json", data, size, [](AppReliabilityStore& store) {
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
