#include "tests/macos/CocoaTest.h"
#include "tests/macos/fake/ObjectLedger.h"

#import <AppKit/AppKit.h>

@interface RuntimeShape : NSObject
- (NSRect)area:(double)width with:(NSRect)other;
@end

@implementation RuntimeShape
- (NSRect)area:(double)width with:(NSRect)other {
    return {{1, 2}, {width, other.size.height}};
}
- (NSUInteger)hash {
    return [super hash] == reinterpret_cast<NSUInteger>((__bridge void*)self) ? 7 : 0;
}
@end

@interface RuntimeShape (Larger)
- (double)widthOfTwo;
@end

@implementation RuntimeShape (Larger)
- (double)widthOfTwo {
    return [self area:2 with:{}].size.width;
}
@end

namespace vantrel::fake {
namespace {

using ObjectiveCRuntime = CocoaTest;

TEST_F(ObjectiveCRuntime, MessagesCarryStructuresAndNumbersBothWays) {
    @autoreleasepool {
        RuntimeShape* const shape = [RuntimeShape new];
        const NSRect area = [shape area:0.5 with:{{0, 0}, {3, 4}}];
        EXPECT_EQ(area.origin.y, 2);
        EXPECT_EQ(area.size.width, 0.5);
        EXPECT_EQ(area.size.height, 4);
        EXPECT_EQ(shape.hash, 7U);
        EXPECT_EQ([shape widthOfTwo], 2);
        RuntimeShape* const none = nil;
        EXPECT_EQ([none area:1 with:area].size.height, 0);
        EXPECT_FALSE([shape respondsToSelector:@selector(objectAtIndex:)]);
    }
}

TEST_F(ObjectiveCRuntime, AWeakReferenceIsNilOnceTheObjectIsGone) {
    __weak RuntimeShape* weak = nil;
    @autoreleasepool {
        RuntimeShape* const shape = [RuntimeShape new];
        weak = shape;
        EXPECT_NE(weak, nil);
    }
    EXPECT_EQ(weak, nil);
}

TEST_F(ObjectiveCRuntime, ABlockHoldsWhatItCapturesUntilItGoes) {
    const std::size_t before = Ledger::liveObjects();
    void (^kept)(void) = nil;
    int calls = 0;
    {
        RuntimeShape* const shape = [RuntimeShape new];
        int* const counter = &calls;
        kept = ^{
          *counter += static_cast<int>(shape.hash);
        };
    }
    EXPECT_EQ(Ledger::liveObjects(), before + 1);
    kept();
    EXPECT_EQ(calls, 7);
    kept = nil;
    EXPECT_EQ(Ledger::liveObjects(), before);
}

TEST_F(ObjectiveCRuntime, TextsAreOneWhetherWrittenInTheProgramOrMade) {
    @autoreleasepool {
        NSDictionary* const entries = @{@"key" : @1};
        EXPECT_EQ([entries[[NSString stringWithUTF8String:"key"]] intValue], 1);
        EXPECT_TRUE([@"key" isKindOfClass:[NSString class]]);
        EXPECT_EQ([NSString stringWithUTF8String:"\xff"], nil);
    }
}

using ObjectiveCRuntimeDeathTest = CocoaTest;

TEST_F(ObjectiveCRuntimeDeathTest, AMethodThatIsNotThereEndsTheTest) {
    const id shape = [RuntimeShape new];
    EXPECT_DEATH((void)[shape firstObject], "no method \\[RuntimeShape firstObject\\]");
}

} // namespace
} // namespace vantrel::fake
