#include "tests/macos/fake/Preferences.h"

#include "tests/macos/PlatformTest.h"

namespace vantrel::fake {

namespace {

struct Observer {
    CFNotificationCenterRef center = nullptr;
    const void* observer = nullptr;
    CFNotificationCallback callBack = nullptr;
    std::string name;
    CFNotificationSuspensionBehavior behavior = CFNotificationSuspensionBehaviorDeliverImmediately;
};

std::vector<Observer>& observers() {
    static std::vector<Observer> all;
    return all;
}

[[maybe_unused]] const PlatformPart part([] { preferences() = {}; });

void store(const std::string& domain, CFStringRef key, CFPropertyListRef value) {
    auto& control = preferences();
    const std::string name = textOf(key);
    control.calls.push_back((value ? "set " : "remove ") + domain + " " + name);
    if (control.readOnly.contains(domain)) {
        return;
    }
    if (value) {
        control.domains[domain][name] = Value::retain(value);
    } else {
        control.domains[domain].erase(name);
    }
}

Boolean synchronise(const std::string& domain) {
    preferences().calls.push_back("synchronise " + domain);
    return !preferences().readOnly.contains(domain);
}

void requireThisUser(CFStringRef userName, CFStringRef hostName, const char* function) {
    if (userName != kCFPreferencesCurrentUser || hostName != kCFPreferencesAnyHost) {
        fail(function, "only the current user on any host is supported");
    }
}

} // namespace

PreferencesControl& preferences() {
    static PreferencesControl control;
    return control;
}

std::size_t notificationObservers() {
    return observers().size();
}

void postNotification(const std::string& name) {
    const auto notified = observers();
    const auto string = text(name);
    for (const Observer& each : notified) {
        if (each.center == CFNotificationCenterGetLocalCenter() && each.name == name) {
            each.callBack(CFNotificationCenterGetLocalCenter(), const_cast<void*>(each.observer),
                          string.get(), nullptr, nullptr);
        }
    }
}

void deliverDistributed(const std::string& name, bool isSuspended) {
    const auto notified = observers();
    const auto string = text(name);
    for (const Observer& each : notified) {
        const bool isImmediate = each.behavior == CFNotificationSuspensionBehaviorDeliverImmediately;
        if (each.center == CFNotificationCenterGetDistributedCenter() && each.name == name &&
            (isImmediate || !isSuspended)) {
            each.callBack(each.center, const_cast<void*>(each.observer), string.get(), nullptr, nullptr);
        }
    }
}

} // namespace vantrel::fake

using namespace vantrel::fake;

extern "C" {

const CFStringRef kCFPreferencesCurrentApplication = CFSTR("own");
const CFStringRef kCFPreferencesAnyHost = CFSTR("any host");
const CFStringRef kCFPreferencesCurrentUser = CFSTR("current user");

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef applicationID) {
    const auto& domain = preferences().domains[textOf(applicationID)];
    const auto found = domain.find(textOf(key));
    return found == domain.end() ? nullptr : Value(found->second).release();
}

void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef applicationID) {
    store(textOf(applicationID), key, value);
}

Boolean CFPreferencesAppSynchronize(CFStringRef applicationID) {
    return synchronise(textOf(applicationID));
}

void CFPreferencesSetValue(CFStringRef key, CFPropertyListRef value, CFStringRef applicationID,
                           CFStringRef userName, CFStringRef hostName) {
    requireThisUser(userName, hostName, __func__);
    store(textOf(applicationID), key, value);
}

Boolean CFPreferencesSynchronize(CFStringRef applicationID, CFStringRef userName, CFStringRef hostName) {
    requireThisUser(userName, hostName, __func__);
    return synchronise(textOf(applicationID));
}

CFNotificationCenterRef CFNotificationCenterGetLocalCenter() {
    static int centre = 0;
    return reinterpret_cast<CFNotificationCenterRef>(&centre);
}

CFNotificationCenterRef CFNotificationCenterGetDistributedCenter() {
    static int centre = 0;
    return reinterpret_cast<CFNotificationCenterRef>(&centre);
}

void CFNotificationCenterAddObserver(CFNotificationCenterRef center, const void* observer,
                                     CFNotificationCallback callBack, CFStringRef name,
                                     const void* /*object*/,
                                     CFNotificationSuspensionBehavior suspensionBehavior) {
    observers().push_back({center, observer, callBack, textOf(name), suspensionBehavior});
}

void CFNotificationCenterPostNotification(CFNotificationCenterRef center, CFNotificationName name,
                                          const void* /*object*/, CFDictionaryRef /*userInfo*/,
                                          Boolean /*deliverImmediately*/) {
    if (center == CFNotificationCenterGetDistributedCenter()) {
        deliverDistributed(textOf(name), true);
    }
}

void CFNotificationCenterRemoveObserver(CFNotificationCenterRef center, const void* observer,
                                        CFNotificationName name, const void* /*object*/) {
    std::erase_if(observers(), [&](const Observer& each) {
        return each.center == center && each.observer == observer && each.name == textOf(name);
    });
}

} // extern "C"
