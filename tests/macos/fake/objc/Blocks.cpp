// The blocks runtime: copying moves blocks to the heap, and blocks retain the objects that they capture.
#include "tests/macos/fake/objc/Runtime.h"

#include <atomic>
#include <cstdlib>
#include <cstring>

namespace {

struct Descriptor {
    std::uint64_t reserved;
    std::uint64_t size;
    // Present only if the block has `hasCopyAndDispose`.
    void (*copy)(void*, const void*);
    void (*dispose)(const void*);
};

struct Block {
    void* isa;
    std::atomic<std::int32_t> flags;
    std::int32_t reserved;
    void (*invoke)();
    Descriptor* descriptor;
};

enum : std::int32_t {
    oneReference = 2,
    referenceMask = 0xfffe,
    onHeap = 1 << 24,
    hasCopyAndDispose = 1 << 25,
    isGlobal = 1 << 28,
};

// The kind of a captured block; other captured values are objects.
constexpr int aBlock = 7;

Block* asBlock(const void* block) {
    return static_cast<Block*>(const_cast<void*>(block));
}

} // namespace

extern "C" {

void* _NSConcreteStackBlock[32];
void* _NSConcreteMallocBlock[32];
void* _NSConcreteGlobalBlock[32];

void* _Block_copy(const void* original) {
    Block* const block = asBlock(original);
    if (block == nullptr || (block->flags & isGlobal) != 0) {
        return block;
    }
    if ((block->flags & onHeap) != 0) {
        block->flags += oneReference;
        return block;
    }
    auto* const copy = static_cast<Block*>(std::malloc(block->descriptor->size));
    std::memcpy(static_cast<void*>(copy), block, block->descriptor->size);
    copy->flags = (block->flags & ~referenceMask) | onHeap | oneReference;
    copy->isa = _NSConcreteMallocBlock;
    if ((copy->flags & hasCopyAndDispose) != 0) {
        copy->descriptor->copy(copy, block);
    }
    return copy;
}

void _Block_release(const void* released) {
    Block* const block = asBlock(released);
    if (block == nullptr || (block->flags & isGlobal) != 0 || (block->flags & onHeap) == 0) {
        return;
    }
    if (((block->flags -= oneReference) & referenceMask) == 0) {
        if ((block->flags & hasCopyAndDispose) != 0) {
            block->descriptor->dispose(block);
        }
        std::free(block);
    }
}

void _Block_object_assign(void* destination, const void* value, int kind) {
    auto** const place = static_cast<const void**>(destination);
    if ((kind & aBlock) == aBlock) {
        *place = _Block_copy(value);
    } else {
        *place = objc_retain(static_cast<FakeObject*>(const_cast<void*>(value)));
    }
}

void _Block_object_dispose(const void* value, int kind) {
    if ((kind & aBlock) == aBlock) {
        _Block_release(value);
    } else {
        objc_release(static_cast<FakeObject*>(const_cast<void*>(value)));
    }
}
}
