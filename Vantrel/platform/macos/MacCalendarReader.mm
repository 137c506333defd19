#include "Vantrel/platform/macos/MacCalendarReader.h"

#include "Vantrel/platform/macos/FoundationText.h"
#include "Vantrel/platform/macos/WholeDays.h"

#import <EventKit/EventKit.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <mutex>
#include <utility>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

// Available from macOS 14 on; older SDKs do not declare it.
@protocol FullAccessToEvents
- (void)requestFullAccessToEventsWithCompletion:(EKEventStoreRequestAccessCompletionHandler)completion;
@end

namespace vantrel {

struct MacCalendarReader::State {
    std::mutex mutex;
    // Created on first use. A store created before access was granted sees no events.
    EKEventStore* store = nil;

    EKEventStore* sharedStore() {
        const std::scoped_lock lock(mutex);
        if (store == nil) {
            store = [[EKEventStore alloc] init];
        }
        return store;
    }

    void discardStore() {
        const std::scoped_lock lock(mutex);
        store = nil;
    }
};

namespace {

Date date(NSDate* date) {
    return Date(std::chrono::microseconds(std::llround(date.timeIntervalSince1970 * 1e6)));
}

NSDate* foundationDate(Date date) {
    return
        [NSDate dateWithTimeIntervalSince1970:std::chrono::duration<double>(date.time_since_epoch()).count()];
}

EKAuthorizationStatus accessToEvents() {
    return [EKEventStore authorizationStatusForEntityType:EKEntityTypeEvent];
}

CalendarEvent event(EKEvent* event, const TimeZone& zone) {
    const Date start = date(event.startDate);
    const Date end = event.endDate != nil ? std::max(start, date(event.endDate)) : start;
    return {.identifier = FoundationText::utf8(event.eventIdentifier).value_or(""),
            .title = FoundationText::utf8(event.title).value_or(""),
            .location = FoundationText::utf8(event.location),
            .notes = FoundationText::utf8(event.notes),
            .url = FoundationText::utf8(event.URL.absoluteString),
            .start = start,
            // In the store, whole-day events end a second before midnight.
            .end = event.allDay ? WholeDays::endOfDay(end, zone) : end,
            .isAllDay = event.allDay};
}

} // namespace

MacCalendarReader::MacCalendarReader() : m_state(std::make_shared<State>()) {}

MacCalendarReader::~MacCalendarReader() = default;

void MacCalendarReader::requestAccessIfNeeded(std::function<void()> done) {
    @autoreleasepool {
        if (accessToEvents() != EKAuthorizationStatusNotDetermined) {
            done();
            return;
        }
        // Called on one of the store's threads, perhaps long after this reader was destroyed.
        const EKEventStoreRequestAccessCompletionHandler completion =
            [state = std::weak_ptr(m_state), done = std::move(done)](BOOL /*isGranted*/, NSError* /*error*/) {
                [NSOperationQueue.mainQueue addOperationWithBlock:[state, done] {
                    if (const auto alive = state.lock()) {
                        alive->discardStore();
                        done();
                    }
                }];
            };
        EKEventStore* const store = m_state->sharedStore();
        if ([store respondsToSelector:@selector(requestFullAccessToEventsWithCompletion:)]) {
            [static_cast<id<FullAccessToEvents>>(store) requestFullAccessToEventsWithCompletion:completion];
        } else {
            [store requestAccessToEntityType:EKEntityTypeEvent completion:completion];
        }
    }
}

CalendarReading MacCalendarReader::read(const CalendarQuery& query) {
    @autoreleasepool {
        if (accessToEvents() != EKAuthorizationStatusAuthorized) {
            return {};
        }
        EKEventStore* const store = m_state->sharedStore();
        NSPredicate* const predicate = [store predicateForEventsWithStartDate:foundationDate(query.from)
                                                                      endDate:foundationDate(query.to)
                                                                    calendars:nil];
        CalendarReading reading{.hasAccess = true, .events = {}};
        for (EKEvent* const found in [store eventsMatchingPredicate:predicate]) {
            if (found.status != EKEventStatusCanceled && found.startDate != nil) {
                reading.events.push_back(event(found, query.zone));
            }
        }
        std::ranges::stable_sort(reading.events, {}, &CalendarEvent::start);
        return reading;
    }
}

} // namespace vantrel
