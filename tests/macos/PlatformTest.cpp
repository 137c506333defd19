#include "tests/macos/PlatformTest.h"

#include "tests/macos/fake/ObjectLedger.h"

#include <vector>

namespace vantrel::fake {

namespace {

std::vector<void (*)()>& parts() {
    static std::vector<void (*)()> all;
    return all;
}

} // namespace

PlatformPart::PlatformPart(void (*reset)()) {
    parts().push_back(reset);
}

void resetPlatform() {
    for (void (*const reset)() : parts()) {
        reset();
    }
}

PlatformTest::PlatformTest() {
    resetPlatform();
    m_objectsBefore = Ledger::liveObjects();
    m_referencesBefore = Ledger::liveReferences();
}

void PlatformTest::TearDown() {
    resetPlatform();
    EXPECT_EQ(Ledger::liveObjects(), m_objectsBefore) << "left over:\n" << Ledger::describeLive();
    EXPECT_EQ(Ledger::liveReferences(), m_referencesBefore);
}

} // namespace vantrel::fake
