// Reading any changelog from a server ends, and only a newer release is offered.
#include "VantrelCore/text/SemVer.h"
#include "VantrelCore/updates/ChangelogResponse.h"
#include "VantrelCore/updates/UpdateOffer.h"
#include "tests/fuzz/Law.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrel;
    const auto changelog = ChangelogResponse::decode({reinterpret_cast<const char*>(data), size});
    for (const auto& release : changelog.value_or(ChangelogResponse{}).releases) {
        const auto offer = UpdateOffer::latestAvailable(release.version, "1.9");
        fuzz::require(!offer || (SemVer::isNewer(*offer, "1.9") && !SemVer::isNewer("1.9", *offer)),
                      "only a newer release is offered");
        fuzz::require(!offer || offer->find_first_not_of("0123456789.") == std::string::npos,
                      "an offer is only a version");
    }
    return 0;
}
