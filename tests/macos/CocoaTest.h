// CocoaTest: the fixture of tests that go through the fake Objective-C runtime.
#pragma once

#include "tests/macos/PlatformTest.h"
#include "tests/macos/fake/cocoa/System.h"
#include "tests/macos/fake/objc/Runtime.h"

#include <string>
#include <vector>

namespace vantrel::fake {

class CocoaTest : public PlatformTest {
protected:
    using Calls = std::vector<std::string>;

    [[nodiscard]] cocoa::System& mac() { return cocoa::system(); }
};

} // namespace vantrel::fake
