// Our own declarations of the parts of AppKit that Vantrel uses.
#pragma once

#include <Foundation/Foundation.h>
#include <sys/types.h>

#pragma clang assume_nonnull begin

@class NSImage;

typedef enum NSApplicationActivationPolicy : NSInteger {
    NSApplicationActivationPolicyRegular = 0,
    NSApplicationActivationPolicyAccessory = 1,
    NSApplicationActivationPolicyProhibited = 2,
} NSApplicationActivationPolicy;

typedef NSString* NSDeviceDescriptionKey;
typedef NSString* NSWorkspaceDesktopImageOptionKey;

VANTREL_EXTERN const NSNotificationName NSApplicationDidFinishLaunchingNotification;
VANTREL_EXTERN const NSNotificationName NSWorkspaceDidLaunchApplicationNotification;
VANTREL_EXTERN const NSNotificationName NSWorkspaceActiveSpaceDidChangeNotification;
VANTREL_EXTERN const NSNotificationName NSWorkspaceWillSleepNotification;
VANTREL_EXTERN const NSNotificationName NSWorkspaceDidWakeNotification;
VANTREL_EXTERN const NSNotificationName NSWorkspaceScreensDidSleepNotification;
VANTREL_EXTERN const NSNotificationName NSWorkspaceScreensDidWakeNotification;
VANTREL_EXTERN const NSNotificationName NSWorkspaceSessionDidBecomeActiveNotification;
VANTREL_EXTERN const NSNotificationName NSWorkspaceSessionDidResignActiveNotification;
VANTREL_EXTERN NSString* const NSWorkspaceApplicationKey;

typedef enum NSEventType : NSUInteger {
    NSEventTypeLeftMouseDown = 1,
    NSEventTypeRightMouseDown = 3,
} NSEventType;
typedef unsigned long long NSEventMask;
enum : NSEventMask {
    NSEventMaskLeftMouseDown = 1ULL << NSEventTypeLeftMouseDown,
    NSEventMaskRightMouseDown = 1ULL << NSEventTypeRightMouseDown,
};
enum : NSUInteger { NSEventModifierFlagControl = 1 << 18 };

@interface NSEvent : NSObject
@property(readonly) NSEventType type;
@property(readonly) NSUInteger modifierFlags;
@end

@interface NSApplication : NSObject
@property(class, readonly, strong) NSApplication* sharedApplication;
@property(readonly, getter=isActive) BOOL active;
@property(nullable, readonly, strong) NSEvent* currentEvent;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy;
- (void)activateIgnoringOtherApps:(BOOL)ignoringOthers;
@end

typedef enum NSWindowCollectionBehavior : NSUInteger {
    NSWindowCollectionBehaviorCanJoinAllSpaces = 1 << 0,
    NSWindowCollectionBehaviorStationary = 1 << 4,
    NSWindowCollectionBehaviorFullScreenAuxiliary = 1 << 8,
} NSWindowCollectionBehavior;

@interface NSWindow : NSObject
@property NSUInteger collectionBehavior;
@property(readonly) NSRect frame;
@end

@interface NSView : NSObject
@property(nullable, readonly, assign) NSWindow* window;
@end

@interface NSScreen : NSObject
@property(class, readonly, copy) NSArray<NSScreen*>* screens;
@property(readonly) NSRect frame;
@property(readonly) NSRect visibleFrame;
@property(readonly, copy) NSDictionary<NSDeviceDescriptionKey, id>* deviceDescription;
@property(readonly, copy) NSString* localizedName VANTREL_MACOS(10.15);
@end

@interface NSRunningApplication : NSObject
@property(class, readonly, strong) NSRunningApplication* currentApplication;
+ (NSArray<NSRunningApplication*>*)runningApplicationsWithBundleIdentifier:(NSString*)bundleIdentifier;
@property(readonly) pid_t processIdentifier;
@property(readonly) NSApplicationActivationPolicy activationPolicy;
@property(nullable, readonly, copy) NSString* bundleIdentifier;
@property(nullable, readonly, copy) NSString* localizedName;
@property(readonly, getter=isHidden) BOOL hidden;
@property(readonly, getter=isTerminated) BOOL terminated;
@property(readonly, getter=isFinishedLaunching) BOOL finishedLaunching;
- (BOOL)hide;
- (BOOL)unhide;
- (BOOL)activateWithOptions:(NSUInteger)options;
@end

VANTREL_MACOS(10.15)
@interface NSWorkspaceOpenConfiguration : NSObject
@property(class, readonly, strong) NSWorkspaceOpenConfiguration* configuration;
@property BOOL activates;
@property BOOL addsToRecentItems;
@end

