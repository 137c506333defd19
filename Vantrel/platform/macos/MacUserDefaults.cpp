#include "Vantrel/platform/macos/MacUserDefaults.h"

#include "Vantrel/platform/macos/CFText.h"

#include <cmath>
#include <utility>

namespace vantrel {

namespace {

CFRef<CFTypeRef> stored(std::string_view key) {
    const auto name = CFText::make(key);
    return name ? CFRef<CFTypeRef>::adopt(
                      CFPreferencesCopyAppValue(name.get(), kCFPreferencesCurrentApplication))
                : CFRef<CFTypeRef>{};
}

// A null value removes the key.
bool store(std::string_view key, CFTypeRef value) {
    const auto name = CFText::make(key);
    if (!name) {
        return false;
    }
    CFPreferencesSetAppValue(name.get(), value, kCFPreferencesCurrentApplication);
    return CFPreferencesAppSynchronize(kCFPreferencesCurrentApplication) != 0;
}

struct PropertyList {
    using Value = CFRef<CFTypeRef>;

    Value operator()(bool value) const { return Value::retain(value ? kCFBooleanTrue : kCFBooleanFalse); }
    Value operator()(std::int64_t value) const {
        return Value::adopt(CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt64Type, &value));
    }
    Value operator()(double value) const {
        return Value::adopt(CFNumberCreate(kCFAllocatorDefault, kCFNumberDoubleType, &value));
    }
    Value operator()(const std::string& value) const { return CFText::make(value); }
    Value operator()(Date value) const {
        return Value::adopt(CFDateCreate(kCFAllocatorDefault,
                                         secondsBetween(Date{}, value) - kCFAbsoluteTimeIntervalSince1970));
    }
    Value operator()(const DefaultsData& value) const {
        return Value::adopt(CFDataCreate(kCFAllocatorDefault,
                                         reinterpret_cast<const UInt8*>(value.bytes.data()),
                                         static_cast<CFIndex>(value.bytes.size())));
    }
};

} // namespace

// Observes changes made by other code in this process, such as a settings window's bindings.
class MacUserDefaults::Observer {
public:
    explicit Observer(MacUserDefaults& owner) : m_owner(owner) {
        CFNotificationCenterAddObserver(CFNotificationCenterGetLocalCenter(), this, changed, name(), nullptr,
                                        CFNotificationSuspensionBehaviorDeliverImmediately);
    }

    ~Observer() {
        CFNotificationCenterRemoveObserver(CFNotificationCenterGetLocalCenter(), this, name(), nullptr);
    }

    Observer(const Observer&) = delete;
    Observer& operator=(const Observer&) = delete;

private:
    static CFStringRef name() { return CFSTR("NSUserDefaultsDidChangeNotification"); }

    // Called on the thread that made the change.
    static void changed(CFNotificationCenterRef /*center*/, void* observer, CFNotificationName /*name*/,
                        const void* /*object*/, CFDictionaryRef /*userInfo*/) {
        static_cast<Observer*>(observer)->m_owner.notifySoon();
    }

    MacUserDefaults& m_owner;
};

MacUserDefaults::MacUserDefaults(MainQueue& queue) : m_queue(queue) {}

MacUserDefaults::~MacUserDefaults() = default;

std::optional<bool> MacUserDefaults::boolean(std::string_view key) {
    const auto value = stored(key);
    const CFBooleanRef truth = cfCast<CFBooleanRef>(value.get());
    return truth ? std::optional(CFBooleanGetValue(truth) != 0) : std::nullopt;
}

std::optional<std::int64_t> MacUserDefaults::integer(std::string_view key) {
    const auto value = stored(key);
    const CFNumberRef number = cfCast<CFNumberRef>(value.get());
    std::int64_t result = 0;
    if (!number || CFNumberIsFloatType(number) || !CFNumberGetValue(number, kCFNumberSInt64Type, &result)) {
        return std::nullopt;
    }
    return result;
}

std::optional<double> MacUserDefaults::number(std::string_view key) {
    const auto value = stored(key);
    const CFNumberRef number = cfCast<CFNumberRef>(value.get());
    double result = 0;
    if (!number || !CFNumberGetValue(number, kCFNumberDoubleType, &result)) {
        return std::nullopt;
    }
    return result;
}

std::optional<std::string> MacUserDefaults::text(std::string_view key) {
    return CFText::utf8Of(stored(key).get());
}

std::optional<Date> MacUserDefaults::date(std::string_view key) {
    // A Date cannot represent more seconds than this.
    constexpr double lastSecond = 1e12;
    const auto value = stored(key);
    const CFDateRef date = cfCast<CFDateRef>(value.get());
    if (!date) {
        return std::nullopt;
    }
    const double seconds = CFDateGetAbsoluteTime(date) + kCFAbsoluteTimeIntervalSince1970;
    return std::abs(seconds) < lastSecond ? std::optional(dateAfter(Date{}, seconds)) : std::nullopt;
}

std::optional<DefaultsData> MacUserDefaults::data(std::string_view key) {
    const auto value = stored(key);
    const CFDataRef data = cfCast<CFDataRef>(value.get());
    if (!data) {
        return std::nullopt;
    }
    const auto* const bytes = reinterpret_cast<const char*>(CFDataGetBytePtr(data));
    return DefaultsData{std::string(bytes, static_cast<std::size_t>(CFDataGetLength(data)))};
}

bool MacUserDefaults::set(std::string_view key, const DefaultsValue& value) {
    const auto list = std::visit(PropertyList{}, value);
    const bool isStored = list && store(key, list.get());
    notifySoon();
    return isStored;
}

bool MacUserDefaults::remove(std::string_view key) {
    const bool isRemoved = store(key, nullptr);
    notifySoon();
    return isRemoved;
}

void MacUserDefaults::setChangeHandler(std::function<void()> handler) {
    m_handler = std::move(handler);
    if (m_handler && !m_observer) {
        m_observer = std::make_unique<Observer>(*this);
    } else if (!m_handler) {
        m_observer.reset();
    }
}

void MacUserDefaults::notifySoon() {
    if (m_isNotifyPosted.exchange(true)) {
        return;
    }
    m_queue.post([this, alive = std::weak_ptr(m_alive)] {
        if (!alive.lock()) {
            return;
        }
        m_isNotifyPosted = false;
        if (m_handler) {
            m_handler();
        }
    });
}

} // namespace vantrel
