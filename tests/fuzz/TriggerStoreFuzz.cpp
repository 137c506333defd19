#include "VantrelCore/stores/TriggerStore.h"
#include "tests/fuzz/StoreFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrel;
    fuzz::feed<TriggerStore::StoreFile>("triggers.json", data, size, [](const auto& folder, auto& files) {
        auto store = TriggerStore::open(folder, files).value();
        for (const auto& trigger : store.allTriggers()) {
            fuzz::require(store.recordFired(trigger.id, Date{}).has_value(), "any trigger can fire");
        }
        const auto before = store.allTriggers().size();
        fuzz::require(store.add(SceneTrigger{}).has_value() == (before < TriggerStore::maxTriggers),
                      "the cap holds");
    });
    return 0;
}
