// Reference counts and autorelease pools.
#include "tests/macos/fake/ObjectLedger.h"
#include "tests/macos/fake/objc/Runtime.h"

#include <atomic>
#include <vector>

namespace vantrel::fake::objc {

namespace {

std::atomic<std::size_t> withoutPool = 0;
thread_local std::vector<FakeObject*> autoreleased;
thread_local int pools = 0;

} // namespace

std::size_t autoreleasedWithoutPool() {
    return withoutPool;
}

} // namespace vantrel::fake::objc

using namespace vantrel::fake;
using namespace vantrel::fake::objc;

extern "C" {

FakeObject* objc_retain(FakeObject* object) {
    if (object == nullptr) {
        return nullptr;
    }
    if (fakeIsBlock(object)) {
        return static_cast<FakeObject*>(_Block_copy(object));
    }
    if (!fakeIsImmortal(object)) {
        Ledger::retain(object);
    }
    return object;
}

void objc_release(FakeObject* object) {
    if (object == nullptr) {
        return;
    }
    if (fakeIsBlock(object)) {
        _Block_release(object);
        return;
    }
    if (!fakeIsImmortal(object)) {
        Ledger::release(object);
    }
}

FakeObject* objc_autorelease(FakeObject* object) {
    if (object == nullptr || (!fakeIsBlock(object) && fakeIsImmortal(object))) {
        return object;
    }
    if (pools == 0) {
        ++withoutPool;
        return object;
    }
    autoreleased.push_back(object);
    return object;
}

void* objc_autoreleasePoolPush() {
    ++pools;
    return reinterpret_cast<void*>(autoreleased.size() + 1);
}

void objc_autoreleasePoolPop(void* pool) {
    const std::size_t kept = reinterpret_cast<std::size_t>(pool) - 1;
    while (autoreleased.size() > kept) {
        FakeObject* const object = autoreleased.back();
        autoreleased.pop_back();
        objc_release(object);
    }
    --pools;
}

FakeObject* objc_autoreleaseReturnValue(FakeObject* object) {
    return objc_autorelease(object);
}

FakeObject* objc_retainAutorelease(FakeObject* object) {
    return objc_autorelease(objc_retain(object));
}

FakeObject* objc_retainAutoreleaseReturnValue(FakeObject* object) {
    return objc_retainAutorelease(object);
}

FakeObject* objc_retainAutoreleasedReturnValue(FakeObject* object) {
    return objc_retain(object);
}

FakeObject* objc_unsafeClaimAutoreleasedReturnValue(FakeObject* object) {
    return object;
}

FakeObject* objc_retainBlock(FakeObject* block) {
    return static_cast<FakeObject*>(_Block_copy(block));
}

void objc_storeStrong(FakeObject** place, FakeObject* object) {
    FakeObject* const before = *place;
    *place = objc_retain(object);
    objc_release(before);
}
}
