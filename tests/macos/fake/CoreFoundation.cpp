// Fake Core Foundation.
#include "tests/macos/fake/CoreFoundationObjects.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace vantrel::fake {

namespace {

// The compiler's layout of a CFSTR("…").
struct ConstantString {
    const void* isa;
    std::int32_t flags;
    const char* bytes;
    long count;
};

} // namespace

} // namespace vantrel::fake

extern "C" {

// The class of every CFSTR("…") and @"…", referenced by the compiler. The Objective-C layer copies a class
// into it.
alignas(16) char __CFConstantStringClassReference[128] = {};

struct CFArrayCallBacks {
    int unused;
};
struct CFDictionaryKeyCallBacks {
    int unused;
};
struct CFDictionaryValueCallBacks {
    int unused;
};

} // extern "C"

namespace vantrel::fake {

namespace {

BooleanObject trueObject{{nullptr, Kind::boolean}, true};
BooleanObject falseObject{{nullptr, Kind::boolean}, false};
Object nullObject{nullptr, Kind::null};

bool isConstantString(CFTypeRef object) {
    return static_cast<const Object*>(object)->isa == __CFConstantStringClassReference;
}

// Immortal objects live as long as the process and are not counted.
bool isImmortal(CFTypeRef object) {
    return isConstantString(object) || object == &trueObject || object == &falseObject ||
           object == &nullObject;
}

bool isObjectiveC(CFTypeRef object) {
    const void* const isa = static_cast<const Object*>(object)->isa;
    if (isImmortal(object) || !isa) {
        return false;
    }
    for (const void* const ours : objectiveC.classOf) {
        if (isa == ours) {
            return false;
        }
    }
    return true;
}

template <typename T>
CFTypeRef erased(const T* object) {
    return static_cast<const void*>(object);
}

template <typename Ref, typename T>
CFRef<Ref> adopted(T* object) {
    return CFRef<Ref>::adopt(static_cast<Ref>(static_cast<void*>(object)));
}

const NumberObject& numberOf(CFTypeRef object, const char* function) {
    return *as<NumberObject>(object, Kind::number, function);
}

} // namespace

Kind kindOf(CFTypeRef object) {
    if (isConstantString(object)) {
        return Kind::string;
    }
    return isObjectiveC(object) ? Kind::objectiveC : static_cast<const Object*>(object)->kind;
}

std::string textOf(CFStringRef string) {
    if (isConstantString(string)) {
        const auto* const constant = reinterpret_cast<const ConstantString*>(string);
        constexpr std::int32_t isUTF16 = 0x10;
        if ((constant->flags & isUTF16) != 0) {
            fail("CFSTR", "only ASCII constants are supported");
        }
        return {constant->bytes, static_cast<std::size_t>(constant->count)};
    }
    return as<StringObject>(string, Kind::string, "CFString")->utf8;
}

CFRef<CFStringRef> text(const std::string& utf8) {
    auto* const object = make<StringObject>(Kind::string);
    object->utf8 = utf8;
    return adopted<CFStringRef>(object);
}

CFRef<CFStringRef> brokenText() {
    auto* const object = make<StringObject>(Kind::string);
    object->isBroken = true;
    return adopted<CFStringRef>(object);
}

CFRef<CFArrayRef> array(std::vector<Value> items) {
    auto* const object = make<ArrayObject>(Kind::array);
    object->items = std::move(items);
    return adopted<CFArrayRef>(object);
}

CFRef<CFDictionaryRef> dictionary(std::vector<std::pair<std::string, Value>> entries) {
    auto* const object = make<DictionaryObject>(Kind::dictionary);
    for (auto& [key, value] : entries) {
        object->entries.emplace_back(text(key), std::move(value));
    }
    return adopted<CFDictionaryRef>(object);
}

CFRef<CFNumberRef> number(std::int64_t value) {
    auto* const object = make<NumberObject>(Kind::number);
    object->value = value;
    return adopted<CFNumberRef>(object);
}

CFRef<CFNumberRef> realNumber(double value) {
    auto* const object = make<NumberObject>(Kind::number);
    object->value = value;
    return adopted<CFNumberRef>(object);
}

CFRef<CFBooleanRef> boolean(bool value) {
    return CFRef<CFBooleanRef>::retain(value ? kCFBooleanTrue : kCFBooleanFalse);
}

CFRef<CFDateRef> date(double seconds) {
    auto* const object = make<DateObject>(Kind::date);
    object->seconds = seconds;
    return adopted<CFDateRef>(object);
}

CFRef<CFDataRef> data(const std::string& bytes) {
    auto* const object = make<DataObject>(Kind::data);
    object->bytes = bytes;
    return adopted<CFDataRef>(object);
}

CFRef<CFUUIDRef> uuid(const std::string& text) {
    auto* const object = make<UUIDObject>(Kind::uuid);
    object->text = text;
    return adopted<CFUUIDRef>(object);
}

Value null() {
    return Value::retain(kCFNull);
}

CFRef<CFDictionaryRef> rectangle(const CGRect& rect) {
    return dictionary({{"X", realNumber(rect.origin.x)},
                       {"Y", realNumber(rect.origin.y)},
                       {"Width", realNumber(rect.size.width)},
                       {"Height", realNumber(rect.size.height)}});
}

} // namespace vantrel::fake

