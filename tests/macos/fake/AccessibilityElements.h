// Shared by the files of the fake Accessibility: references to elements, and what every request checks.
#pragma once

#include "tests/macos/fake/Accessibility.h"

#include <cstring>
#include <memory>
#include <string>

namespace vantrel::fake {

struct ElementObject : Object {
    // Null for the system-wide element.
    std::shared_ptr<Element> element;
    float timeout;
};

[[nodiscard]] ElementObject* makeReference(std::shared_ptr<Element> element);
[[nodiscard]] Value adopted(Object* object);

// Returns the element that a message is sent to, and records the message.
Element& addressed(AXUIElementRef reference, const char* function, std::string message);

[[nodiscard]] bool isTrusted();

// The error with which an element rejects every request.
[[nodiscard]] AXError generalError(const Element& element);

// An attribute of a window has changed.
void noteChange(const Element& element, const std::string& attribute);

// Out parameters are undefined after an error; using one crashes the test.
template <typename T>
void poison(T* out) {
    *out = reinterpret_cast<T>(std::uintptr_t{0xbadbadbadba0});
}

} // namespace vantrel::fake
