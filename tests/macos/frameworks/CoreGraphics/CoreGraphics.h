// Our own declarations of the parts of Quartz that the macOS adapter uses.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#pragma clang assume_nonnull begin

typedef double CGFloat;
typedef struct CGPoint {
    CGFloat x;
    CGFloat y;
} CGPoint;
typedef struct CGSize {
    CGFloat width;
    CGFloat height;
} CGSize;
typedef struct CGRect {
    CGPoint origin;
    CGSize size;
} CGRect;

typedef struct CF_BRIDGED_TYPE(id) CGImage* CGImageRef;

VANTREL_EXTERN bool CGRectMakeWithDictionaryRepresentation(CFDictionaryRef _Nullable dictionary,
                                                           CGRect* _Nullable rect) VANTREL_MACOS(10.5);

typedef int32_t CGError;
enum : CGError {
    kCGErrorSuccess = 0,
    kCGErrorFailure = 1000,
    kCGErrorIllegalArgument = 1001,
    kCGErrorCannotComplete = 1004,
};

// The mouse. Locations are in global coordinates, origin at the top left of the primary display.
typedef struct CF_BRIDGED_TYPE(id) __CGEvent* CGEventRef;
typedef struct CF_BRIDGED_TYPE(id) __CGEventSource* CGEventSourceRef;
typedef int32_t CGEventSourceStateID;
enum : CGEventSourceStateID { kCGEventSourceStateCombinedSessionState = 0 };
typedef uint32_t CGMouseButton;
enum : CGMouseButton { kCGMouseButtonLeft = 0 };
typedef uint32_t CGEventType;
enum : CGEventType { kCGEventLeftMouseUp = 2 };
VANTREL_EXTERN CF_RETURNS_RETAINED CGEventRef _Nullable CGEventCreate(CGEventSourceRef _Nullable source)
    VANTREL_MACOS(10.4);
VANTREL_EXTERN CGPoint CGEventGetLocation(CGEventRef event) VANTREL_MACOS(10.4);
VANTREL_EXTERN bool CGEventSourceButtonState(CGEventSourceStateID state, CGMouseButton button)
    VANTREL_MACOS(10.4);
VANTREL_EXTERN double CGEventSourceSecondsSinceLastEventType(CGEventSourceStateID state, CGEventType type)
    VANTREL_MACOS(10.4);

// The window list.
typedef uint32_t CGWindowID;
typedef uint32_t CGWindowListOption;
enum : CGWindowListOption {
    kCGWindowListOptionAll = 0,
    kCGWindowListOptionOnScreenOnly = 1U << 0U,
    kCGWindowListExcludeDesktopElements = 1U << 4U,
};
#define kCGNullWindowID ((CGWindowID)0)
VANTREL_EXTERN const CFStringRef kCGWindowLayer VANTREL_MACOS(10.5);
VANTREL_EXTERN const CFStringRef kCGWindowOwnerPID VANTREL_MACOS(10.5);
VANTREL_EXTERN const CFStringRef kCGWindowBounds VANTREL_MACOS(10.5);
VANTREL_EXTERN CF_RETURNS_RETAINED CFArrayRef _Nullable CGWindowListCopyWindowInfo(
    CGWindowListOption option, CGWindowID relativeToWindow) VANTREL_MACOS(10.5);

// Displays.
typedef uint32_t CGDirectDisplayID;
#define kCGNullDirectDisplay ((CGDirectDisplayID)0)
#if defined(__x86_64__)
typedef unsigned int boolean_t;
#else
typedef int boolean_t;
#endif
VANTREL_EXTERN CGError CGGetActiveDisplayList(uint32_t maximum, CGDirectDisplayID* _Nullable displays,
                                              uint32_t* _Nullable count) VANTREL_MACOS(10.0);
VANTREL_EXTERN CGDirectDisplayID CGMainDisplayID(void);
VANTREL_EXTERN boolean_t CGDisplayIsAsleep(CGDirectDisplayID display);
VANTREL_EXTERN boolean_t CGDisplayIsBuiltin(CGDirectDisplayID display) VANTREL_MACOS(10.2);
VANTREL_EXTERN CGRect CGDisplayBounds(CGDirectDisplayID display) VANTREL_MACOS(10.0);

typedef uint32_t CGDisplayChangeSummaryFlags;
enum : CGDisplayChangeSummaryFlags {
    kCGDisplayBeginConfigurationFlag = 1U << 0U,
    kCGDisplayMovedFlag = 1U << 1U,
    kCGDisplaySetMainFlag = 1U << 2U,
    kCGDisplaySetModeFlag = 1U << 3U,
    kCGDisplayAddFlag = 1U << 4U,
    kCGDisplayRemoveFlag = 1U << 5U,
    kCGDisplayEnabledFlag = 1U << 8U,
    kCGDisplayDisabledFlag = 1U << 9U,
    kCGDisplayMirrorFlag = 1U << 10U,
    kCGDisplayUnMirrorFlag = 1U << 11U,
    kCGDisplayDesktopShapeChangedFlag = 1U << 12U,
};
typedef void (*CGDisplayReconfigurationCallBack)(CGDirectDisplayID display, CGDisplayChangeSummaryFlags flags,
                                                 void* _Nullable userInfo);
VANTREL_EXTERN CGError CGDisplayRegisterReconfigurationCallback(
    CGDisplayReconfigurationCallBack _Nullable callBack, void* _Nullable userInfo) VANTREL_MACOS(10.3);
VANTREL_EXTERN CGError CGDisplayRemoveReconfigurationCallback(
    CGDisplayReconfigurationCallBack _Nullable callBack, void* _Nullable userInfo) VANTREL_MACOS(10.3);

#pragma clang assume_nonnull end
