// Fake notifications of windows that move or change their size.
#include "tests/macos/PlatformTest.h"
#include "tests/macos/fake/AccessibilityElements.h"

#include <mutex>
#include <set>
#include <utility>
#include <vector>

namespace vantrel::fake {

namespace {

struct ObserverObject : Object {
    AXObserverCallback callback;
    Value source;

    // Its registrations end with it.
    ~ObserverObject();
};

struct SourceObject : Object {};

struct Registration {
    const ObserverObject* observer;
    const Element* element;
    std::string notification;
    void* context;
};

// Of observers whose source is in the main run loop.
struct Observers {
    std::recursive_mutex mutex;
    std::vector<Registration> registrations;
    std::set<const void*> sources;
    std::vector<std::pair<const Element*, std::string>> moves;
};

Observers& observers() {
    static Observers all;
    return all;
}

ObserverObject::~ObserverObject() {
    const std::scoped_lock lock(observers().mutex);
    std::erase_if(observers().registrations, [&](const Registration& each) { return each.observer == this; });
}

[[maybe_unused]] const PlatformPart part([] { observers().moves.clear(); });

} // namespace

void noteChange(const Element& element, const std::string& attribute) {
    if (attribute != "AXPosition" && attribute != "AXSize") {
        return;
    }
    {
        const std::scoped_lock lock(observers().mutex);
        if (observers().registrations.empty()) {
            return;
        }
        observers().moves.emplace_back(&element,
                                       attribute == "AXPosition" ? "AXWindowMoved" : "AXWindowResized");
    }
    if (accessibility().onMove) {
        accessibility().onMove();
    }
}

void deliverMoves() {
    std::vector<std::pair<Registration, Value>> called;
    {
        const std::scoped_lock lock(observers().mutex);
        for (const auto& [element, notification] : std::exchange(observers().moves, {})) {
            for (const Registration& each : observers().registrations) {
                if (each.element == element && each.notification == notification &&
                    observers().sources.contains(each.observer->source.get())) {
                    called.emplace_back(each, Value::retain(each.observer));
                }
            }
        }
    }
    for (const auto& [each, kept] : called) {
        // The reference is not the one that the program has.
        const Value element = adopted(makeReference(nullptr));
        each.observer->callback(static_cast<AXObserverRef>(kept.get()),
                                static_cast<AXUIElementRef>(element.get()), text(each.notification).get(),
                                each.context);
    }
}

std::size_t moveObservers() {
    const std::scoped_lock lock(observers().mutex);
    return observers().sources.size();
}

} // namespace vantrel::fake

using namespace vantrel::fake;

extern "C" {

AXError AXObserverCreate(pid_t /*application*/, AXObserverCallback callback, AXObserverRef* observer) {
    poison(observer);
    if (!isTrusted()) {
        return kAXErrorAPIDisabled;
    }
    auto* const object = make<ObserverObject>(Kind::observer);
    object->callback = callback;
    object->source = adopted(make<SourceObject>(Kind::runLoopSource));
    *observer = static_cast<AXObserverRef>(static_cast<void*>(object));
    return kAXErrorSuccess;
}

AXError AXObserverAddNotification(AXObserverRef observer, AXUIElementRef reference, CFStringRef notification,
                                  void* context) {
    const std::string name = textOf(notification);
    const Element& element = addressed(reference, __func__, "get " + name + " notices");
    if (const AXError error = generalError(element); error != kAXErrorSuccess) {
        return error;
    }
    if (accessibility().isMoveUnreported) {
        return kAXErrorNotificationUnsupported;
    }
    const std::scoped_lock lock(observers().mutex);
    observers().registrations.push_back(
        {as<ObserverObject>(observer, Kind::observer, __func__), &element, name, context});
    return kAXErrorSuccess;
}

CFRunLoopSourceRef AXObserverGetRunLoopSource(AXObserverRef observer) {
    return static_cast<CFRunLoopSourceRef>(
        const_cast<void*>(as<ObserverObject>(observer, Kind::observer, __func__)->source.get()));
}

const CFRunLoopMode kCFRunLoopCommonModes = CFSTR("kCFRunLoopCommonModes");

CFRunLoopRef CFRunLoopGetMain() {
    static int loop = 0;
    return reinterpret_cast<CFRunLoopRef>(&loop);
}

void CFRunLoopAddSource(CFRunLoopRef /*loop*/, CFRunLoopSourceRef source, CFRunLoopMode /*mode*/) {
    const std::scoped_lock lock(observers().mutex);
    observers().sources.insert(source);
}

void CFRunLoopRemoveSource(CFRunLoopRef /*loop*/, CFRunLoopSourceRef source, CFRunLoopMode /*mode*/) {
    const std::scoped_lock lock(observers().mutex);
    observers().sources.erase(source);
}

} // extern "C"
