// Our own declarations of the parts of AppKit that Vantrel uses.
#pragma once

#include <Foundation/Foundation.h>
#include <sys/types.h>

#pragma clang assume_nonnull begin

typedef enum NSApplicationActivationPolicy : NSInteger {
    NSApplicationActivationPolicyRegular = 0,
    NSApplicationActivationPolicyAccessory = 1,
    NSApplicationActivationPolicyProhibited = 2,
} NSApplicationActivationPolicy;

typedef NSString* NSDeviceDescriptionKey;
typedef NSString* NSWorkspaceDesktopImageOptionKey;

VANTREL_EXTERN const NSNotificationName NSApplicationDidFinishLaunchingNotification;
VANTREL_EXTERN const NSNotificationName NSWorkspaceDidLaunchApplicationNotification;
VANTREL_EXTERN const NSNotificationName NSWorkspaceWillSleepNotification;
VANTREL_EXTERN const NSNotificationName NSWorkspaceDidWakeNotification;
VANTREL_EXTERN const NSNotificationName NSWorkspaceScreensDidSleepNotification;
VANTREL_EXTERN const NSNotificationName NSWorkspaceScreensDidWakeNotification;
VANTREL_EXTERN const NSNotificationName NSWorkspaceSessionDidBecomeActiveNotification;
VANTREL_EXTERN const NSNotificationName NSWorkspaceSessionDidResignActiveNotification;
VANTREL_EXTERN NSString* const NSWorkspaceApplicationKey;

@interface NSApplication : NSObject
@property(class, readonly, strong) NSApplication* sharedApplication;
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
- (nullable NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)bundleIdentifier;
- (void)openApplicationAtURL:(NSURL*)url
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(void (^_Nullable)(NSRunningApplication* _Nullable app,
                                                NSError* _Nullable error))handler VANTREL_MACOS(10.15);
- (BOOL)openURL:(NSURL*)url;
- (nullable NSURL*)desktopImageURLForScreen:(NSScreen*)screen;
- (nullable NSDictionary<NSWorkspaceDesktopImageOptionKey, id>*)desktopImageOptionsForScreen:
    (NSScreen*)screen;
- (BOOL)setDesktopImageURL:(NSURL*)url
                 forScreen:(NSScreen*)screen
                   options:(NSDictionary<NSWorkspaceDesktopImageOptionKey, id>*)options
                     error:(NSError* _Nullable* _Nullable)error;
@end

#pragma clang assume_nonnull end
