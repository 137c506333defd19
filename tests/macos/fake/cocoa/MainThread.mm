// Fake main thread: queue, timers on virtual time, notification centres and the owner of shared instances.
#import "tests/macos/fake/cocoa/Cocoa.h"

#import <AppKit/AppKit.h>

#include "tests/macos/PlatformTest.h"

#include <algorithm>
#include <deque>
#include <mutex>

using Block = void (^)(void);

namespace vantrel::fake::cocoa {

namespace {

struct MainThread {
    std::recursive_mutex mutex;
    std::deque<Block> blocks;
    std::vector<NSTimer*> timers;
    double now = 0;
    std::map<Class, id> shared;
};

MainThread& mainThread() {
    static auto* const only = new MainThread;
    return *only;
}

void add(Block block) {
    const std::scoped_lock lock(mainThread().mutex);
    mainThread().blocks.push_back([block copy]);
}

} // namespace

id shared(Class kind) {
    const std::scoped_lock lock(mainThread().mutex);
    id& object = mainThread().shared[kind];
    if (object == nil) {
        object = [kind new];
    }
    return object;
}

System& system() {
    static auto* const only = new System;
    return *only;
}

} // namespace vantrel::fake::cocoa

using namespace vantrel::fake::cocoa;

@implementation NSOperationQueue
+ (NSOperationQueue*)mainQueue {
    return shared(self);
}
- (void)addOperationWithBlock:(void (^)(void))block {
    add(block);
}
@end

const NSRunLoopMode NSRunLoopCommonModes = @"kCFRunLoopCommonModes";

@implementation NSTimer {
@public
    double _due;
    double _seconds;
    bool _repeats;
    void (^_block)(NSTimer*);
}
@synthesize tolerance = _tolerance;
+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)seconds
                          repeats:(BOOL)repeats
                            block:(void (^)(NSTimer*))block {
    NSTimer* const made = [[NSTimer new] autorelease];
    made->_seconds = seconds;
    made->_repeats = repeats;
    made->_block = [block copy];
    return made;
}
- (void)dealloc {
    [_block release];
    [super dealloc];
}
- (BOOL)isValid {
    return _block != nil;
}
- (void)invalidate {
    [_block release];
    _block = nil;
    auto& timers = mainThread().timers;
    if (const auto own = std::ranges::find(timers, self); own != timers.end()) {
        timers.erase(own);
        [self release];
    }
}
@end

@implementation NSRunLoop
+ (NSRunLoop*)mainRunLoop {
    return shared(self);
}
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode {
    if (![mode isEqualToString:NSRunLoopCommonModes]) {
        return;
    }
    timer->_due = mainThread().now + timer->_seconds;
    mainThread().timers.push_back([timer retain]);
}
@end

@implementation NSNotification {
@public
    NSString* _name;
    NSDictionary* _userInfo;
}
- (void)dealloc {
    [_name release];
    [_userInfo release];
    [super dealloc];
}
- (NSString*)name {
    return _name;
}
- (id)object {
    return nil;
}
- (NSDictionary*)userInfo {
    return _userInfo;
}
@end

// The token returned by addObserverForName:.
@interface FakeObserver : NSObject {
@public
    NSString* _name;
    NSOperationQueue* _queue;
    void (^_block)(NSNotification*);
}
@end

@implementation FakeObserver
- (void)dealloc {
    [_name release];
    [_queue release];
    [_block release];
    [super dealloc];
}
@end

@implementation NSNotificationCenter {
@public
    std::vector<FakeObserver*> _observers;
}
+ (NSNotificationCenter*)defaultCenter {
    return shared(self);
}
- (void)dealloc {
    for (FakeObserver* const observer : _observers) {
        [observer release];
    }
    [super dealloc];
}
- (id<NSObject>)addObserverForName:(NSString*)name
                            object:(id)object
                             queue:(NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification*))block {
    FakeObserver* const observer = [FakeObserver new];
    observer->_name = [name copy];
    observer->_queue = [queue retain];
    observer->_block = [block copy];
    _observers.push_back(observer);
    return observer;
}
- (void)removeObserver:(id)observer {
    if (const auto own = std::ranges::find(_observers, observer); own != _observers.end()) {
        _observers.erase(own);
        [observer release];
    }
}
@end

namespace vantrel::fake::cocoa {

NSNotification* makeNotification(NSString* name, NSDictionary* userInfo) {
    NSNotification* const made = [[NSNotification new] autorelease];
    made->_name = [name copy];
    made->_userInfo = [userInfo retain];
    return made;
}

void runMainQueue() {
    while (true) {
        Block next = nil;
        {
            const std::scoped_lock lock(mainThread().mutex);
            if (mainThread().blocks.empty()) {
                return;
            }
            next = mainThread().blocks.front();
            mainThread().blocks.pop_front();
        }
        // The run loop drains its pool after each block.
        @autoreleasepool {
            next();
            [next release];
        }
    }
}

void advance(double seconds) {
    MainThread& thread = mainThread();
    const double end = thread.now + seconds;
    runMainQueue();
    while (true) {
        const auto next =
            std::ranges::min_element(thread.timers, {}, [](NSTimer* timer) { return timer->_due; });
        if (next == thread.timers.end() || (*next)->_due > end) {
            break;
        }
        @autoreleasepool {
            NSTimer* const timer = [[*next retain] autorelease];
            thread.now = timer->_due;
            const auto block = [[timer->_block retain] autorelease];
            timer->_due += timer->_seconds;
            block(timer);
            if (!timer->_repeats) {
                [timer invalidate];
            }
        }
        runMainQueue();
    }
    thread.now = end;
}

std::size_t scheduledTimers() {
    return mainThread().timers.size();
}

std::size_t observers() {
    std::size_t count = 0;
    for (const auto& [kind, object] : mainThread().shared) {
        if ([object isKindOfClass:[NSNotificationCenter class]]) {
            count += static_cast<NSNotificationCenter*>(object)->_observers.size();
        }
    }
    @autoreleasepool {
        return count + static_cast<NSNotificationCenter*>(NSWorkspace.sharedWorkspace.notificationCenter)
                           ->_observers.size();
    }
}

// Observers with a queue are called from it later, even if they were removed in the meantime.
void deliver(NSNotificationCenter* center, NSNotification* notification) {
    std::vector<FakeObserver*> notified;
    for (FakeObserver* const observer : center->_observers) {
        if (observer->_name == nil || [observer->_name isEqualToString:notification.name]) {
            notified.push_back([[observer retain] autorelease]);
        }
    }
    for (FakeObserver* const observer : notified) {
        if (observer->_queue == nil) {
            observer->_block(notification);
        } else {
            [observer->_queue addOperationWithBlock:^{
              observer->_block(notification);
            }];
        }
    }
}

namespace {
const PlatformPart part(reset);
}

void reset() {
    @autoreleasepool {
        for (NSTimer* const timer : std::vector(mainThread().timers)) {
            [timer invalidate];
        }
        runMainQueue();
        for (const auto& [kind, object] : std::exchange(mainThread().shared, {})) {
            [object release];
        }
    }
    system() = {};
}

} // namespace vantrel::fake::cocoa
