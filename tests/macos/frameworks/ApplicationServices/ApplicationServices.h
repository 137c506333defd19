// Our own declarations of the parts of Accessibility that the macOS adapter uses.
#pragma once

#include <ColorSync/ColorSync.h>
#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CoreGraphics.h>
#include <sys/types.h>

#pragma clang assume_nonnull begin

typedef const struct CF_BRIDGED_TYPE(id) __AXUIElement* AXUIElementRef;
typedef const struct CF_BRIDGED_TYPE(id) __AXValue* AXValueRef;

typedef int32_t AXError;
enum : AXError {
    kAXErrorSuccess = 0,
    kAXErrorFailure = -25200,
    kAXErrorIllegalArgument = -25201,
    kAXErrorInvalidUIElement = -25202,
    kAXErrorCannotComplete = -25204,
    kAXErrorAttributeUnsupported = -25205,
    kAXErrorActionUnsupported = -25206,
    kAXErrorNotificationUnsupported = -25207,
    kAXErrorNotImplemented = -25208,
    kAXErrorAPIDisabled = -25211,
    kAXErrorNoValue = -25212,
};

// Trust.
VANTREL_EXTERN const CFStringRef kAXTrustedCheckOptionPrompt VANTREL_MACOS(10.9);
VANTREL_EXTERN Boolean AXIsProcessTrusted(void) VANTREL_MACOS(10.4);
VANTREL_EXTERN Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef _Nullable options) VANTREL_MACOS(10.9);

// Attribute and action names.
#define kAXWindowsAttribute CFSTR("AXWindows")
#define kAXTitleAttribute CFSTR("AXTitle")
#define kAXSubroleAttribute CFSTR("AXSubrole")
#define kAXMinimizedAttribute CFSTR("AXMinimized")
#define kAXPositionAttribute CFSTR("AXPosition")
#define kAXSizeAttribute CFSTR("AXSize")
#define kAXRaiseAction CFSTR("AXRaise")

// Elements.
typedef UInt32 AXCopyMultipleAttributeOptions;
enum : AXCopyMultipleAttributeOptions { kAXCopyMultipleAttributeOptionStopOnError = 0x1 };
VANTREL_EXTERN CFTypeID AXUIElementGetTypeID(void);
VANTREL_EXTERN CF_RETURNS_RETAINED AXUIElementRef AXUIElementCreateApplication(pid_t pid);
VANTREL_EXTERN CF_RETURNS_RETAINED AXUIElementRef AXUIElementCreateSystemWide(void);
VANTREL_EXTERN AXError AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute,
                                                     CFTypeRef _Nullable* _Nonnull CF_RETURNS_RETAINED value);
// Without options, an attribute that cannot be read is replaced by its error as an AXValue.
VANTREL_EXTERN AXError AXUIElementCopyMultipleAttributeValues(
    AXUIElementRef element, CFArrayRef attributes, AXCopyMultipleAttributeOptions options,
    CFArrayRef _Nullable* _Nonnull CF_RETURNS_RETAINED values) VANTREL_MACOS(10.4);
VANTREL_EXTERN AXError AXUIElementSetAttributeValue(AXUIElementRef element, CFStringRef attribute,
                                                    CFTypeRef value);
VANTREL_EXTERN AXError AXUIElementPerformAction(AXUIElementRef element, CFStringRef action);
// On the system-wide element, sets the timeout for all elements of this process without their own.
VANTREL_EXTERN AXError AXUIElementSetMessagingTimeout(AXUIElementRef element, float timeoutInSeconds)
    VANTREL_MACOS(10.4);

VANTREL_EXTERN AXError AXUIElementGetPid(AXUIElementRef element, pid_t* pid);

// Observers. Their callback is called by the run loop that has their source.
typedef const struct CF_BRIDGED_TYPE(id) __AXObserver* AXObserverRef;
typedef void (*AXObserverCallback)(AXObserverRef observer, AXUIElementRef element, CFStringRef notification,
                                   void* _Nullable context);
#define kAXWindowMovedNotification CFSTR("AXWindowMoved")
#define kAXWindowResizedNotification CFSTR("AXWindowResized")
VANTREL_EXTERN AXError AXObserverCreate(pid_t application, AXObserverCallback callback,
                                        AXObserverRef _Nullable* _Nonnull CF_RETURNS_RETAINED observer);
VANTREL_EXTERN AXError AXObserverAddNotification(AXObserverRef observer, AXUIElementRef element,
                                                 CFStringRef notification, void* _Nullable context);
VANTREL_EXTERN CF_RETURNS_NOT_RETAINED CFRunLoopSourceRef AXObserverGetRunLoopSource(AXObserverRef observer);

// Values that are not property lists.
typedef UInt32 AXValueType;
enum : AXValueType {
    kAXValueTypeIllegal = 0,
    kAXValueTypeCGPoint = 1,
    kAXValueTypeCGSize = 2,
    kAXValueTypeCGRect = 3,
    kAXValueTypeCFRange = 4,
    kAXValueTypeAXError = 5,
};
VANTREL_EXTERN CFTypeID AXValueGetTypeID(void);
VANTREL_EXTERN CF_RETURNS_RETAINED AXValueRef _Nullable AXValueCreate(AXValueType type, const void* value);
VANTREL_EXTERN Boolean AXValueGetValue(AXValueRef value, AXValueType type, void* result);

#pragma clang assume_nonnull end
