// Observes a distributed notification on the main thread.
#pragma once

#include "Vantrel/platform/macos/CFText.h"

#include <CoreFoundation/CoreFoundation.h>
#include <functional>
#include <utility>

namespace vantrel {

// Unlike NSNotificationCenter's blocks, it is called at once even while the program is inactive, which a
// menu-bar program always is.
class DistributedObserver {
public:
    DistributedObserver(const char* name, std::function<void()> react)
        : m_name(CFText::make(name)), m_react(std::move(react)) {
        CFNotificationCenterAddObserver(CFNotificationCenterGetDistributedCenter(), this, received,
                                        m_name.get(), nullptr,
                                        CFNotificationSuspensionBehaviorDeliverImmediately);
    }
    ~DistributedObserver() {
        CFNotificationCenterRemoveObserver(CFNotificationCenterGetDistributedCenter(), this, m_name.get(),
                                           nullptr);
    }
    DistributedObserver(const DistributedObserver&) = delete;
    DistributedObserver& operator=(const DistributedObserver&) = delete;

private:
    static void received(CFNotificationCenterRef /*center*/, void* observer, CFNotificationName /*name*/,
                         const void* /*object*/, CFDictionaryRef /*userInfo*/) {
        // A copy: the handler may remove this observer.
        const auto react = static_cast<DistributedObserver*>(observer)->m_react;
        react();
    }

    CFRef<CFStringRef> m_name;
    std::function<void()> m_react;
};

} // namespace vantrel