using namespace vantrel::fake;

extern "C" {

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFArrayCallBacks kCFTypeArrayCallBacks{};
const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks{};
const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks{};
const CFBooleanRef kCFBooleanTrue = reinterpret_cast<CFBooleanRef>(&trueObject);
const CFBooleanRef kCFBooleanFalse = reinterpret_cast<CFBooleanRef>(&falseObject);
const CFNullRef kCFNull = reinterpret_cast<CFNullRef>(&nullObject);

CFTypeRef CFRetain(CFTypeRef object) {
    if (!object) {
        fail(__func__, "called with NULL");
    }
    if (isImmortal(object)) {
        return object;
    }
    if (isObjectiveC(object)) {
        objectiveC.retain(object);
    } else {
        Ledger::retain(object);
    }
    return object;
}

void CFRelease(CFTypeRef object) {
    if (!object) {
        fail(__func__, "called with NULL");
    }
    if (isImmortal(object)) {
        return;
    }
    if (isObjectiveC(object)) {
        objectiveC.release(object);
    } else {
        Ledger::release(object);
    }
}

CFTypeID CFGetTypeID(CFTypeRef object) {
    if (!object) {
        fail(__func__, "called with NULL");
    }
    return static_cast<CFTypeID>(kindOf(object));
}

Boolean CFEqual(CFTypeRef one, CFTypeRef other) {
    if (one == other) {
        return true;
    }
    if (kindOf(one) != kindOf(other)) {
        return false;
    }
    switch (kindOf(one)) {
    case Kind::string:
        return textOf(static_cast<CFStringRef>(one)) == textOf(static_cast<CFStringRef>(other));
    case Kind::number:
        return numberOf(one, __func__).value == numberOf(other, __func__).value;
    case Kind::element:
        return isSameElement(one, other);
    default:
        return false;
    }
}

CFTypeID CFStringGetTypeID() {
    return static_cast<CFTypeID>(Kind::string);
}

CFStringRef CFStringCreateWithBytes(CFAllocatorRef /*allocator*/, const UInt8* bytes, CFIndex count,
                                    CFStringEncoding encoding, Boolean /*isExternalRepresentation*/) {
    if (encoding != kCFStringEncodingUTF8) {
        fail(__func__, "only UTF-8 is supported");
    }
    const std::string utf8(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count));
    constexpr char neverInUTF8 = '\xff';
    return utf8.contains(neverInUTF8) ? nullptr : text(utf8).release();
}

CFIndex CFStringGetLength(CFStringRef string) {
    CFIndex units = 0;
    for (const char c : textOf(string)) {
        const auto byte = static_cast<unsigned char>(c);
        const bool continues = (byte & 0xc0U) == 0x80U;
        units += continues ? 0 : byte >= 0xf0U ? 2 : 1;
    }
    return units;
}

CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding /*encoding*/) {
    return 3 * length;
}

Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex bufferSize,
                           CFStringEncoding /*encoding*/) {
    if (!isConstantString(string) && as<StringObject>(string, Kind::string, __func__)->isBroken) {
        return false;
    }
    const std::string utf8 = textOf(string);
    if (static_cast<CFIndex>(utf8.size()) >= bufferSize) {
        return false;
    }
    std::memcpy(buffer, utf8.c_str(), utf8.size() + 1);
    return true;
}

CFTypeID CFArrayGetTypeID() {
    return static_cast<CFTypeID>(Kind::array);
}

CFArrayRef CFArrayCreate(CFAllocatorRef /*allocator*/, const void** values, CFIndex count,
                         const CFArrayCallBacks* callBacks) {
    if (callBacks != &kCFTypeArrayCallBacks) {
        fail(__func__, "only arrays that retain their items are supported");
    }
    std::vector<Value> items;
    for (CFIndex i = 0; i < count; ++i) {
        items.push_back(Value::retain(values[i]));
    }
    return array(std::move(items)).release();
}

CFIndex CFArrayGetCount(CFArrayRef array) {
    return static_cast<CFIndex>(as<ArrayObject>(array, Kind::array, __func__)->items.size());
}

const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index) {
    const auto& items = as<ArrayObject>(array, Kind::array, __func__)->items;
    if (index < 0 || static_cast<std::size_t>(index) >= items.size()) {
        fail(__func__, "index out of range");
    }
    return items[static_cast<std::size_t>(index)].get();
}

