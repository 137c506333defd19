#include "tests/macos/CocoaTest.h"

#import <Foundation/Foundation.h>

namespace vantrel::fake {
namespace {

using ObjectiveCRuntimeDeathTest = CocoaTest;

TEST_F(ObjectiveCRuntimeDeathTest, AMethodThatIsNotThereEndsTheTest) {
    const id object = [NSObject new];
    EXPECT_DEATH((void)[object count], "no method \\[NSObject count\\]");
}

} // namespace
} // namespace vantrel::fake
