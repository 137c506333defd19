// The part of the Objective-C runtime that programs compiled with -fobjc-runtime=macosx-13 -fobjc-arc need,
// for Linux on x86-64: classes, messages, reference counts, autorelease pools.
#pragma once

#include <cstddef>
#include <cstdint>

extern "C" {
struct FakeObject;
struct FakeClass;

FakeObject* objc_retain(FakeObject* object);
void objc_release(FakeObject* object);
FakeObject* objc_autorelease(FakeObject* object);
void* objc_autoreleasePoolPush();
void objc_autoreleasePoolPop(void* pool);
void* _Block_copy(const void* block);
void _Block_release(const void* block);
extern void* _NSConcreteStackBlock[32];
extern void* _NSConcreteMallocBlock[32];
extern void* _NSConcreteGlobalBlock[32];

[[nodiscard]] bool fakeIsBlock(const FakeObject* object);
// Whether the object lives as long as the program: a class or a literal.
[[nodiscard]] bool fakeIsImmortal(const FakeObject* object);

// The building blocks of NSObject's methods.
FakeObject* fakeAllocate(FakeClass* kind);
void fakeDeallocate(FakeObject* object);
bool fakeIsKind(FakeObject* object, FakeClass* kind);
bool fakeResponds(FakeObject* object, const char* selector);
FakeClass* object_getClass(FakeObject* object);
FakeClass* objc_getClass(const char* name);
}

namespace vantrel::fake::objc {

[[nodiscard]] const char* className(const void* object);

// The number of objects autoreleased without a pool. On a Mac, they leak.
[[nodiscard]] std::size_t autoreleasedWithoutPool();

// Hides a class, as if its framework were missing, or shows it again.
void setClassHidden(const char* name, bool isHidden);
// Does the same for a single method, to simulate an older system.
void setMethodHidden(const char* className, const char* selector, bool isHidden);

} // namespace vantrel::fake::objc
