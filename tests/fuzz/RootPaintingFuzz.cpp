// Reading any note about the root window's painting ends, and the note reads the same once it is written
// again.
#include "Vantrel/platform/pictures/RootPainting.h"
#include "tests/fuzz/Law.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using vantrel::RootPainting;
    const auto painting = RootPainting::parse({reinterpret_cast<const char*>(data), size});
    vantrel::fuzz::require(RootPainting::parse(painting.note()) == painting,
                           "a note reads as it was written");
    return 0;
}
