// A vendor for tests: the server is named by the environment, the key is TestLicense's. Linked
// into a program of its own, so that nothing of this can be switched on in the real one.
#include "Vantrel/Vendor.h"
#include "tests/server/TestLicense.h"

#include <cstdlib>

vantrel::Vendor vantrel::vendor() {
    const char* const server = std::getenv("VANTREL_TEST_SERVER");
    const std::string url = server != nullptr ? server : "https://api.vantrel.example";
    return {.apiServer = url, .website = url, .licensePublicKey = testing::TestLicense::publicKey()};
}
