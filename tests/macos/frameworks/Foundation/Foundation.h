// Our own declarations of the parts of Foundation that Vantrel uses, with real enumeration values and
// availability.
#pragma once

#include <CoreGraphics/CoreGraphics.h>

typedef bool BOOL;
#define YES __objc_yes
#define NO __objc_no
#define nil nullptr

typedef struct objc_class* Class;
typedef struct objc_object {
    Class isa;
}* id;
typedef struct objc_selector* SEL;

typedef long NSInteger;
typedef unsigned long NSUInteger;
typedef double NSTimeInterval;
typedef CGRect NSRect;
typedef CGSize NSSize;

#pragma clang assume_nonnull begin

@class NSArray<T>;
@class NSDictionary<K, V>;
@class NSString;
@class NSURL;

VANTREL_EXTERN Class _Nullable NSClassFromString(NSString* name);

typedef struct {
    unsigned long state;
    id __unsafe_unretained _Nullable* _Nullable itemsPtr;
    unsigned long* _Nullable mutationsPtr;
    unsigned long extra[5];
} NSFastEnumerationState;

@protocol NSObject
- (BOOL)isEqual:(nullable id)object;
- (Class)class;
- (BOOL)isKindOfClass:(Class)kind;
- (BOOL)respondsToSelector:(SEL)selector;
#if !__has_feature(objc_arc)
- (instancetype)retain;
- (oneway void)release;
- (instancetype)autorelease;
#endif
@end

@protocol NSFastEnumeration
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained _Nullable[_Nonnull])buffer
                                    count:(NSUInteger)count;
@end

__attribute__((objc_root_class))
@interface NSObject<NSObject> {
    Class isa;
}
+ (instancetype)alloc;
+ (instancetype)new;
- (instancetype)init;
- (void)dealloc;
+ (Class)class;
- (id)copy;
@end

@interface NSString : NSObject
// Returns nil if the string is not valid UTF-8.
+ (nullable instancetype)stringWithUTF8String:(const char*)text;
@property(readonly) NSUInteger length;
@property(nullable, readonly) const char* UTF8String;
- (BOOL)isEqualToString:(NSString*)other;
- (NSString*)stringByAppendingPathComponent:(NSString*)component;
- (NSString*)stringByDeletingPathExtension;
@property(readonly, copy) NSString* pathExtension;
@end

typedef NSString* NSNotificationName;
typedef NSString* NSRunLoopMode;
typedef NSString* NSErrorDomain;

@interface NSNumber : NSObject
+ (NSNumber*)numberWithInt:(int)value;
+ (NSNumber*)numberWithUnsignedInt:(unsigned)value;
+ (NSNumber*)numberWithDouble:(double)value;
@property(readonly) unsigned unsignedIntValue;
@end

@interface NSArray<__covariant T> : NSObject <NSFastEnumeration>
+ (instancetype)arrayWithObjects:(const T _Nonnull[_Nullable])objects count:(NSUInteger)count;
@property(readonly) NSUInteger count;
@property(nullable, readonly) T firstObject;
@end

@interface NSDictionary<__covariant K, __covariant V> : NSObject
+ (instancetype)dictionary;
+ (instancetype)dictionaryWithObjects:(const V _Nonnull[_Nullable])objects
                              forKeys:(const K _Nonnull[_Nullable])keys
                                count:(NSUInteger)count;
@property(readonly) NSUInteger count;
- (nullable V)objectForKey:(K)key;
- (nullable V)objectForKeyedSubscript:(K)key;
@end

@interface NSSet<__covariant T> : NSObject
+ (instancetype)setWithObject:(T)object;
@end

@interface NSUserDefaults : NSObject
@property(class, readonly, strong) NSUserDefaults* standardUserDefaults;
- (void)registerDefaults:(NSDictionary<NSString*, id>*)defaults;
@end

@interface NSURL : NSObject
+ (NSURL*)fileURLWithPath:(NSString*)path;
// Returns nil if the string is not a valid URL.
+ (nullable instancetype)URLWithString:(NSString*)text;
@property(nullable, readonly, copy) NSString* absoluteString;
@property(nullable, readonly, copy) NSString* path;
@property(readonly, getter=isFileURL) BOOL fileURL;
@property(readonly) BOOL hasDirectoryPath VANTREL_MACOS(10.11);
@end

@interface NSDate : NSObject
+ (instancetype)dateWithTimeIntervalSince1970:(NSTimeInterval)seconds;
@property(readonly) NSTimeInterval timeIntervalSince1970;
@end

