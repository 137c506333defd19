#include "tests/macos/fake/Accessibility.h"

#include "tests/macos/PlatformTest.h"

#include <cstdio>
#include <mutex>
#include <set>
#include <utility>

extern "C" void fakeAutoreleaseAnObject();

namespace vantrel::fake {

namespace {

struct ElementObject : Object {
    // Null for the system-wide element.
    std::shared_ptr<Element> element;
    float timeout;
};

struct AXValueObject : Object {
    AXValueType type;
    CGPoint point;
    CGSize size;
    AXError error;
};

struct ObserverObject : Object {
    AXObserverCallback callback;
    Value source;

    // Its registrations end with it.
    ~ObserverObject();
};

struct SourceObject : Object {};

struct EventObject : Object {
    CGPoint location;
};

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

[[maybe_unused]] const PlatformPart part([] {
    accessibility() = {};
    observers().moves.clear();
});

// An attribute of a window has changed.
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

ElementObject* makeReference(std::shared_ptr<Element> element) {
    auto* const object = make<ElementObject>(Kind::element);
    object->element = std::move(element);
    return object;
}

AXValueObject* makeValue(AXValueType type) {
    auto* const object = make<AXValueObject>(Kind::axValue);
    object->type = type;
    return object;
}

Value adopted(Object* object) {
    return Value::adopt(object);
}

const AXValueObject& valueOf(CFTypeRef value, const char* function) {
    return *as<AXValueObject>(value, Kind::axValue, function);
}

std::string shown(CFTypeRef value) {
    char buffer[64] = "?";
    switch (kindOf(value)) {
    case Kind::boolean:
        return CFBooleanGetValue(static_cast<CFBooleanRef>(value)) ? "true" : "false";
    case Kind::axValue: {
        const auto& held = valueOf(value, __func__);
        if (held.type == kAXValueTypeCGPoint) {
            std::snprintf(buffer, sizeof buffer, "%g,%g", held.point.x, held.point.y);
        } else {
            std::snprintf(buffer, sizeof buffer, "%gx%g", held.size.width, held.size.height);
        }
        return buffer;
    }
    default:
        return buffer;
    }
}

// Returns the element that a message is sent to, and records the message.
Element& addressed(AXUIElementRef reference, const char* function, std::string message) {
    const auto& object = *as<ElementObject>(reference, Kind::element, function);
    if (!object.element) {
        fail(function, "requests to the system-wide element are not supported");
    }
    accessibility().calls.push_back(std::move(message));
    if (auto& left = accessibility().requestsUntilRevoked; left && --*left < 0) {
        left.reset();
        accessibility().isTrusted = false;
    }
    if (accessibility().isAutoreleasing) {
        fakeAutoreleaseAnObject();
    }
    if (object.timeout != 1.0F) {
        ++accessibility().callsWithoutTimeout;
    }
    if (object.element->onRequest) {
        object.element->onRequest();
    }
    return *object.element;
}

bool isTrusted() {
    return accessibility().trust ? accessibility().trust() : accessibility().isTrusted;
}

// The error with which an element rejects every request.
AXError generalError(const Element& element) {
    if (!isTrusted()) {
        return kAXErrorAPIDisabled;
    }
    if (element.isHanging) {
        return kAXErrorCannotComplete;
    }
    return element.isDead ? kAXErrorInvalidUIElement : kAXErrorSuccess;
}

AXError errorFor(const std::map<std::string, AXError>& errors, const std::string& name) {
    const auto found = errors.find(name);
    return found == errors.end() ? kAXErrorSuccess : found->second;
}

// Gives the caller its own reference: the real platform returns new element references each time.
Value copyOf(const Value& value) {
    if (kindOf(value.get()) == Kind::array) {
        std::vector<Value> items;
        for (const Value& item : as<ArrayObject>(value.get(), Kind::array, __func__)->items) {
            items.push_back(copyOf(item));
        }
        return array(std::move(items));
    }
    if (kindOf(value.get()) == Kind::element) {
        return adopted(makeReference(as<ElementObject>(value.get(), Kind::element, __func__)->element));
    }
    return value;
}

AXError read(const Element& element, const std::string& name, Value& result) {
    if (const AXError error = errorFor(element.readErrors, name); error != kAXErrorSuccess) {
        return error;
    }
    const auto found = element.attributes.find(name);
    if (found == element.attributes.end()) {
        return kAXErrorAttributeUnsupported;
    }
    if (!found->second) {
        return kAXErrorNoValue;
    }
    result = copyOf(found->second);
    return kAXErrorSuccess;
}

// Out parameters are undefined after an error; using one crashes the test.
template <typename T>
void poison(T* out) {
    *out = reinterpret_cast<T>(std::uintptr_t{0xbadbadbadba0});
}

} // namespace

bool isSameElement(CFTypeRef one, CFTypeRef other) {
    return as<ElementObject>(one, Kind::element, __func__)->element ==
           as<ElementObject>(other, Kind::element, __func__)->element;
}

AccessibilityControl& accessibility() {
    static AccessibilityControl control;
    return control;
}

std::shared_ptr<Element> runApplication(pid_t pid) {
    auto application = std::make_shared<Element>();
    application->pid = pid;
    application->attributes["AXWindows"] = array({});
    accessibility().applications[pid] = application;
    return application;
}

std::shared_ptr<Element> makeWindow(const std::string& title, const CGRect& frame) {
    auto window = std::make_shared<Element>();
    window->attributes["AXTitle"] = text(title);
    window->attributes["AXSubrole"] = text("AXStandardWindow");
    window->attributes["AXMinimized"] = boolean(false);
    window->attributes["AXFullScreen"] = boolean(false);
    setFrame(*window, frame);
    return window;
}

void listWindows(Element& application, const std::vector<std::shared_ptr<Element>>& windows) {
    std::vector<Value> items;
    for (const auto& window : windows) {
        window->pid = application.pid;
        items.push_back(reference(window));
    }
    application.attributes["AXWindows"] = array(std::move(items));
}

Value reference(const std::shared_ptr<Element>& element) {
    return adopted(makeReference(element));
}

Value pointValue(double x, double y) {
    auto* const object = makeValue(kAXValueTypeCGPoint);
    object->point = {x, y};
    return adopted(object);
}

Value sizeValue(double width, double height) {
    auto* const object = makeValue(kAXValueTypeCGSize);
    object->size = {width, height};
    return adopted(object);
}

Value errorValue(AXError error) {
    auto* const object = makeValue(kAXValueTypeAXError);
    object->error = error;
    return adopted(object);
}

CGRect frameOf(const Element& window) {
    return {valueOf(window.attributes.at("AXPosition").get(), __func__).point,
            valueOf(window.attributes.at("AXSize").get(), __func__).size};
}

void setFrame(Element& window, const CGRect& frame) {
    window.attributes["AXPosition"] = pointValue(frame.origin.x, frame.origin.y);
    window.attributes["AXSize"] = sizeValue(frame.size.width, frame.size.height);
    noteChange(window, "AXPosition");
    noteChange(window, "AXSize");
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

const CFStringRef kAXTrustedCheckOptionPrompt = CFSTR("AXTrustedCheckOptionPrompt");

Boolean AXIsProcessTrusted() {
    return isTrusted();
}

Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options) {
    const void* const prompt = options ? CFDictionaryGetValue(options, kAXTrustedCheckOptionPrompt) : nullptr;
    if (prompt == kCFBooleanTrue && !accessibility().isTrusted) {
        ++accessibility().prompts;
        accessibility().isTrusted = accessibility().grantsOnPrompt;
    }
    return accessibility().isTrusted;
}

CFTypeID AXUIElementGetTypeID() {
    return static_cast<CFTypeID>(Kind::element);
}

AXUIElementRef AXUIElementCreateApplication(pid_t pid) {
    auto& applications = accessibility().applications;
    const auto found = applications.find(pid);
    auto element = found == applications.end() ? std::make_shared<Element>() : found->second;
    element->isDead = element->isDead || found == applications.end();
    return static_cast<AXUIElementRef>(static_cast<void*>(makeReference(std::move(element))));
}

AXUIElementRef AXUIElementCreateSystemWide() {
    return static_cast<AXUIElementRef>(static_cast<void*>(makeReference(nullptr)));
}

AXError AXUIElementSetMessagingTimeout(AXUIElementRef reference, float timeoutInSeconds) {
    auto& object = *as<ElementObject>(reference, Kind::element, __func__);
    if (timeoutInSeconds < 0) {
        return kAXErrorIllegalArgument;
    }
    object.timeout = timeoutInSeconds;
    if (!object.element) {
        ++accessibility().processTimeouts;
        accessibility().processTimeout = timeoutInSeconds;
    }
    return kAXErrorSuccess;
}

AXError AXUIElementCopyAttributeValue(AXUIElementRef reference, CFStringRef attribute, CFTypeRef* value) {
    const std::string name = textOf(attribute);
    const Element& element = addressed(reference, __func__, "get " + name);
    poison(value);
    Value found;
    AXError error = generalError(element);
    if (error == kAXErrorSuccess) {
        error = read(element, name, found);
    }
    if (error == kAXErrorSuccess) {
        *value = found.release();
    }
    return error;
}

AXError AXUIElementCopyMultipleAttributeValues(AXUIElementRef reference, CFArrayRef attributes,
                                               AXCopyMultipleAttributeOptions options, CFArrayRef* values) {
    std::vector<std::string> names;
    std::string message = "get";
    for (CFIndex i = 0; i < CFArrayGetCount(attributes); ++i) {
        names.push_back(textOf(static_cast<CFStringRef>(CFArrayGetValueAtIndex(attributes, i))));
        message += " " + names.back();
    }
    const Element& element = addressed(reference, __func__, message);
    poison(values);
    if (options != 0) {
        fail(__func__, "options are not supported");
    }
    const auto& control = accessibility();
    if (const AXError error = generalError(element); error != kAXErrorSuccess) {
        return error;
    }
    if (control.batch == Batch::unsupported) {
        return kAXErrorNotImplemented;
    }
    if (control.batchError) {
        return *control.batchError;
    }
    std::vector<Value> items;
    for (const std::string& name : names) {
        Value item;
        const AXError error = read(element, name, item);
        if (error != kAXErrorSuccess) {
            item = control.batch == Batch::nullsForErrors ? null() : errorValue(error);
        }
        items.push_back(std::move(item));
    }
    if (control.batch == Batch::tooFewValues) {
        items.pop_back();
    }
    *values = array(std::move(items)).release();
    return kAXErrorSuccess;
}

AXError AXUIElementSetAttributeValue(AXUIElementRef reference, CFStringRef attribute, CFTypeRef value) {
    const std::string name = textOf(attribute);
    Element& element = addressed(reference, __func__, "set " + name + " " + shown(value));
    if (const AXError error = generalError(element); error != kAXErrorSuccess) {
        return error;
    }
    if (const AXError error = errorFor(element.writeErrors, name); error != kAXErrorSuccess) {
        return error;
    }
    if (element.onWrite) {
        return element.onWrite(name, Value::retain(value));
    }
    element.attributes[name] = Value::retain(value);
    noteChange(element, name);
    return kAXErrorSuccess;
}

AXError AXUIElementPerformAction(AXUIElementRef reference, CFStringRef action) {
    const std::string name = textOf(action);
    const Element& element = addressed(reference, __func__, "do " + name);
    if (const AXError error = generalError(element); error != kAXErrorSuccess) {
        return error;
    }
    return element.onAction ? element.onAction(name) : errorFor(element.actionErrors, name);
}

AXError AXUIElementGetPid(AXUIElementRef reference, pid_t* pid) {
    const auto& object = *as<ElementObject>(reference, Kind::element, __func__);
    *pid = object.element->pid;
    return kAXErrorSuccess;
}

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

CGEventRef CGEventCreate(CGEventSourceRef /*source*/) {
    auto* const object = make<EventObject>(Kind::event);
    object->location = accessibility().mouse.location;
    return static_cast<CGEventRef>(static_cast<void*>(object));
}

CGPoint CGEventGetLocation(CGEventRef event) {
    return as<EventObject>(event, Kind::event, __func__)->location;
}

bool CGEventSourceButtonState(CGEventSourceStateID /*state*/, CGMouseButton button) {
    return button == kCGMouseButtonLeft && accessibility().mouse.isDown;
}

double CGEventSourceSecondsSinceLastEventType(CGEventSourceStateID /*state*/, CGEventType type) {
    return type == kCGEventLeftMouseUp ? accessibility().mouse.secondsSinceUp : 0;
}

CFTypeID AXValueGetTypeID() {
    return static_cast<CFTypeID>(Kind::axValue);
}

AXValueRef AXValueCreate(AXValueType type, const void* value) {
    if (accessibility().isOutOfValues) {
        return nullptr;
    }
    Value made;
    if (type == kAXValueTypeCGPoint) {
        const auto& point = *static_cast<const CGPoint*>(value);
        made = pointValue(point.x, point.y);
    } else if (type == kAXValueTypeCGSize) {
        const auto& size = *static_cast<const CGSize*>(value);
        made = sizeValue(size.width, size.height);
    } else {
        fail(__func__, "value type not supported");
    }
    return static_cast<AXValueRef>(made.release());
}

Boolean AXValueGetValue(AXValueRef value, AXValueType type, void* result) {
    const auto& held = valueOf(value, __func__);
    if (held.type != type) {
        return false;
    }
    if (type == kAXValueTypeCGPoint) {
        *static_cast<CGPoint*>(result) = held.point;
    } else if (type == kAXValueTypeCGSize) {
        *static_cast<CGSize*>(result) = held.size;
    } else {
        *static_cast<AXError*>(result) = held.error;
    }
    return true;
}

} // extern "C"
