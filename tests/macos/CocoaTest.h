// CocoaTest: the fixture of tests that go through the fake Objective-C runtime.
#pragma once

#include "tests/macos/PlatformTest.h"
#include "tests/macos/fake/cocoa/System.h"
#include "tests/macos/fake/objc/Runtime.h"

#include <string>
#include <vector>

namespace vantrel::fake {

// Also fails when an object was autoreleased where nobody drains a pool: no test has one of its own, as no
// thread of the program's has.
class CocoaTest : public PlatformTest {
protected:
    using Calls = std::vector<std::string>;

    // When the test's own members have gone, too.
    ~CocoaTest() override {
        PlatformTest::TearDown();
        EXPECT_EQ(objc::autoreleasedWithoutPool(), m_withoutPoolBefore);
    }

    void TearDown() override {}

    [[nodiscard]] cocoa::System& mac() { return cocoa::system(); }

private:
    std::size_t m_withoutPoolBefore = objc::autoreleasedWithoutPool();
};

} // namespace vantrel::fake
