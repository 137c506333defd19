// The objects of the fake platform: their memory layout, and a ledger of all references, so that leaks and
// over-releases show in the test that caused them.
//
// An object begins with a class pointer, as Objective-C objects do, so that a Core Foundation object is also
// an Objective-C object. Its ledger entry precedes it in memory.
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

// Also the type identifiers returned by CFGetTypeID().
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
    observer,
    runLoopSource,
    event,
    // An object of an Objective-C class that is not a Core Foundation type.
    objectiveC,
    // The number of kinds.
    count
};

struct Object {
    const void* isa;
    Kind kind;
};

// Filled in by the Objective-C layer, if there is one.
struct ObjectiveCLayer {
    // The class of each kind of Core Foundation object.
    const void* classOf[static_cast<std::size_t>(Kind::count)] = {};
    // For objects that it created.
    void (*retain)(const void* object) = nullptr;
    void (*release)(const void* object) = nullptr;
};
extern ObjectiveCLayer objectiveC;

namespace Ledger {

// Allocates zeroed memory for an object, with one reference. `destroy` destroys the object's members.
[[nodiscard]] void* allocate(std::size_t bytes, void (*destroy)(void* object));

// CFRetain() and CFRelease() for objects of this ledger. End the program with a message if the object has no
// references left.
void retain(const void* object);
void release(const void* object);

[[nodiscard]] long references(const void* object);
[[nodiscard]] std::size_t liveObjects();
// The total over all live objects.
[[nodiscard]] long liveReferences();
// One line per live object: its kind, its references and, for a string, its content.
[[nodiscard]] std::string describeLive();

} // namespace Ledger

// Ends the program with a message. For things that would crash on a real Mac.
[[noreturn]] void fail(const char* function, const std::string& complaint);

// T must derive from Object.
template <typename T>
[[nodiscard]] T* make(Kind kind) {
    void* const memory = Ledger::allocate(sizeof(T), [](void* object) { static_cast<T*>(object)->~T(); });
    T* const object = new (memory) T{};
    object->isa = objectiveC.classOf[static_cast<std::size_t>(kind)];
    object->kind = kind;
    return object;
}

// Works for constants, our own objects and those of the Objective-C layer.
[[nodiscard]] Kind kindOf(CFTypeRef object);

// Returns the object as a T. Ends the program if it is null or of another kind, where the real functions
// crash.
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
