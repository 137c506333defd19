// An observer registration with a notification centre, removed on destruction. Objective-C++ only.
#pragma once

#import <Foundation/Foundation.h>

#include <functional>
#include <memory>

namespace vantrel {

// Calls `handler` on the main thread. Notifications not yet delivered when the registration ends are dropped.
class NotificationObserver {
public:
    using Handler = std::function<void(NSNotification* _Nonnull notification)>;

    NotificationObserver(NSNotificationCenter* _Nonnull center, NSNotificationName _Nonnull name,
                         Handler handler)
        : m_center(center), m_handler(std::make_shared<Handler>(std::move(handler))) {
        const std::weak_ptr<Handler> held = m_handler;
        m_token = [center addObserverForName:name
                                      object:nil
                                       queue:NSOperationQueue.mainQueue
                                  usingBlock:^(NSNotification* notification) {
                                    if (const auto called = held.lock()) {
                                        (*called)(notification);
                                    }
                                  }];
    }

    ~NotificationObserver() { [m_center removeObserver:m_token]; }

    NotificationObserver(const NotificationObserver&) = delete;
    NotificationObserver& operator=(const NotificationObserver&) = delete;

private:
    NSNotificationCenter* _Nonnull m_center;
    std::shared_ptr<Handler> m_handler;
    id<NSObject> _Null_unspecified m_token;
};

} // namespace vantrel
