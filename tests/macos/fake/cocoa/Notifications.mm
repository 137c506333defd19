// Fake notification centre: at most one notification, its buttons, and the permission to show it.
#import "tests/macos/fake/cocoa/Cocoa.h"

#import <UserNotifications/UserNotifications.h>

#include "tests/macos/fake/ObjectLedger.h"

#include <thread>

// What the program's delegate may have.
@protocol NotificationDelegate
- (void)userNotificationCenter:(UNUserNotificationCenter*)center
    didReceiveNotificationResponse:(UNNotificationResponse*)response
             withCompletionHandler:(void (^)(void))done;
@end

using namespace vantrel::fake::cocoa;

namespace {

NotificationCenter& state() {
    return vantrel::fake::cocoa::system().notifications;
}

} // namespace

NSString* const UNNotificationDefaultActionIdentifier = @"com.apple.UNNotificationDefaultActionIdentifier";

@implementation NSSet {
@public
    id _only;
}
+ (instancetype)setWithObject:(id)object {
    NSSet* const made = [[NSSet new] autorelease];
    made->_only = [object retain];
    return made;
}
- (void)dealloc {
    [_only release];
    [super dealloc];
}
@end

@implementation UNNotificationAction {
@public
    std::string _identifier;
    std::string _title;
}
+ (instancetype)actionWithIdentifier:(NSString*)identifier
                               title:(NSString*)title
                             options:(UNNotificationActionOptions)options {
    UNNotificationAction* const made = [[UNNotificationAction new] autorelease];
    made->_identifier = text(identifier);
    made->_title = text(title);
    return made;
}
@end

@implementation UNNotificationCategory {
@public
    std::string _identifier;
    std::vector<std::pair<std::string, std::string>> _actions;
}
+ (instancetype)categoryWithIdentifier:(NSString*)identifier
                               actions:(NSArray*)actions
                     intentIdentifiers:(NSArray*)intentIdentifiers
                               options:(NSUInteger)options {
    UNNotificationCategory* const made = [[UNNotificationCategory new] autorelease];
    made->_identifier = text(identifier);
    for (UNNotificationAction* const action in actions) {
        made->_actions.emplace_back(action->_identifier, action->_title);
    }
    return made;
}
@end

@implementation UNMutableNotificationContent {
@public
    std::string _title;
    std::string _body;
    std::string _category;
}
- (NSString*)title {
    return make(_title);
}
- (void)setTitle:(NSString*)title {
    _title = text(title);
}
- (NSString*)body {
    return make(_body);
}
- (void)setBody:(NSString*)body {
    _body = text(body);
}
- (NSString*)categoryIdentifier {
    return make(_category);
}
- (void)setCategoryIdentifier:(NSString*)category {
    _category = text(category);
}
@end

@implementation UNNotificationRequest {
@public
    UNMutableNotificationContent* _content;
}
+ (instancetype)requestWithIdentifier:(NSString*)identifier
                              content:(UNMutableNotificationContent*)content
                              trigger:(id)trigger {
    UNNotificationRequest* const made = [[UNNotificationRequest new] autorelease];
    made->_content = [content retain];
    return made;
}
- (void)dealloc {
    [_content release];
    [super dealloc];
}
@end

@implementation UNNotificationResponse {
@public
    std::string _action;
}
- (NSString*)actionIdentifier {
    return make(_action);
}
@end

@implementation UNUserNotificationCenter {
@public
    // Not retained.
    id _delegate;
    UNNotificationCategory* _category;
    void (^_asked)(BOOL, NSError*);
}
+ (UNUserNotificationCenter*)currentNotificationCenter {
    if (vantrel::fake::cocoa::system().bundleID.empty()) {
        vantrel::fake::fail("currentNotificationCenter", "the program is not in a bundle");
    }
    return shared(self);
}
- (void)dealloc {
    [_category release];
    [_asked release];
    [super dealloc];
}
- (id)delegate {
    return _delegate;
}
- (void)setDelegate:(id)delegate {
    _delegate = delegate;
}
- (void)requestAuthorizationWithOptions:(UNAuthorizationOptions)options
                      completionHandler:(void (^)(BOOL granted, NSError* error))handler {
    [_asked release];
    _asked = [handler copy];
}
- (void)setNotificationCategories:(NSSet*)categories {
    UNNotificationCategory* const category = [categories->_only retain];
    [_category release];
    _category = category;
}
- (void)addNotificationRequest:(UNNotificationRequest*)request
         withCompletionHandler:(void (^)(NSError*))handler {
    state().shown = request->_content->_title + ": " + request->_content->_body;
    state().buttons.clear();
    if (_category != nil && request->_content->_category == _category->_identifier) {
        for (const auto& [identifier, title] : _category->_actions) {
            state().buttons.push_back(title);
        }
    }
}
- (void)removeDeliveredNotificationsWithIdentifiers:(NSArray*)identifiers {
    state().shown.clear();
}
- (void)removePendingNotificationRequestsWithIdentifiers:(NSArray*)identifiers {
}
@end

namespace vantrel::fake::cocoa {

void answerNotificationPermission(bool isGranted) {
    UNUserNotificationCenter* const center = shared([UNUserNotificationCenter class]);
    const auto asked = std::exchange(center->_asked, nil);
    if (asked != nil) {
        std::thread([asked, isGranted] {
            @autoreleasepool {
                asked(isGranted, nil);
                [asked release];
            }
        }).join();
    }
}

void clickNotification(const std::string& button) {
    UNUserNotificationCenter* const center = shared([UNUserNotificationCenter class]);
    std::thread([center, button] {
        @autoreleasepool {
            UNNotificationResponse* const response = [[UNNotificationResponse new] autorelease];
            response->_action = text(UNNotificationDefaultActionIdentifier);
            for (const auto& [identifier, title] : center->_category->_actions) {
                if (title == button) {
                    response->_action = identifier;
                }
            }
            [static_cast<id<NotificationDelegate>>(center->_delegate) userNotificationCenter:center
                                                              didReceiveNotificationResponse:response
                                                                       withCompletionHandler:^{
                                                                       }];
        }
    }).join();
}

} // namespace vantrel::fake::cocoa
