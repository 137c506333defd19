#include "tests/macos/PlatformTest.h"

#include "tests/macos/fake/EventManager.h"
#include "tests/macos/fake/ObjectLedger.h"
#include "tests/macos/fake/Preferences.h"
#include "tests/macos/fake/WindowServer.h"
#include "tests/macos/fake/cocoa/System.h"
#include "tests/macos/fake/objc/Runtime.h"

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
    m_withoutPoolBefore = objc::autoreleasedWithoutPool();
}

PlatformTest::~PlatformTest() {
    EXPECT_EQ(windowServer().callbacks.size(), 0U);
    EXPECT_EQ(registeredHotKeys().size(), 0U);
    EXPECT_EQ(notificationObservers(), 0U);
    EXPECT_EQ(cocoa::observers(), 0U);
    resetPlatform();
    EXPECT_EQ(Ledger::liveObjects(), m_objectsBefore) << "left over:\n" << Ledger::describeLive();
    EXPECT_EQ(Ledger::liveReferences(), m_referencesBefore);
    EXPECT_EQ(objc::autoreleasedWithoutPool(), m_withoutPoolBefore);
}

} // namespace vantrel::fake
