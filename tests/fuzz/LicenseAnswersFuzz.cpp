// For any reply of a licence server the user gets a sentence that a terminal can show.
#include "VantrelCore/licensing/LicenseAnswers.h"
#include "tests/fuzz/Law.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrel;
    if (size < 2) {
        return 0;
    }
    const int status = data[0] * 256 + data[1];
    const HttpResponse response{status, std::string(data + 2, data + size)};
    const auto isSentence = [](const std::string& text) {
        return !text.empty() && text.size() < 300 &&
               std::ranges::none_of(text, [](unsigned char c) { return c < 0x20 || c == 0x7f; });
    };
    const auto activated = LicenseAnswers::activated(response);
    fuzz::require(activated ? status / 100 == 2 : isSentence(activated.error()), "a licence or a sentence");
    const auto deactivated = LicenseAnswers::deactivated(response);
    fuzz::require(deactivated ? status / 100 == 2 || status == 410 : isSentence(deactivated.error()),
                  "given back or a sentence");
    return 0;
}
