// Owns a handle of the I/O Kit registry.
#pragma once

#include <IOKit/IOKitLib.h>

namespace vantrel {

// Null means none.
class RegistryObject {
public:
    explicit RegistryObject(io_object_t object) : m_object(object) {}
    ~RegistryObject() {
        if (m_object != IO_OBJECT_NULL) {
            IOObjectRelease(m_object);
        }
    }
    RegistryObject(const RegistryObject&) = delete;
    RegistryObject& operator=(const RegistryObject&) = delete;

    [[nodiscard]] io_object_t get() const { return m_object; }
    explicit operator bool() const { return m_object != IO_OBJECT_NULL; }

private:
    io_object_t m_object;
};

} // namespace vantrel
