#include "Vantrel/platform/macos/MacNotifications.h"

#include "Vantrel/platform/macos/FoundationText.h"

#import <UserNotifications/UserNotifications.h>

#include <cstdint>
#include <utility>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

// Receives what the user does with a notification, on any thread.
@interface VantrelNotificationDelegate : NSObject {
@public
    std::function<void(const std::string& action)> m_chosen;
}
@end

@implementation VantrelNotificationDelegate
- (void)userNotificationCenter:(UNUserNotificationCenter*)center
    didReceiveNotificationResponse:(UNNotificationResponse*)response
             withCompletionHandler:(void (^)(void))done {
    m_chosen(vantrel::FoundationText::utf8(response.actionIdentifier).value_or(""));
    done();
}
// Otherwise nothing is shown while the program is active.
- (void)userNotificationCenter:(UNUserNotificationCenter*)center
       willPresentNotification:(id)notification
         withCompletionHandler:(void (^)(UNNotificationPresentationOptions options))show {
    show(UNNotificationPresentationOptionBanner | UNNotificationPresentationOptionList);
}
@end

namespace vantrel {

namespace {

// There is only one, so that a new one replaces it.
NSString* const identifier = @"problem";

// Empty if the text is not valid UTF-8.
NSString* shownText(const std::string& text) {
    NSString* const made = FoundationText::make(text);
    return made != nil ? made : @"";
}

std::string nameOf(std::size_t action) {
    return "action-" + std::to_string(action);
}

UNNotificationCategory* categoryOf(const std::vector<Notifications::Action>& actions) {
    std::vector<UNNotificationAction*> offered;
    for (std::size_t i = 0; i < actions.size(); ++i) {
        offered.push_back([UNNotificationAction actionWithIdentifier:shownText(nameOf(i))
                                                               title:shownText(actions[i].text)
                                                             options:UNNotificationActionOptionForeground]);
    }
    return [UNNotificationCategory categoryWithIdentifier:identifier
                                                  actions:[NSArray arrayWithObjects:offered.data()
                                                                              count:offered.size()]
                                        intentIdentifiers:[NSArray arrayWithObjects:nullptr count:0]
                                                  options:0];
}

UNNotificationRequest* requestOf(const std::string& title, const std::string& body) {
    UNMutableNotificationContent* const content = [[UNMutableNotificationContent alloc] init];
    content.title = shownText(title);
    content.body = shownText(body);
    content.categoryIdentifier = identifier;
    return [UNNotificationRequest requestWithIdentifier:identifier content:content trigger:nil];
}

} // namespace

struct MacNotifications::State {
    // Null outside a bundle, where the system has no notifications for a program.
    UNUserNotificationCenter* center = nil;
    VantrelNotificationDelegate* delegate = nil;
    std::vector<Action> actions;
    // Counts what was shown and withdrawn.
    std::uint64_t epoch = 0;

    void perform(const std::string& chosen) {
        if (actions.empty()) {
            return;
        }
        std::size_t index = 0;
        while (index < actions.size() && nameOf(index) != chosen) {
            ++index;
        }
        const bool isClick = chosen == FoundationText::utf8(UNNotificationDefaultActionIdentifier);
        // A copy: performing it may withdraw the notification.
        if (const auto work = isClick                  ? actions.front().perform
                              : index < actions.size() ? actions[index].perform
                                                       : nullptr) {
            work();
        }
    }
};

MacNotifications::MacNotifications() : m_state(std::make_shared<State>()) {
    @autoreleasepool {
        if (NSBundle.mainBundle.bundleIdentifier == nil) {
            return;
        }
        m_state->center = [UNUserNotificationCenter currentNotificationCenter];
        m_state->delegate = [[VantrelNotificationDelegate alloc] init];
        m_state->delegate->m_chosen = [held = std::weak_ptr(m_state)](const std::string& action) {
            [NSOperationQueue.mainQueue addOperationWithBlock:[held, action] {
                if (const auto state = held.lock()) {
                    state->perform(action);
                }
            }];
        };
        m_state->center.delegate = m_state->delegate;
    }
}

MacNotifications::~MacNotifications() {
    @autoreleasepool {
        m_state->center.delegate = nil;
    }
}

void MacNotifications::show(const std::string& title, const std::string& body, std::vector<Action> actions) {
    @autoreleasepool {
        m_state->actions = std::move(actions);
        [m_state->center setNotificationCategories:[NSSet setWithObject:categoryOf(m_state->actions)]];
        UNNotificationRequest* const request = requestOf(title, body);
        const auto add = [held = std::weak_ptr(m_state), request, epoch = ++m_state->epoch] {
            const auto state = held.lock();
            // It may have been withdrawn or replaced while the user was asked.
            if (state && state->epoch == epoch) {
                [state->center addNotificationRequest:request withCompletionHandler:nil];
            }
        };
        [m_state->center requestAuthorizationWithOptions:UNAuthorizationOptionAlert
                                       completionHandler:[add](BOOL granted, NSError* /*error*/) {
                                           if (granted) {
                                               [NSOperationQueue.mainQueue addOperationWithBlock:add];
                                           }
                                       }];
    }
}

void MacNotifications::withdraw() {
    @autoreleasepool {
        ++m_state->epoch;
        m_state->actions.clear();
        [m_state->center removePendingNotificationRequestsWithIdentifiers:@[ identifier ]];
        [m_state->center removeDeliveredNotificationsWithIdentifiers:@[ identifier ]];
    }
}

} // namespace vantrel
