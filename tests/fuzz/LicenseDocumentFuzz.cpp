// Only a licence that the vendor signed passes, and reading whatever the vendor signs ends.
#include "VantrelCore/licensing/LicenseDocument.h"
#include "tests/fuzz/Law.h"
#include "tests/server/TestLicense.h"

#include <nlohmann/json.hpp>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrel;
    namespace TestLicense = vantrel::testing::TestLicense;
    static const std::string machine(64, 'a');
    static const auto key = LicenseDocuments::publicKey(TestLicense::publicKey()).value();
    static const auto genuine = LicenseDocuments::parse(TestLicense::signedLicense(machine)).value();

    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto document = LicenseDocuments::parse(text)) {
        fuzz::require(!LicenseDocuments::verify(*document, key) || *document == genuine,
                      "only the signed licence passes");
    }
    // The same bytes under a good signature.
    const auto signedAnyway = LicenseDocuments::parse(TestLicense::document(text).dump());
    if (!signedAnyway) {
        fuzz::require(size > LicenseDocument::largest / 2,
                      "signed bytes are a document unless they are too long");
        return 0;
    }
    if (const auto license = LicenseDocuments::verify(*signedAnyway, key)) {
        const auto again = LicenseDocuments::verify(
            LicenseDocuments::parse(TestLicense::document(nlohmann::json(*license).dump()).dump()).value(),
            key);
        fuzz::require(again == license, "a licence reads as it was written");
    }
    return 0;
}
