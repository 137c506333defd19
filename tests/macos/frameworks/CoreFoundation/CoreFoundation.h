// Our own declarations of the parts of Core Foundation that the macOS adapter uses.
#pragma once

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
#define VANTREL_EXTERN extern "C"
#else
#define VANTREL_EXTERN extern
#endif

// When a declaration was introduced in macOS and when it was deprecated.
#define VANTREL_MACOS(version) __attribute__((availability(macos, introduced = version)))
#define VANTREL_MACOS_UNTIL(version, last)                                                                   \
    __attribute__((availability(macos, introduced = version, deprecated = last)))

// Ownership annotations for the static analyser.
#define CF_RETURNS_RETAINED __attribute__((cf_returns_retained))
#define CF_RETURNS_NOT_RETAINED __attribute__((cf_returns_not_retained))
#define CF_CONSUMED __attribute__((cf_consumed))

// The Objective-C class that an opaque type is bridged to.
#define CF_BRIDGED_TYPE(type) __attribute__((objc_bridge(type)))

#pragma clang assume_nonnull begin

typedef signed int SInt32;
typedef unsigned int UInt32;
typedef unsigned char UInt8;
typedef unsigned char Boolean;
typedef double Float64;
typedef UInt32 FourCharCode;
typedef FourCharCode OSType;
typedef SInt32 OSStatus;

typedef signed long CFIndex;
typedef unsigned long CFTypeID;

typedef const void* CFTypeRef;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct CF_BRIDGED_TYPE(NSString) __CFString* CFStringRef;
typedef const struct CF_BRIDGED_TYPE(NSArray) __CFArray* CFArrayRef;
typedef const struct CF_BRIDGED_TYPE(NSDictionary) __CFDictionary* CFDictionaryRef;
typedef struct CF_BRIDGED_TYPE(NSMutableDictionary) __CFDictionary* CFMutableDictionaryRef;
typedef const struct CF_BRIDGED_TYPE(NSNumber) __CFNumber* CFNumberRef;
typedef const struct CF_BRIDGED_TYPE(NSNumber) __CFBoolean* CFBooleanRef;
typedef const struct CF_BRIDGED_TYPE(NSNull) __CFNull* CFNullRef;
typedef const struct CF_BRIDGED_TYPE(NSDate) __CFDate* CFDateRef;
typedef const struct CF_BRIDGED_TYPE(NSData) __CFData* CFDataRef;
typedef const struct __CFUUID* CFUUIDRef;
typedef CFTypeRef CFPropertyListRef;

VANTREL_EXTERN const CFAllocatorRef _Nullable kCFAllocatorDefault;

// Objects.
VANTREL_EXTERN CFTypeRef CFRetain(CFTypeRef object);
VANTREL_EXTERN void CFRelease(CFTypeRef object);
VANTREL_EXTERN CFTypeID CFGetTypeID(CFTypeRef object);
VANTREL_EXTERN Boolean CFEqual(CFTypeRef one, CFTypeRef other);

// Strings.
typedef UInt32 CFStringEncoding;
enum : CFStringEncoding { kCFStringEncodingUTF8 = 0x08000100 };
#define CFSTR(text) ((CFStringRef)__builtin___CFStringMakeConstantString("" text ""))
VANTREL_EXTERN CFTypeID CFStringGetTypeID(void);
VANTREL_EXTERN CF_RETURNS_RETAINED CFStringRef _Nullable CFStringCreateWithBytes(
    CFAllocatorRef _Nullable allocator, const UInt8* bytes, CFIndex count, CFStringEncoding encoding,
    Boolean isExternalRepresentation);
// In UTF-16 units.
VANTREL_EXTERN CFIndex CFStringGetLength(CFStringRef text);
VANTREL_EXTERN CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding);
VANTREL_EXTERN Boolean CFStringGetCString(CFStringRef text, char* buffer, CFIndex bufferSize,
                                          CFStringEncoding encoding);

