#include "VantrelCore/stores/LayoutStore.h"
#include "tests/fuzz/StoreFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrel;
    fuzz::feed<LayoutStore::StoreFile>("layouts.json", data, size, [](const auto& folder, auto& files) {
        auto store = LayoutStore::open(folder, files).value();
        for (const auto& layout : store.allLayouts()) {
            std::ignore = store.layouts(layout.configID);
            fuzz::require(layout.isEquivalent(layout), "a layout is equivalent to itself");
            fuzz::require(layout.geometryMatches(layout, 2.0), "a layout matches itself");
            store.deleteLayout(layout.configID, store.activeLayoutName(layout.configID));
        }
        for (auto rule : store.rules()) {
            rule.appName += "x";
            fuzz::require(store.setRule(rule), "any rule can be set");
        }
    });
    return 0;
}
