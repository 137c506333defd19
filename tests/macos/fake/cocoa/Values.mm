// Fake Foundation: the root class and values.
#import "tests/macos/fake/cocoa/Cocoa.h"

#include "tests/macos/fake/objc/Runtime.h"

#include <cstdlib>
#include <cstring>

namespace {

FakeObject* fake(id object) {
    return reinterpret_cast<FakeObject*>(object);
}

FakeClass* fakeClass(Class kind) {
    return reinterpret_cast<FakeClass*>(kind);
}

const char* name(SEL selector) {
    return reinterpret_cast<const char*>(selector);
}

// The compiler's layout of @"text".
struct Literal {
    void* isa;
    int flags;
    const char* characters;
    long length;
};

constexpr int kindMask = 0xfff;
constexpr int utf16 = 0x7d0;

bool isUTF8(const char* characters) {
    const auto* at = reinterpret_cast<const unsigned char*>(characters);
    while (*at != 0) {
        const int more = *at < 0x80 ? 0 : *at >= 0xf0 ? 3 : *at >= 0xe0 ? 2 : *at >= 0xc2 ? 1 : -1;
        if (more < 0 || *at > 0xf4) {
            return false;
        }
        ++at;
        for (int i = 0; i < more; ++i, ++at) {
            if ((*at & 0xc0) != 0x80) {
                return false;
            }
        }
    }
    return true;
}

} // namespace

extern "C" char __CFConstantStringClassReference[];

@implementation NSObject
+ (instancetype)alloc {
    return reinterpret_cast<id>(fakeAllocate(fakeClass(self)));
}
+ (instancetype)new {
    return [[self alloc] init];
}
+ (Class)class {
    return self;
}
- (instancetype)init {
    return self;
}
- (void)dealloc {
    fakeDeallocate(fake(self));
}
- (Class)class {
    return reinterpret_cast<Class>(object_getClass(fake(self)));
}
- (BOOL)isEqual:(id)object {
    return self == object;
}
- (BOOL)isKindOfClass:(Class)kind {
    return fakeIsKind(fake(self), fakeClass(kind));
}
- (BOOL)respondsToSelector:(SEL)selector {
    return fakeResponds(fake(self), name(selector));
}
- (id)copy {
    return [self retain];
}
- (instancetype)retain {
    return reinterpret_cast<id>(objc_retain(fake(self)));
}
- (oneway void)release {
    objc_release(fake(self));
}
- (instancetype)autorelease {
    return reinterpret_cast<id>(objc_autorelease(fake(self)));
}
@end

Class NSClassFromString(NSString* name) {
    return reinterpret_cast<Class>(objc_getClass(std::string(vantrel::fake::cocoa::text(name)).c_str()));
}

@implementation NSString {
@public
    std::string _text;
}
+ (instancetype)stringWithUTF8String:(const char*)text {
    if (text == nullptr) {
        std::abort();
    }
    if (!isUTF8(text)) {
        return nil;
    }
    NSString* const made = [[NSString new] autorelease];
    made->_text = text;
    return made;
}
- (NSUInteger)length {
    NSUInteger units = 0;
    for (const char c : vantrel::fake::cocoa::text(self)) {
        const auto byte = static_cast<unsigned char>(c);
        units += (byte & 0xc0) == 0x80 ? 0 : byte >= 0xf0 ? 2 : 1;
    }
    return units;
}
- (const char*)UTF8String {
    return vantrel::fake::cocoa::text(self).data();
}
- (BOOL)isEqual:(id)object {
    return [object isKindOfClass:[NSString class]] &&
           vantrel::fake::cocoa::text(self) == vantrel::fake::cocoa::text(object);
}
- (BOOL)isEqualToString:(NSString*)other {
    return [self isEqual:other];
}
- (NSString*)stringByAppendingPathComponent:(NSString*)component {
    return vantrel::fake::cocoa::make(std::string(vantrel::fake::cocoa::text(self)) + "/" +
                                      std::string(vantrel::fake::cocoa::text(component)));
}
- (NSString*)pathExtension {
    const auto whole = vantrel::fake::cocoa::text(self);
    const auto dot = whole.rfind('.');
    return vantrel::fake::cocoa::make(dot == std::string_view::npos ? ""
                                                                    : std::string(whole.substr(dot + 1)));
}
- (NSString*)stringByDeletingPathExtension {
    const auto whole = vantrel::fake::cocoa::text(self);
    return vantrel::fake::cocoa::make(std::string(whole.substr(0, whole.rfind('.'))));
}
@end

@implementation NSNumber {
@public
    double _value;
}
+ (NSNumber*)numberWithDouble:(double)value {
    NSNumber* const made = [[NSNumber new] autorelease];
    made->_value = value;
    return made;
}
+ (NSNumber*)numberWithInt:(int)value {
    return [self numberWithDouble:value];
}
+ (NSNumber*)numberWithUnsignedInt:(unsigned)value {
    return [self numberWithDouble:value];
}
- (unsigned)unsignedIntValue {
    return static_cast<unsigned>(_value);
}
@end

@implementation NSArray {
@public
    std::vector<id> _objects;
}
+ (instancetype)arrayWithObjects:(const id*)objects count:(NSUInteger)count {
    NSArray* const made = [[NSArray new] autorelease];
    for (NSUInteger i = 0; i < count; ++i) {
        made->_objects.push_back([objects[i] retain]);
    }
    return made;
}
- (void)dealloc {
    for (id object : _objects) {
        [object release];
    }
    [super dealloc];
}
- (NSUInteger)count {
    return _objects.size();
}
- (id)firstObject {
    return _objects.empty() ? nil : _objects.front();
}
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)count {
    NSUInteger given = 0;
    while (given < count && state->state < _objects.size()) {
        buffer[given++] = _objects[state->state++];
    }
    state->itemsPtr = buffer;
    state->mutationsPtr = &state->extra[0];
    return given;
}
@end