@interface NSWorkspace : NSObject
@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
@property(readonly, strong) NSNotificationCenter* notificationCenter;
@property(readonly, copy) NSArray<NSRunningApplication*>* runningApplications;
@property(nullable, readonly, strong) NSRunningApplication* frontmostApplication;
- (nullable NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)bundleIdentifier;
- (NSImage*)iconForFile:(NSString*)fullPath;
- (void)openApplicationAtURL:(NSURL*)url
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(void (^_Nullable)(NSRunningApplication* _Nullable app,
                                                NSError* _Nullable error))handler VANTREL_MACOS(10.15);
- (BOOL)openURL:(NSURL*)url;
@property(readonly) BOOL accessibilityDisplayShouldReduceMotion VANTREL_MACOS(10.12);
- (nullable NSURL*)desktopImageURLForScreen:(NSScreen*)screen;
- (nullable NSDictionary<NSWorkspaceDesktopImageOptionKey, id>*)desktopImageOptionsForScreen:
    (NSScreen*)screen;
- (BOOL)setDesktopImageURL:(NSURL*)url
                 forScreen:(NSScreen*)screen
                   options:(NSDictionary<NSWorkspaceDesktopImageOptionKey, id>*)options
                     error:(NSError* _Nullable* _Nullable)error;
@end

typedef enum NSBitmapImageFileType : NSUInteger {
    NSBitmapImageFileTypePNG = 4,
} NSBitmapImageFileType;
typedef NSString* NSBitmapImageRepPropertyKey;

@interface NSBitmapImageRep : NSObject
+ (nullable instancetype)imageRepWithData:(NSData*)data;
- (instancetype)initWithCGImage:(CGImageRef)cgImage;
- (nullable NSData*)representationUsingType:(NSBitmapImageFileType)storageType
                                 properties:(NSDictionary<NSBitmapImageRepPropertyKey, id>*)properties;
@property NSSize size;
@end

typedef CGFloat NSFontWeight;
VANTREL_EXTERN const NSFontWeight NSFontWeightRegular VANTREL_MACOS(10.11);

VANTREL_MACOS(11.0)
@interface NSImageSymbolConfiguration : NSObject
+ (instancetype)configurationWithPointSize:(CGFloat)pointSize weight:(NSFontWeight)weight;
@end

@interface NSGraphicsContext : NSObject
@end

@interface NSImage : NSObject
- (instancetype)initWithSize:(NSSize)size;
+ (nullable instancetype)imageWithSystemSymbolName:(NSString*)name
                          accessibilityDescription:(nullable NSString*)description VANTREL_MACOS(11.0);
- (nullable NSImage*)imageWithSymbolConfiguration:(NSImageSymbolConfiguration*)configuration
    VANTREL_MACOS(11.0);
- (nullable CGImageRef)CGImageForProposedRect:(nullable NSRect*)proposedDestRect
                                      context:(nullable NSGraphicsContext*)context
                                        hints:(nullable NSDictionary<NSString*, id>*)hints;
@property NSSize size;
- (void)addRepresentation:(NSBitmapImageRep*)representation;
@property(getter=isTemplate, setter=setTemplate:) BOOL isTemplate;
@end

typedef NSInteger NSControlStateValue;
enum : NSControlStateValue { NSControlStateValueOff = 0, NSControlStateValueOn = 1 };

@interface NSMenuItem : NSObject
@property(class, readonly) NSMenuItem* separatorItem;
- (instancetype)initWithTitle:(NSString*)title
                       action:(nullable SEL)action
                keyEquivalent:(NSString*)keyEquivalent;
@property(nullable, weak) id target;
@property(getter=isEnabled) BOOL enabled;
@property NSControlStateValue state;
@property(copy) NSString* keyEquivalent;
@property NSUInteger keyEquivalentModifierMask;
@end

@interface NSMenu : NSObject
- (void)addItem:(NSMenuItem*)item;
@property BOOL autoenablesItems;
@end

@interface NSStatusBarButton : NSView
@property(nullable, strong) NSImage* image;
@property(nullable, copy) NSString* toolTip;
@property(nullable, copy) NSString* accessibilityLabel VANTREL_MACOS(10.10);
@property(nullable, weak) id target;
@property(nullable) SEL action;
- (NSInteger)sendActionOn:(NSEventMask)mask;
- (void)performClick:(nullable id)sender;
@end

static const double NSSquareStatusItemLength = -2.0;

@interface NSStatusItem : NSObject
@property(nullable, readonly, strong) NSStatusBarButton* button VANTREL_MACOS(10.10);
@property(nullable, strong) NSMenu* menu;
@end

@interface NSStatusBar : NSObject
@property(class, readonly, strong) NSStatusBar* systemStatusBar;
- (NSStatusItem*)statusItemWithLength:(double)length;
- (void)removeStatusItem:(NSStatusItem*)item;
@end

#pragma clang assume_nonnull end
