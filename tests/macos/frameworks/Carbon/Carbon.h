// Our own declarations of the parts of the Carbon Event Manager that the macOS adapter uses.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#pragma clang assume_nonnull begin

typedef UInt32 OptionBits;
typedef unsigned long ItemCount;
typedef unsigned long ByteCount;

enum : OSStatus {
    noErr = 0,
    paramErr = -50,
    eventNotHandledErr = -9874,
    eventHotKeyExistsErr = -9878,
};

typedef OSType EventParamName;
typedef OSType EventParamType;
enum : UInt32 {
    kEventClassKeyboard = 0x6b657962, // "keyb"
    kEventHotKeyPressed = 5,
    kEventParamDirectObject = 0x2d2d2d2d, // "----"
    typeEventHotKeyID = 0x686b6964,       // "hkid"
};

typedef struct OpaqueEventRef* EventRef;
typedef struct OpaqueEventHandlerRef* EventHandlerRef;
typedef struct OpaqueEventHandlerCallRef* EventHandlerCallRef;
typedef struct OpaqueEventTargetRef* EventTargetRef;
typedef struct OpaqueEventHotKeyRef* EventHotKeyRef;

typedef struct EventTypeSpec {
    OSType eventClass;
    UInt32 eventKind;
} EventTypeSpec;

typedef struct EventHotKeyID {
    OSType signature;
    UInt32 id;
} EventHotKeyID;

typedef OSStatus (*EventHandlerUPP)(EventHandlerCallRef _Nullable next, EventRef event,
                                    void* _Nullable userData);

VANTREL_EXTERN EventTargetRef GetApplicationEventTarget(void) VANTREL_MACOS(10.0);
VANTREL_EXTERN OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP _Nullable handler,
                                            ItemCount typeCount, const EventTypeSpec* types,
                                            void* _Nullable userData,
                                            EventHandlerRef _Nullable* _Nullable installed)
    VANTREL_MACOS(10.0);
VANTREL_EXTERN OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type,
                                          EventParamType* _Nullable actualType, ByteCount bufferSize,
                                          ByteCount* _Nullable actualSize, void* _Nullable buffer)
    VANTREL_MACOS(10.0);
VANTREL_EXTERN OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID hotKeyID,
                                            EventTargetRef target, OptionBits options,
                                            EventHotKeyRef _Nullable* _Nonnull hotKey) VANTREL_MACOS(10.0);
VANTREL_EXTERN OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey) VANTREL_MACOS(10.0);

#pragma clang assume_nonnull end
