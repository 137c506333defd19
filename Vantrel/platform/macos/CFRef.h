// CFRef owns one reference to a Core Foundation object, or none.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <concepts>
#include <utility>

namespace vantrel {

template <typename T>
class CFRef {
public:
    CFRef() = default;

    // Takes ownership of a reference returned by a function with Create or Copy in its name. Null means none.
    [[nodiscard]] static CFRef adopt(T object) { return CFRef(object); }

    // Adds a reference to an object owned by others. Null means none.
    [[nodiscard]] static CFRef retain(T object) {
        if (object) {
            CFRetain(object);
        }
        return CFRef(object);
    }

    CFRef(const CFRef& other) : CFRef(retain(other.m_object)) {}
    CFRef(CFRef&& other) noexcept : m_object(std::exchange(other.m_object, T{})) {}

    template <typename U>
        requires(!std::same_as<T, U> && std::convertible_to<U, T>)
    CFRef(CFRef<U> other) : m_object(other.release()) {} // NOLINT(google-explicit-constructor)

    CFRef& operator=(CFRef other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }

    ~CFRef() {
        if (m_object) {
            CFRelease(m_object);
        }
    }

    [[nodiscard]] T get() const { return m_object; }

    // Transfers ownership to the caller.
    [[nodiscard]] T release() { return std::exchange(m_object, T{}); }

    explicit operator bool() const { return m_object != nullptr; }

private:
    explicit CFRef(T object) : m_object(object) {}

    T m_object = nullptr;
};

// The type identifier of an opaque type; specialised for each type used with cfCast().
template <typename T>
CFTypeID cfTypeID();

template <>
inline CFTypeID cfTypeID<CFStringRef>() {
    return CFStringGetTypeID();
}
template <>
inline CFTypeID cfTypeID<CFArrayRef>() {
    return CFArrayGetTypeID();
}
template <>
inline CFTypeID cfTypeID<CFDictionaryRef>() {
    return CFDictionaryGetTypeID();
}
template <>
inline CFTypeID cfTypeID<CFNumberRef>() {
    return CFNumberGetTypeID();
}
template <>
inline CFTypeID cfTypeID<CFBooleanRef>() {
    return CFBooleanGetTypeID();
}
template <>
inline CFTypeID cfTypeID<CFDateRef>() {
    return CFDateGetTypeID();
}
template <>
inline CFTypeID cfTypeID<CFDataRef>() {
    return CFDataGetTypeID();
}

// Casts to a type after checking it. Returns null for null and for objects of another type. Does not change
// ownership.
template <typename T>
[[nodiscard]] T cfCast(CFTypeRef object) {
    return object && CFGetTypeID(object) == cfTypeID<T>() ? static_cast<T>(object) : nullptr;
}

} // namespace vantrel
