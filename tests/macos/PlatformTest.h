// PlatformTest: the fixture of every test on the fake platform. Each test begins with a fresh platform and
// fails when, once its own members have gone, an object it made is left over, somebody is still registered
// anywhere, or an object was autoreleased where nobody drains a pool: no test has one of its own, as no
// thread of the program's has.
#pragma once

#include <cstddef>
#include <gtest/gtest.h>

namespace vantrel::fake {

class PlatformTest : public testing::Test {
protected:
    PlatformTest();
    ~PlatformTest() override;

private:
    std::size_t m_objectsBefore = 0;
    long m_referencesBefore = 0;
    std::size_t m_withoutPoolBefore = 0;
};

// Puts everything that tests set back to its beginning. The files of the fakes register what they have to.
void resetPlatform();

// Made once per fake with state: adds `reset` to what resetPlatform() does.
class PlatformPart {
public:
    explicit PlatformPart(void (*reset)());
};

} // namespace vantrel::fake
