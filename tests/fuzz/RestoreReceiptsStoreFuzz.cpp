#include "VantrelCore/stores/RestoreReceiptsStore.h"
#include "tests/fuzz/StoreFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrel;
    fuzz::feed<RestoreReceipts>("receipts.json", data, size, [](const auto& folder, auto& files) {
        auto store = openRestoreReceipts(folder, files).value();
        RestoreReceipts receipts = store.load();
        receipts.record(INT64_MAX, Date{});
        std::ignore = receipts.windowsLast7Days(Date{});
        fuzz::require(store.write(receipts), "any receipts can be written");
    });
    return 0;
}
