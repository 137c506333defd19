#include "VantrelCore/stores/StashStore.h"
#include "tests/fuzz/StoreFuzz.h"

namespace {

class FixedClock final : public vantrel::Clock {
public:
    vantrel::Date now() override { return {}; }
    double monotonicSeconds() override { return 0; }
    void sleep(double /*seconds*/) override {}
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrel;
    fuzz::feed<StashStore::StoreFile>("stashes.json", data, size, [](const auto& folder, auto& files) {
        FixedClock clock;
        auto store = StashStore::open(folder, files, clock).value();
        for (const auto& stash : store.allStashes()) {
            std::ignore = store.newestFor(stash.configID);
        }
        std::ignore = store.add(Stash{});
        fuzz::require(store.allStashes().size() <= StashStore::maxStashes, "the cap holds");
    });
    return 0;
}
