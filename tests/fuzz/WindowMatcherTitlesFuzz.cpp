// With any titles the matcher pairs windows exactly as its rules say.
#include "tests/fuzz/Law.h"
#include "tests/fuzz/PlainMatcher.h"

#include <array>
#include <fuzzer/FuzzedDataProvider.h>

namespace {

using namespace vantrel;

constexpr std::array<std::string_view, 2> bundleIDs{"a", "b"};

struct Titles {
    std::vector<std::string> texts;
    std::vector<WindowIdentity> windows;
};

Titles consumeTitles(FuzzedDataProvider& data) {
    constexpr std::size_t mostWindows = 10;
    Titles result;
    for (auto count = data.ConsumeIntegralInRange<std::size_t>(0, mostWindows); count > 0; --count) {
        result.texts.push_back(data.ConsumeRandomLengthString(64));
    }
    for (const auto& text : result.texts) {
        result.windows.emplace_back(data.PickValueInArray(bundleIDs), text,
                                    data.ConsumeIntegralInRange<std::int64_t>(-1, 3));
    }
    return result;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    const Titles saved = consumeTitles(data);
    const Titles current = consumeTitles(data);
    fuzz::require(WindowMatcher::match(saved.windows, current.windows) ==
                      PlainMatcher::match(saved.windows, current.windows),
                  "the matcher pairs as its rules say");
    return 0;
}
