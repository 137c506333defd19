// Feeds a store arbitrary bytes as its file: whatever they are, the store reads them or moves them aside
// whole, and what it read survives being written.
#pragma once

#include "VantrelCore/stores/JsonStore.h"
#include "tests/simulated/MemoryFileSystem.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace vantrel::fuzz {

inline void require(bool holds, const char* law) {
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", law);
        std::abort();
    }
}

// `use(folder, files)` opens the store's class on the same bytes and calls its questions and changes, which
// must come to an end with any records.
template <typename File, typename Use>
void feed(std::string_view fileName, const std::uint8_t* data, std::size_t size, Use use) {
    using Files = simulated::MemoryFileSystem;
    const std::filesystem::path folder = "/vantrel";
    const std::filesystem::path path = folder / fileName;
    const std::filesystem::path aside = path.string() + ".corrupt";
    const std::filesystem::path newer = path.string() + ".newer";
    const std::string bytes(data, data + size);

    Files files;
    files.put(path, bytes);
    auto store = JsonStore<File>::open(folder, fileName, files).value();
    File record = store.load();
    const bool isDecoded = !files.content(aside).has_value();
    require(files.content(isDecoded ? path : aside) == bytes, "every byte stays, in place or aside");
    require(isDecoded || (record == File{} && !files.content(path)),
            "what was moved aside leaves an empty store");

    bool isNewer = false;
    if constexpr (requires { record.version; }) {
        isNewer = isDecoded && record.version > File{}.version;
    }
    require(store.write(record), "what was read can be written");
    require(!isNewer || files.content(newer) == bytes,
            "a newer program's file is kept before it is replaced");
    const auto corruptBefore = files.content(aside);
    if constexpr (requires { record.version; }) {
        record.version = File{}.version;
    }
    auto again = JsonStore<File>::open(folder, fileName, files).value();
    require(again.load() == record, "what was written reads as the same");
    require(files.content(aside) == corruptBefore, "what was written is not moved aside");

    Files fresh;
    fresh.put(path, bytes);
    use(folder, fresh);
}

} // namespace vantrel::fuzz