CFTypeID CFDictionaryGetTypeID() {
    return static_cast<CFTypeID>(Kind::dictionary);
}

CFDictionaryRef CFDictionaryCreate(CFAllocatorRef /*allocator*/, const void** keys, const void** values,
                                   CFIndex count, const CFDictionaryKeyCallBacks* keyCallBacks,
                                   const CFDictionaryValueCallBacks* valueCallBacks) {
    if (keyCallBacks != &kCFTypeDictionaryKeyCallBacks ||
        valueCallBacks != &kCFTypeDictionaryValueCallBacks) {
        fail(__func__, "only dictionaries that retain keys and values are supported");
    }
    auto* const object = make<DictionaryObject>(Kind::dictionary);
    for (CFIndex i = 0; i < count; ++i) {
        object->entries.emplace_back(Value::retain(keys[i]), Value::retain(values[i]));
    }
    return static_cast<CFDictionaryRef>(erased(object));
}

const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key) {
    for (const auto& [own, value] : as<DictionaryObject>(dictionary, Kind::dictionary, __func__)->entries) {
        if (CFEqual(own.get(), key)) {
            return value.get();
        }
    }
    return nullptr;
}

CFTypeID CFNumberGetTypeID() {
    return static_cast<CFTypeID>(Kind::number);
}

CFNumberRef CFNumberCreate(CFAllocatorRef /*allocator*/, CFNumberType type, const void* value) {
    switch (type) {
    case kCFNumberSInt32Type:
    case kCFNumberIntType:
        return number(*static_cast<const std::int32_t*>(value)).release();
    case kCFNumberSInt64Type:
    case kCFNumberLongLongType:
        return number(*static_cast<const std::int64_t*>(value)).release();
    case kCFNumberFloat64Type:
    case kCFNumberDoubleType:
        return realNumber(*static_cast<const double*>(value)).release();
    default:
        fail(__func__, "number type not supported");
    }
}

Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value) {
    const auto& held = numberOf(number, __func__).value;
    const auto* const whole = std::get_if<std::int64_t>(&held);
    const double real = whole ? static_cast<double>(*whole) : std::get<double>(held);
    // Converts numbers that do not fit too, and reports the loss.
    const std::int64_t truncated = whole ? *whole : static_cast<std::int64_t>(real);
    switch (type) {
    case kCFNumberSInt32Type:
    case kCFNumberIntType:
        *static_cast<std::int32_t*>(value) = static_cast<std::int32_t>(truncated);
        return std::in_range<std::int32_t>(truncated) && static_cast<double>(truncated) == real;
    case kCFNumberSInt64Type:
    case kCFNumberLongLongType:
        *static_cast<std::int64_t*>(value) = truncated;
        return whole || static_cast<double>(truncated) == real;
    case kCFNumberFloat64Type:
    case kCFNumberDoubleType:
        *static_cast<double*>(value) = real;
        return true;
    default:
        fail(__func__, "number type not supported");
    }
}

Boolean CFNumberIsFloatType(CFNumberRef number) {
    return std::holds_alternative<double>(numberOf(number, __func__).value);
}

CFTypeID CFBooleanGetTypeID() {
    return static_cast<CFTypeID>(Kind::boolean);
}

Boolean CFBooleanGetValue(CFBooleanRef boolean) {
    return as<BooleanObject>(boolean, Kind::boolean, __func__)->value;
}

const CFTimeInterval kCFAbsoluteTimeIntervalSince1970 = 978307200;

CFTypeID CFDateGetTypeID() {
    return static_cast<CFTypeID>(Kind::date);
}

CFDateRef CFDateCreate(CFAllocatorRef /*allocator*/, CFAbsoluteTime time) {
    return date(time).release();
}

CFAbsoluteTime CFDateGetAbsoluteTime(CFDateRef date) {
    return as<DateObject>(date, Kind::date, __func__)->seconds;
}

CFTypeID CFDataGetTypeID() {
    return static_cast<CFTypeID>(Kind::data);
}

CFDataRef CFDataCreate(CFAllocatorRef /*allocator*/, const UInt8* bytes, CFIndex count) {
    return data(std::string(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count))).release();
}

CFIndex CFDataGetLength(CFDataRef data) {
    return static_cast<CFIndex>(as<DataObject>(data, Kind::data, __func__)->bytes.size());
}

const UInt8* CFDataGetBytePtr(CFDataRef data) {
    return reinterpret_cast<const UInt8*>(as<DataObject>(data, Kind::data, __func__)->bytes.data());
}

CFStringRef CFUUIDCreateString(CFAllocatorRef /*allocator*/, CFUUIDRef uuid) {
    return text(as<UUIDObject>(uuid, Kind::uuid, __func__)->text).release();
}

} // extern "C"
