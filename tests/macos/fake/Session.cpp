#include "tests/macos/fake/Session.h"

#include "tests/macos/PlatformTest.h"

#include <CoreGraphics/CGSession.h>

namespace vantrel::fake {

namespace {

std::optional<std::vector<std::pair<std::string, Value>>> session;
const PlatformPart part([] { session.reset(); });

} // namespace

void setSession(std::optional<std::vector<std::pair<std::string, Value>>> entries) {
    session = std::move(entries);
}

} // namespace vantrel::fake

CFDictionaryRef CGSessionCopyCurrentDictionary() {
    return vantrel::fake::session ? vantrel::fake::dictionary(*vantrel::fake::session).release() : nullptr;
}
