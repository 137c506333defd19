// Fake mouse: where it is, and whether its button is down.
#include "tests/macos/fake/Accessibility.h"

namespace vantrel::fake {

namespace {

struct EventObject : Object {
    CGPoint location;
};

} // namespace

} // namespace vantrel::fake

using namespace vantrel::fake;

extern "C" {

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

} // extern "C"
