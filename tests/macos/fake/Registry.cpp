#include "tests/macos/fake/Registry.h"

#include "tests/macos/PlatformTest.h"

#include <variant>

namespace vantrel::fake {

namespace {

struct Iterator {
    std::vector<Service> services;
    std::size_t next = 0;
};
using Handle = std::variant<Iterator, Service>;

std::map<io_object_t, Handle>& handles() {
    static std::map<io_object_t, Handle> open;
    return open;
}

[[maybe_unused]] const PlatformPart part([] {
    registry() = {};
    handles().clear();
});

io_object_t open(Handle handle) {
    static io_object_t last = 0x1000;
    handles().emplace(++last, std::move(handle));
    registry().openHandles = handles().size();
    return last;
}

template <typename T>
T& handleOf(io_object_t object, const char* function) {
    const auto found = handles().find(object);
    if (found == handles().end() || !std::holds_alternative<T>(found->second)) {
        fail(function, "called with an invalid object");
    }
    return std::get<T>(found->second);
}

} // namespace

RegistryControl& registry() {
    static RegistryControl control;
    return control;
}

} // namespace vantrel::fake

using namespace vantrel::fake;

extern "C" {

const mach_port_t kIOMainPortDefault = 0;

CFMutableDictionaryRef IOServiceMatching(const char* name) {
    if (registry().makesNoMatching) {
        return nullptr;
    }
    return const_cast<CFMutableDictionaryRef>(dictionary({{"IOProviderClass", text(name)}}).release());
}

kern_return_t IOServiceGetMatchingServices(mach_port_t mainPort, CFDictionaryRef matching,
                                           io_iterator_t* existing) {
    const auto consumed = vantrel::CFRef<CFDictionaryRef>::adopt(matching);
    if (mainPort != kIOMainPortDefault) {
        fail(__func__, "not the main port");
    }
    const std::string name =
        textOf(static_cast<CFStringRef>(CFDictionaryGetValue(matching, CFSTR("IOProviderClass"))));
    registry().queriedClasses.push_back(name);
    if (const auto error = registry().matchingErrors.find(name); error != registry().matchingErrors.end()) {
        *existing = 0xbad;
        return error->second;
    }
    *existing = open(Iterator{.services = registry().services[name], .next = 0});
    return KERN_SUCCESS;
}

io_object_t IOIteratorNext(io_iterator_t iterator) {
    auto& walk = handleOf<Iterator>(iterator, __func__);
    return walk.next == walk.services.size() ? IO_OBJECT_NULL : open(walk.services[walk.next++]);
}

CFTypeRef IORegistryEntryCreateCFProperty(io_registry_entry_t entry, CFStringRef key,
                                          CFAllocatorRef /*allocator*/, IOOptionBits /*options*/) {
    const auto& service = handleOf<Service>(entry, __func__);
    const auto found = service.find(textOf(key));
    return found == service.end() ? nullptr : Value(found->second).release();
}

kern_return_t IOObjectRelease(io_object_t object) {
    if (handles().erase(object) == 0) {
        fail(__func__, "called with an invalid object");
    }
    registry().openHandles = handles().size();
    return KERN_SUCCESS;
}

} // extern "C"
