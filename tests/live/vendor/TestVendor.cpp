// A vendor for tests: the environment names its server, and its key is TestLicense's. It is linked into a
// program of its own, so that the real one cannot switch it on.
#include "Vantrel/Vendor.h"
#include "tests/server/TestLicense.h"

#include <cstdlib>

vantrel::Vendor vantrel::vendor() {
    const char* const server = std::getenv("VANTREL_TEST_SERVER");
    const std::string url = server != nullptr ? server : "https://api.vantrel.example";
    return {.apiServer = url, .website = url, .licensePublicKey = testing::TestLicense::publicKey()};
}
