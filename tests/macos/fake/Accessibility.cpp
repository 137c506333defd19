#include "tests/macos/fake/Accessibility.h"

#include "tests/macos/PlatformTest.h"
#include "tests/macos/fake/AccessibilityElements.h"

#include <cstdio>
#include <utility>

extern "C" void fakeAutoreleaseAnObject();

namespace vantrel::fake {

namespace {

struct AXValueObject : Object {
    AXValueType type;
    CGPoint point;
    CGSize size;
    AXError error;
};

[[maybe_unused]] const PlatformPart part([] { accessibility() = {}; });

AXValueObject* makeValue(AXValueType type) {
    auto* const object = make<AXValueObject>(Kind::axValue);
    object->type = type;
    return object;
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

} // namespace

ElementObject* makeReference(std::shared_ptr<Element> element) {
    auto* const object = make<ElementObject>(Kind::element);
    object->element = std::move(element);
    return object;
}

Value adopted(Object* object) {
    return Value::adopt(object);
}

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

AXError generalError(const Element& element) {
    if (!isTrusted()) {
        return kAXErrorAPIDisabled;
    }
    if (element.isHanging) {
        return kAXErrorCannotComplete;
    }
    return element.isDead ? kAXErrorInvalidUIElement : kAXErrorSuccess;
}

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
