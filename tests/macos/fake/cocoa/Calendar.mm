// Fake EventKit.
#import "tests/macos/fake/cocoa/Cocoa.h"

#import <EventKit/EventKit.h>

using namespace vantrel::fake::cocoa;

@interface EKEvent () {
@public
    Event _shown;
}
@end

@implementation EKEvent
- (NSString*)eventIdentifier {
    return make(_shown.identifier);
}
- (NSString*)title {
    return make(_shown.title);
}
- (NSString*)location {
    return make(_shown.location);
}
- (NSString*)notes {
    return make(_shown.notes);
}
- (NSURL*)URL {
    return _shown.url ? makeURL(*_shown.url) : nil;
}
- (NSDate*)startDate {
    return _shown.start ? [NSDate dateWithTimeIntervalSince1970:*_shown.start] : nil;
}
- (NSDate*)endDate {
    return _shown.end ? [NSDate dateWithTimeIntervalSince1970:*_shown.end] : nil;
}
- (BOOL)isAllDay {
    return _shown.isAllDay;
}
- (EKEventStatus)status {
    return static_cast<EKEventStatus>(_shown.status);
}
@end

@interface FakeInterval : NSPredicate {
@public
    double _from;
    double _to;
}
@end

@implementation FakeInterval
@end

@implementation EKEventStore {
    // A store created before access was granted keeps seeing no events.
    long _access;
}
+ (EKAuthorizationStatus)authorizationStatusForEntityType:(EKEntityType)type {
    return static_cast<EKAuthorizationStatus>(vantrel::fake::cocoa::system().calendarAccess);
}
- (instancetype)init {
    _access = vantrel::fake::cocoa::system().calendarAccess;
    vantrel::fake::cocoa::system().calls.emplace_back("event store");
    return self;
}
- (void)requestAccess:(EKEventStoreRequestAccessCompletionHandler)completion {
    vantrel::fake::cocoa::system().calendarAccess = vantrel::fake::cocoa::system().calendarAccessWhenAsked;
    const bool isGranted = vantrel::fake::cocoa::system().calendarAccess == EKAuthorizationStatusAuthorized;
    completion(isGranted, isGranted ? nil : makeError(1, "Denied."));
}
- (void)requestAccessToEntityType:(EKEntityType)type
                       completion:(EKEventStoreRequestAccessCompletionHandler)completion {
    vantrel::fake::cocoa::system().calls.emplace_back("request access");
    [self requestAccess:completion];
}
- (void)requestFullAccessToEventsWithCompletion:(EKEventStoreRequestAccessCompletionHandler)completion {
    vantrel::fake::cocoa::system().calls.emplace_back("request full access");
    [self requestAccess:completion];
}
- (NSPredicate*)predicateForEventsWithStartDate:(NSDate*)start
                                        endDate:(NSDate*)end
                                      calendars:(NSArray*)calendars {
    FakeInterval* const made = [[FakeInterval new] autorelease];
    made->_from = start.timeIntervalSince1970;
    made->_to = end.timeIntervalSince1970;
    return made;
}
- (NSArray*)eventsMatchingPredicate:(NSPredicate*)predicate {
    auto* const interval = static_cast<FakeInterval*>(predicate);
    std::vector<id> made;
    for (const Event& event : vantrel::fake::cocoa::system().events) {
        const bool isOverlapping = !event.start || (*event.start <= interval->_to &&
                                                    event.end.value_or(*event.start) >= interval->_from);
        if (_access == EKAuthorizationStatusAuthorized && isOverlapping) {
            EKEvent* const object = [[EKEvent new] autorelease];
            object->_shown = event;
            made.push_back(object);
        }
    }
    return makeArray(made);
}
@end
