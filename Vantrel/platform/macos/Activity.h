// Prevents App Nap, which slows down programs without visible windows, while an object exists.
// Objective-C++ only.
#pragma once

#import <Foundation/Foundation.h>

namespace vantrel {

// The Mac may still go to sleep.
class Activity {
public:
    Activity()
        : m_token([NSProcessInfo.processInfo
              beginActivityWithOptions:NSActivityUserInitiatedAllowingIdleSystemSleep
                                reason:@"putting windows back"]) {}
    ~Activity() { [NSProcessInfo.processInfo endActivity:m_token]; }
    Activity(const Activity&) = delete;
    Activity& operator=(const Activity&) = delete;

private:
    id<NSObject> _Nonnull m_token;
};

} // namespace vantrel
