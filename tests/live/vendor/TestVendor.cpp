// The vendor that tests use: the environment names its server, and it signs with TestLicense's key. Only a
// separate test program links it, so nobody can switch it on in the real one.
#include "Vantrel/Vendor.h"
#include "tests/server/TestLicense.h"

#include <cstdlib>

vantrel::Vendor vantrel::vendor() {
    const char* const server = std::getenv("VANTREL_TEST_SERVER");
    const std::string url = server != nullptr ? server : "https://api.vantrel.example";
    return {.apiServer = url, .website = url, .licensePublicKey = testing::TestLicense::publicKey()};
}
