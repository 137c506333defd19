// PlatformTest: the fixture of every test on the fake platform. Each test begins with a fresh platform and
// fails when an object it made is left over.
#pragma once

#include <cstddef>
#include <gtest/gtest.h>

namespace vantrel::fake {

class PlatformTest : public testing::Test {
protected:
    PlatformTest();
    void TearDown() override;

private:
    std::size_t m_objectsBefore = 0;
    long m_referencesBefore = 0;
};

// Puts everything that tests set back to its beginning. The files of the fakes register what they have to.
void resetPlatform();

// Made once per fake with state: adds `reset` to what resetPlatform() does.
class PlatformPart {
public:
    explicit PlatformPart(void (*reset)());
};

} // namespace vantrel::fake