// Arrays.
typedef struct CFArrayCallBacks CFArrayCallBacks;
VANTREL_EXTERN const CFArrayCallBacks kCFTypeArrayCallBacks;
VANTREL_EXTERN CFTypeID CFArrayGetTypeID(void);
VANTREL_EXTERN CF_RETURNS_RETAINED CFArrayRef _Nullable CFArrayCreate(
    CFAllocatorRef _Nullable allocator, const void* _Nullable* _Nullable values, CFIndex count,
    const CFArrayCallBacks* _Nullable callBacks);
VANTREL_EXTERN CFIndex CFArrayGetCount(CFArrayRef array);
VANTREL_EXTERN const void* _Nullable CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);

// Dictionaries.
typedef struct CFDictionaryKeyCallBacks CFDictionaryKeyCallBacks;
typedef struct CFDictionaryValueCallBacks CFDictionaryValueCallBacks;
VANTREL_EXTERN const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks;
VANTREL_EXTERN const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks;
VANTREL_EXTERN CFTypeID CFDictionaryGetTypeID(void);
VANTREL_EXTERN CF_RETURNS_RETAINED CFDictionaryRef _Nullable CFDictionaryCreate(
    CFAllocatorRef _Nullable allocator, const void* _Nullable* _Nullable keys,
    const void* _Nullable* _Nullable values, CFIndex count,
    const CFDictionaryKeyCallBacks* _Nullable keyCallBacks,
    const CFDictionaryValueCallBacks* _Nullable valueCallBacks);
VANTREL_EXTERN const void* _Nullable CFDictionaryGetValue(CFDictionaryRef dictionary,
                                                          const void* _Nullable key);

// Numbers, booleans, null.
typedef CFIndex CFNumberType;
enum : CFNumberType {
    kCFNumberSInt32Type = 3,
    kCFNumberSInt64Type = 4,
    kCFNumberFloat64Type = 6,
    kCFNumberIntType = 9,
    kCFNumberLongLongType = 11,
    kCFNumberDoubleType = 13,
};
VANTREL_EXTERN CFTypeID CFNumberGetTypeID(void);
VANTREL_EXTERN CF_RETURNS_RETAINED CFNumberRef _Nullable CFNumberCreate(CFAllocatorRef _Nullable allocator,
                                                                        CFNumberType type, const void* value);
// Returns false if the conversion loses information.
VANTREL_EXTERN Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value);
VANTREL_EXTERN Boolean CFNumberIsFloatType(CFNumberRef number);

VANTREL_EXTERN const CFBooleanRef kCFBooleanTrue;
VANTREL_EXTERN const CFBooleanRef kCFBooleanFalse;
VANTREL_EXTERN CFTypeID CFBooleanGetTypeID(void);
VANTREL_EXTERN Boolean CFBooleanGetValue(CFBooleanRef boolean);

VANTREL_EXTERN const CFNullRef kCFNull;

// Dates and data. Absolute times are in seconds since the start of 2001.
typedef double CFTimeInterval;
typedef CFTimeInterval CFAbsoluteTime;
VANTREL_EXTERN const CFTimeInterval kCFAbsoluteTimeIntervalSince1970;
VANTREL_EXTERN CFTypeID CFDateGetTypeID(void);
VANTREL_EXTERN CF_RETURNS_RETAINED CFDateRef _Nullable CFDateCreate(CFAllocatorRef _Nullable allocator,
                                                                    CFAbsoluteTime time);
VANTREL_EXTERN CFAbsoluteTime CFDateGetAbsoluteTime(CFDateRef date);
VANTREL_EXTERN CFTypeID CFDataGetTypeID(void);
VANTREL_EXTERN CF_RETURNS_RETAINED CFDataRef _Nullable CFDataCreate(CFAllocatorRef _Nullable allocator,
                                                                    const UInt8* _Nullable bytes,
                                                                    CFIndex count);
VANTREL_EXTERN CFIndex CFDataGetLength(CFDataRef data);
VANTREL_EXTERN const UInt8* _Nullable CFDataGetBytePtr(CFDataRef data);

