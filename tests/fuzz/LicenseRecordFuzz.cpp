// A licence file counts as a record only when the program wrote it.
#include "VantrelCore/licensing/LicenseDecision.h"
#include "tests/fuzz/Law.h"
#include "tests/server/TestLicense.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrel;
    namespace TestLicense = vantrel::testing::TestLicense;
    static const std::string machine(64, 'a');
    static const auto key = LicenseDocuments::publicKey(TestLicense::publicKey()).value();
    const std::string_view text(reinterpret_cast<const char*>(data), size);

    const auto record = LicenseRecords::decode(text, machine);
    if (record) {
        fuzz::require(LicenseRecords::decode(LicenseRecords::encode(*record, machine), machine) == record,
                      "a record reads as it was written");
        fuzz::require(!LicenseRecords::decode(text, "elsewhere"), "a record is valid on one computer");
    }
    const auto start = LicenseDecision::start(
        {.main = record, .copy = {}, .earliestUse = {}, .machine = machine, .key = key, .now = Date{}});
    const auto entitlement = LicenseDecision::entitlement(start.record, start.license, Date{});
    fuzz::require(record || !entitlement.isEntitled(), "without a record nothing is allowed");
    return 0;
}