@implementation NSDictionary {
@public
    std::vector<std::pair<id, id>> _entries;
}
+ (instancetype)dictionary {
    return [[NSDictionary new] autorelease];
}
+ (instancetype)dictionaryWithObjects:(const id*)objects forKeys:(const id*)keys count:(NSUInteger)count {
    NSDictionary* const made = [[NSDictionary new] autorelease];
    for (NSUInteger i = 0; i < count; ++i) {
        made->_entries.emplace_back([keys[i] retain], [objects[i] retain]);
    }
    return made;
}
- (void)dealloc {
    for (const auto& [key, value] : _entries) {
        [key release];
        [value release];
    }
    [super dealloc];
}
- (NSUInteger)count {
    return _entries.size();
}
- (id)objectForKey:(id)key {
    for (const auto& [own, value] : _entries) {
        if ([own isEqual:key]) {
            return value;
        }
    }
    return nil;
}
- (id)objectForKeyedSubscript:(id)key {
    return [self objectForKey:key];
}
@end

@implementation NSURL {
@public
    std::string _text;
}
+ (NSURL*)fileURLWithPath:(NSString*)path {
    std::string escaped;
    for (const char c : vantrel::fake::cocoa::text(path)) {
        escaped += c == ' ' ? "%20" : std::string(1, c);
    }
    return vantrel::fake::cocoa::makeURL("file://" + escaped);
}
+ (instancetype)URLWithString:(NSString*)text {
    const auto characters = vantrel::fake::cocoa::text(text);
    return characters.empty() || characters.find(' ') != std::string_view::npos
               ? nil
               : vantrel::fake::cocoa::makeURL(std::string(characters));
}
- (NSString*)absoluteString {
    return vantrel::fake::cocoa::make(_text);
}
- (NSString*)path {
    std::string path = self.fileURL ? _text.substr(7) : _text;
    for (auto at = path.find("%20"); at != std::string::npos; at = path.find("%20")) {
        path.replace(at, 3, " ");
    }
    return vantrel::fake::cocoa::make(path);
}
- (BOOL)isFileURL {
    return _text.starts_with("file://");
}
- (BOOL)hasDirectoryPath {
    return _text.ends_with('/');
}
@end

@implementation NSDate {
@public
    double _seconds;
}
+ (instancetype)dateWithTimeIntervalSince1970:(NSTimeInterval)seconds {
    NSDate* const made = [[NSDate new] autorelease];
    made->_seconds = seconds;
    return made;
}
- (NSTimeInterval)timeIntervalSince1970 {
    return _seconds;
}
@end

@implementation NSError {
@public
    NSInteger _code;
    std::string _description;
}
- (NSInteger)code {
    return _code;
}
- (NSString*)localizedDescription {
    return vantrel::fake::cocoa::make(_description);
}
@end

@implementation NSException {
@public
    NSString* _name;
    NSString* _reason;
    NSArray* _callStackSymbols;
}
- (NSString*)name {
    return _name;
}
- (NSString*)reason {
    return _reason;
}
- (NSArray*)callStackSymbols {
    return _callStackSymbols;
}
@end

static NSUncaughtExceptionHandler* uncaughtExceptionHandler = nullptr;

void NSSetUncaughtExceptionHandler(NSUncaughtExceptionHandler* handler) {
    uncaughtExceptionHandler = handler;
}

@implementation NSPredicate
@end

namespace vantrel::fake::cocoa {

NSString* make(const std::optional<std::string>& text) {
    return text ? [NSString stringWithUTF8String:text->c_str()] : nil;
}

NSURL* makeURL(const std::string& text) {
    NSURL* const made = [[NSURL new] autorelease];
    made->_text = text;
    return made;
}

NSError* makeError(NSInteger code, const std::string& description) {
    NSError* const made = [[NSError new] autorelease];
    made->_code = code;
    made->_description = description;
    return made;
}

void throwUncaught(const std::string& name, const std::optional<std::string>& reason,
                   const std::vector<std::string>& callStack) {
    @autoreleasepool {
        std::vector<id> lines;
        for (const std::string& line : callStack) {
            lines.push_back(make(line));
        }
        NSException* const thrown = [[NSException new] autorelease];
        thrown->_name = make(name);
        thrown->_reason = make(reason);
        thrown->_callStackSymbols = makeArray(lines);
        uncaughtExceptionHandler(thrown);
    }
}

NSArray* makeArray(const std::vector<id>& objects) {
    return [NSArray arrayWithObjects:objects.data() count:objects.size()];
}

NSDictionary* makeDictionary(const std::vector<std::pair<id, id>>& entries) {
    std::vector<id> keys;
    std::vector<id> values;
    for (const auto& [key, value] : entries) {
        keys.push_back(key);
        values.push_back(value);
    }
    return [NSDictionary dictionaryWithObjects:values.data() forKeys:keys.data() count:keys.size()];
}

std::string_view text(NSString* string) {
    const auto* const literal = reinterpret_cast<const Literal*>(string);
    if (literal->isa != __CFConstantStringClassReference) {
        return string->_text;
    }
    if ((literal->flags & kindMask) == utf16) {
        std::abort();
    }
    return {literal->characters, static_cast<std::size_t>(literal->length)};
}

} // namespace vantrel::fake::cocoa
