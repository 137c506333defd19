// Our own declarations of the parts of I/O Kit that the macOS adapter uses.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#pragma clang assume_nonnull begin

typedef unsigned int mach_port_t;
typedef int kern_return_t;
typedef mach_port_t io_object_t;
typedef io_object_t io_iterator_t;
typedef io_object_t io_service_t;
typedef io_object_t io_registry_entry_t;
typedef UInt32 IOOptionBits;

#define KERN_SUCCESS 0
#define IO_OBJECT_NULL ((io_object_t)0)

VANTREL_EXTERN const mach_port_t kIOMainPortDefault VANTREL_MACOS(12.0);

VANTREL_EXTERN CF_RETURNS_RETAINED CFMutableDictionaryRef _Nullable IOServiceMatching(const char* name);
// Always consumes the caller's reference to `matching`.
VANTREL_EXTERN kern_return_t IOServiceGetMatchingServices(mach_port_t mainPort,
                                                          CFDictionaryRef _Nullable matching CF_CONSUMED,
                                                          io_iterator_t* existing);
VANTREL_EXTERN io_object_t IOIteratorNext(io_iterator_t iterator);
VANTREL_EXTERN CF_RETURNS_RETAINED CFTypeRef _Nullable IORegistryEntryCreateCFProperty(
    io_registry_entry_t entry, CFStringRef key, CFAllocatorRef _Nullable allocator, IOOptionBits options);
VANTREL_EXTERN kern_return_t IOObjectRelease(io_object_t object);

#pragma clang assume_nonnull end
