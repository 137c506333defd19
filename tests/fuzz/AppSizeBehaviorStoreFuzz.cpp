#include "VantrelCore/stores/AppSizeBehaviorStore.h"
#include "tests/fuzz/StoreFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrel;
    fuzz::feed<AppSizeBehaviorStore::StoreFile>(
        "app-size-behavior.json", data, size, [](const auto& folder, auto& files) {
            auto store = AppSizeBehaviorStore::open(folder, files).value();
            for (const char* bundleID : {"a", "com.apple.systempreferences"}) {
                std::ignore = store.classification(bundleID);
                fuzz::require(store.record({{bundleID, {1, 2}, {30, 40}}, {bundleID, {5, 6}, {5, 6}}}),
                              "any record can learn");
                std::ignore = store.classification(bundleID);
            }
        });
    return 0;
}
