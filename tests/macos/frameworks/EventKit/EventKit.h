// Our own declarations of the parts of EventKit that Vantrel uses.
#pragma once

#include <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

typedef enum EKEntityType : NSUInteger { EKEntityTypeEvent = 0, EKEntityTypeReminder = 1 } EKEntityType;

typedef enum EKAuthorizationStatus : NSInteger {
    EKAuthorizationStatusNotDetermined = 0,
    EKAuthorizationStatusRestricted = 1,
    EKAuthorizationStatusDenied = 2,
    // Full access from macOS 14 on.
    EKAuthorizationStatusAuthorized = 3,
    EKAuthorizationStatusWriteOnly = 4,
} EKAuthorizationStatus;

typedef enum EKEventStatus : NSInteger {
    EKEventStatusNone = 0,
    EKEventStatusConfirmed = 1,
    EKEventStatusTentative = 2,
    EKEventStatusCanceled = 3,
} EKEventStatus;

@class EKCalendar;
@class NSPredicate;

@interface EKEvent : NSObject
// Nil for an event that is not stored yet.
@property(nullable, readonly) NSString* eventIdentifier;
@property(nullable, readonly, copy) NSString* title;
@property(nullable, readonly, copy) NSString* location;
@property(nullable, readonly, copy) NSString* notes;
@property(nullable, readonly, copy) NSURL* URL;
@property(nullable, readonly, copy) NSDate* startDate;
@property(nullable, readonly, copy) NSDate* endDate;
@property(readonly, getter=isAllDay) BOOL allDay;
@property(readonly) EKEventStatus status;
@end

typedef void (^EKEventStoreRequestAccessCompletionHandler)(BOOL granted, NSError* _Nullable error);

@interface EKEventStore : NSObject
+ (EKAuthorizationStatus)authorizationStatusForEntityType:(EKEntityType)type;
- (void)requestAccessToEntityType:(EKEntityType)type
                       completion:(EKEventStoreRequestAccessCompletionHandler)completion
    VANTREL_MACOS_UNTIL(10.9, 14.0);
- (void)requestFullAccessToEventsWithCompletion:(EKEventStoreRequestAccessCompletionHandler)completion
    VANTREL_MACOS(14.0);
- (NSPredicate*)predicateForEventsWithStartDate:(NSDate*)start
                                        endDate:(NSDate*)end
                                      calendars:(nullable NSArray<EKCalendar*>*)calendars;
- (NSArray<EKEvent*>*)eventsMatchingPredicate:(NSPredicate*)predicate;
@end

#pragma clang assume_nonnull end
