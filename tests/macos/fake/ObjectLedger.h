// The objects of the fake platform: how they lie in memory, and a ledger of every reference to them, so that
// a leak and an over-release show in the test that caused them.
//
// An object begins with a class pointer, as Objective-C objects do, so that a Core Foundation object can be
// an Objective-C object at the same time. In front of it lies its entry in the ledger.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <new>
#include <string>
#include <utility>

namespace vantrel::fake {

// Also the type identifiers that CFGetTypeID() gives.
enum class Kind : std::uint32_t {
    string = 1,
    array,
    dictionary,
    number,
    boolean,
    null,
    uuid,
    date,
    data,
    element,
    axValue,
    // An object of an Objective-C class that is no Core Foundation type.
    objectiveC,
    // Whatever further kinds come have their numbers from here on.
    count
};

struct Object {
    const void* isa;
    Kind kind;
};

// What an Objective-C layer adds when there is one.
struct ObjectiveCLayer {
    // The class of each kind of Core Foundation object.
    const void* classOf[static_cast<std::size_t>(Kind::count)] = {};
    // For objects that it made.
    void (*retain)(const void* object) = nullptr;
    void (*release)(const void* object) = nullptr;
};
extern ObjectiveCLayer objectiveC;

namespace Ledger {

// Zeroed memory for an object of so many bytes, with one reference. `destroy` ends the object's members.
[[nodiscard]] void* allocate(std::size_t bytes, void (*destroy)(void* object));

// As CFRetain() and CFRelease() do for objects of this ledger. End the program with a sentence for an object
// that has no reference left.
void retain(const void* object);
void release(const void* object);

[[nodiscard]] long references(const void* object);
[[nodiscard]] std::size_t liveObjects();
// Of all live objects together.
[[nodiscard]] long liveReferences();
// A line for every live object: its kind, its references and, of a string, its text.
[[nodiscard]] std::string describeLive();

} // namespace Ledger

// Ends the program with a sentence: the code under test did what crashes a real Mac.
[[noreturn]] void fail(const char* function, const std::string& complaint);

// T derives from Object.
template <typename T>
[[nodiscard]] T* make(Kind kind) {
    void* const memory = Ledger::allocate(sizeof(T), [](void* object) { static_cast<T*>(object)->~T(); });
    T* const object = new (memory) T{};
    object->isa = objectiveC.classOf[static_cast<std::size_t>(kind)];
    object->kind = kind;
    return object;
}

// Whatever the object is: a constant, one of ours, or one of an Objective-C layer.
[[nodiscard]] Kind kindOf(CFTypeRef object);

// The object as a T; ends the program when it is null or of another kind, as the real functions crash.
template <typename T>
[[nodiscard]] T* as(CFTypeRef object, Kind kind, const char* function) {
    if (!object) {
        fail(function, "called with NULL");
    }
    if (kindOf(object) != kind) {
        fail(function, "called with an object of kind " +
                           std::to_string(static_cast<std::uint32_t>(kindOf(object))) + " instead of " +
                           std::to_string(static_cast<std::uint32_t>(kind)));
    }
    return static_cast<T*>(const_cast<void*>(object));
}

} // namespace vantrel::fake
