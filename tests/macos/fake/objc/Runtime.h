// The part of the Objective-C runtime that programs compiled with -fobjc-runtime=macosx-13 -fobjc-arc call,
// on Linux and x86-64: classes, messages, reference counts, autorelease pools.
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
// Lives as long as the program: a class or a literal.
[[nodiscard]] bool fakeIsForever(const FakeObject* object);

// What NSObject's root methods are made of.
FakeObject* fakeAllocate(FakeClass* kind);
void fakeDeallocate(FakeObject* object);
bool fakeIsKind(FakeObject* object, FakeClass* kind);
bool fakeResponds(FakeObject* object, const char* selector);
FakeClass* object_getClass(FakeObject* object);
FakeClass* objc_getClass(const char* name);
}

namespace vantrel::fake::objc {

[[nodiscard]] const char* className(const void* object);

// Objects that were autoreleased while no pool was there to release them: on a Mac they leak.
[[nodiscard]] std::size_t autoreleasedWithoutPool();

// Takes a class out of the runtime, as if its framework were not there, or puts it back.
void setClassHidden(const char* name, bool isHidden);
// The same for one method of a class: what an older system has not got.
void setMethodHidden(const char* className, const char* selector, bool isHidden);

} // namespace vantrel::fake::objc