// UUIDs.
VANTREL_EXTERN CF_RETURNS_RETAINED
    CFStringRef _Nullable CFUUIDCreateString(CFAllocatorRef _Nullable allocator, CFUUIDRef uuid);

// Preferences.
VANTREL_EXTERN const CFStringRef kCFPreferencesCurrentApplication;
VANTREL_EXTERN const CFStringRef kCFPreferencesAnyHost;
VANTREL_EXTERN const CFStringRef kCFPreferencesCurrentUser;
VANTREL_EXTERN CF_RETURNS_RETAINED
    CFPropertyListRef _Nullable CFPreferencesCopyAppValue(CFStringRef key, CFStringRef applicationID);
// A null value removes the key.
VANTREL_EXTERN void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef _Nullable value,
                                             CFStringRef applicationID);
VANTREL_EXTERN Boolean CFPreferencesAppSynchronize(CFStringRef applicationID);
VANTREL_EXTERN void CFPreferencesSetValue(CFStringRef key, CFPropertyListRef _Nullable value,
                                          CFStringRef applicationID, CFStringRef userName,
                                          CFStringRef hostName);
VANTREL_EXTERN Boolean CFPreferencesSynchronize(CFStringRef applicationID, CFStringRef userName,
                                                CFStringRef hostName);

// Notifications.
typedef struct __CFNotificationCenter* CFNotificationCenterRef;
typedef CFStringRef CFNotificationName;
typedef void (*CFNotificationCallback)(CFNotificationCenterRef center, void* _Nullable observer,
                                       CFNotificationName name, const void* _Nullable object,
                                       CFDictionaryRef _Nullable userInfo);
typedef CFIndex CFNotificationSuspensionBehavior;
enum : CFNotificationSuspensionBehavior { CFNotificationSuspensionBehaviorDeliverImmediately = 4 };
// The centre of this process, which is also NSNotificationCenter's default centre.
VANTREL_EXTERN CF_RETURNS_NOT_RETAINED CFNotificationCenterRef CFNotificationCenterGetLocalCenter(void);
// The centre of all programs of this user. Observers are called by the main run loop.
VANTREL_EXTERN CF_RETURNS_NOT_RETAINED CFNotificationCenterRef CFNotificationCenterGetDistributedCenter(void);
VANTREL_EXTERN void CFNotificationCenterAddObserver(CFNotificationCenterRef center,
                                                    const void* _Nullable observer,
                                                    CFNotificationCallback callBack,
                                                    CFStringRef _Nullable name, const void* _Nullable object,
                                                    CFNotificationSuspensionBehavior suspensionBehavior);
VANTREL_EXTERN void CFNotificationCenterPostNotification(CFNotificationCenterRef center,
                                                         CFNotificationName name,
                                                         const void* _Nullable object,
                                                         CFDictionaryRef _Nullable userInfo,
                                                         Boolean deliverImmediately);
VANTREL_EXTERN void CFNotificationCenterRemoveObserver(CFNotificationCenterRef center,
                                                       const void* _Nullable observer,
                                                       CFNotificationName _Nullable name,
                                                       const void* _Nullable object);

// Run loops.
typedef CFStringRef CFRunLoopMode;
typedef SInt32 CFRunLoopRunResult;
typedef struct CF_BRIDGED_TYPE(id) __CFRunLoop* CFRunLoopRef;
typedef struct CF_BRIDGED_TYPE(id) __CFRunLoopSource* CFRunLoopSourceRef;
VANTREL_EXTERN const CFRunLoopMode kCFRunLoopDefaultMode;
VANTREL_EXTERN const CFRunLoopMode kCFRunLoopCommonModes;
VANTREL_EXTERN CF_RETURNS_NOT_RETAINED CFRunLoopRef CFRunLoopGetMain(void);
VANTREL_EXTERN void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode);
VANTREL_EXTERN void CFRunLoopRemoveSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode);
VANTREL_EXTERN CFRunLoopRunResult CFRunLoopRunInMode(CFRunLoopMode mode, double seconds,
                                                     Boolean returnAfterSourceHandled);

#pragma clang assume_nonnull end
