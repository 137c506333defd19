#include "VantrelCore/stores/RestoreLogStore.h"
#include "tests/fuzz/StoreFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrel;
    fuzz::feed<RestoreLogStore::StoreFile>(
        "restore-log.json", data, size, [](const auto& folder, auto& files) {
            auto store = RestoreLogStore::open(folder, files).value();
            fuzz::require(store.record(RestoreLog::Entry{}), "any log can grow");
            fuzz::require(store.load().entries.size() <= RestoreLog::maxEntries, "the cap holds");
        });
    return 0;
}
