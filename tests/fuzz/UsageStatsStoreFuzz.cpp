#include "VantrelCore/stores/UsageStatsStore.h"
#include "tests/fuzz/StoreFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrel;
    fuzz::feed<UsageStats>("usage.json", data, size, [](const auto& folder, auto& files) {
        auto store = openUsageStats(folder, files).value();
        UsageStats stats = store.load();
        stats.recordSceneSwitch(INT64_MAX, "desk", Date{});
        stats.recordStashUse(1, "", Date{});
        stats.recordUndo(1, "desk", Date{});
        fuzz::require(store.write(stats), "any totals can be written");
    });
    return 0;
}
