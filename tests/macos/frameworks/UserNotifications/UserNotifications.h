// Our own declarations of the parts of User Notifications that Vantrel uses.
#pragma once

#include <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

typedef NSUInteger UNAuthorizationOptions;
enum : UNAuthorizationOptions { UNAuthorizationOptionAlert = 1 << 2 };
typedef NSUInteger UNNotificationActionOptions;
enum : UNNotificationActionOptions { UNNotificationActionOptionForeground = 1 << 2 };
typedef NSUInteger UNNotificationPresentationOptions;
enum : UNNotificationPresentationOptions {
    UNNotificationPresentationOptionList = 1 << 3,
    UNNotificationPresentationOptionBanner = 1 << 4,
};

VANTREL_EXTERN NSString* const UNNotificationDefaultActionIdentifier VANTREL_MACOS(10.14);

VANTREL_MACOS(10.14)
@interface UNNotificationAction : NSObject
+ (instancetype)actionWithIdentifier:(NSString*)identifier
                               title:(NSString*)title
                             options:(UNNotificationActionOptions)options;
@end

VANTREL_MACOS(10.14)
@interface UNNotificationCategory : NSObject
+ (instancetype)categoryWithIdentifier:(NSString*)identifier
                               actions:(NSArray<UNNotificationAction*>*)actions
                     intentIdentifiers:(NSArray<NSString*>*)intentIdentifiers
                               options:(NSUInteger)options;
@end

VANTREL_MACOS(10.14)
@interface UNMutableNotificationContent : NSObject
@property(copy) NSString* title;
@property(copy) NSString* body;
@property(copy) NSString* categoryIdentifier;
@end

VANTREL_MACOS(10.14)
@interface UNNotificationRequest : NSObject
+ (instancetype)requestWithIdentifier:(NSString*)identifier
                              content:(UNMutableNotificationContent*)content
                              trigger:(nullable id)trigger;
@end

VANTREL_MACOS(10.14)
@interface UNNotificationResponse : NSObject
@property(readonly, copy) NSString* actionIdentifier;
@end

VANTREL_MACOS(10.14)
@interface UNUserNotificationCenter : NSObject
// Ends the program where it is not in a bundle.
+ (UNUserNotificationCenter*)currentNotificationCenter;
@property(nullable, weak) id delegate;
// The handler is called on a thread of its own.
- (void)requestAuthorizationWithOptions:(UNAuthorizationOptions)options
                      completionHandler:(void (^)(BOOL granted, NSError* _Nullable error))handler;
- (void)setNotificationCategories:(NSSet<UNNotificationCategory*>*)categories;
- (void)addNotificationRequest:(UNNotificationRequest*)request
         withCompletionHandler:(nullable void (^)(NSError* _Nullable error))handler;
- (void)removeDeliveredNotificationsWithIdentifiers:(NSArray<NSString*>*)identifiers;
- (void)removePendingNotificationRequestsWithIdentifiers:(NSArray<NSString*>*)identifiers;
@end

#pragma clang assume_nonnull end