@interface NSError : NSObject
@property(readonly) NSInteger code;
@property(readonly, copy) NSString* localizedDescription;
@end

@interface NSException : NSObject
@property(readonly, copy) NSString* name;
@property(nullable, readonly, copy) NSString* reason;
@property(readonly, copy) NSArray<NSString*>* callStackSymbols;
@end

typedef void NSUncaughtExceptionHandler(NSException* exception);
VANTREL_EXTERN void NSSetUncaughtExceptionHandler(NSUncaughtExceptionHandler* _Nullable handler);

@interface NSTimeZone : NSObject
@property(class, readonly, copy) NSTimeZone* systemTimeZone;
+ (void)resetSystemTimeZone;
- (NSInteger)secondsFromGMTForDate:(NSDate*)date;
@end

@interface NSBundle : NSObject
@property(class, readonly, strong) NSBundle* mainBundle;
+ (nullable instancetype)bundleWithPath:(NSString*)path;
@property(nullable, readonly, copy) NSString* bundleIdentifier;
@property(nullable, readonly, copy) NSString* privateFrameworksPath;
- (BOOL)load;
- (nullable id)objectForInfoDictionaryKey:(NSString*)key;
@end

@interface NSPredicate : NSObject
@end

typedef enum NSSearchPathDirectory : NSUInteger { NSApplicationSupportDirectory = 14 } NSSearchPathDirectory;
typedef enum NSSearchPathDomainMask : NSUInteger { NSUserDomainMask = 1 } NSSearchPathDomainMask;

@interface NSFileManager : NSObject
@property(class, readonly, strong) NSFileManager* defaultManager;
- (NSString*)displayNameAtPath:(NSString*)path;
- (nullable NSURL*)URLForDirectory:(NSSearchPathDirectory)directory
                          inDomain:(NSSearchPathDomainMask)domain
                 appropriateForURL:(nullable NSURL*)url
                            create:(BOOL)shouldCreate
                             error:(NSError* _Nullable* _Nullable)error;
@end

@interface NSOperationQueue : NSObject
@property(class, readonly, strong) NSOperationQueue* mainQueue;
- (void)addOperationWithBlock:(void (^)(void))block;
@end

VANTREL_EXTERN const NSRunLoopMode NSRunLoopCommonModes;

@interface NSTimer : NSObject
+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)seconds
                          repeats:(BOOL)repeats
                            block:(void (^)(NSTimer* timer))block VANTREL_MACOS(10.12);
@property NSTimeInterval tolerance;
@property(readonly, getter=isValid) BOOL valid;
- (void)invalidate;
@end

@interface NSRunLoop : NSObject
@property(class, readonly, strong) NSRunLoop* mainRunLoop;
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode;
@end

@interface NSNotification : NSObject
@property(readonly, copy) NSNotificationName name;
@property(nullable, readonly, retain) id object;
@property(nullable, readonly, copy) NSDictionary* userInfo;
@end

typedef enum NSActivityOptions : uint64_t {
    NSActivityUserInitiatedAllowingIdleSystemSleep = 0x00EFFFFF,
} NSActivityOptions;

@interface NSProcessInfo : NSObject
@property(class, readonly, strong) NSProcessInfo* processInfo;
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options
                                  reason:(NSString*)reason VANTREL_MACOS(10.9);
- (void)endActivity:(id<NSObject>)activity VANTREL_MACOS(10.9);
@end

@interface NSNotificationCenter : NSObject
@property(class, readonly, strong) NSNotificationCenter* defaultCenter;
- (id<NSObject>)addObserverForName:(nullable NSNotificationName)name
                            object:(nullable id)object
                             queue:(nullable NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification* notification))block;
- (void)removeObserver:(id)observer;
@end

@interface NSData : NSObject
+ (instancetype)dataWithBytes:(const void* _Nullable)bytes length:(NSUInteger)length;
@property(readonly) NSUInteger length;
@property(readonly) const void* bytes __attribute__((objc_returns_inner_pointer));
@end

// Apple events.
enum : FourCharCode { kCoreEventClass = 'aevt', kAEReopenApplication = 'rapp' };

@interface NSAppleEventDescriptor : NSObject
@end

@interface NSAppleEventManager : NSObject
@property(class, readonly, strong) NSAppleEventManager* sharedAppleEventManager;
- (void)setEventHandler:(id)handler
            andSelector:(SEL)selector
          forEventClass:(FourCharCode)eventClass
             andEventID:(FourCharCode)eventID;
- (void)removeEventHandlerForEventClass:(FourCharCode)eventClass andEventID:(FourCharCode)eventID;
@end

#pragma clang assume_nonnull end
