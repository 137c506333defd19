// The blocks runtime: blocks move to the heap when they are copied, and hold the objects they capture.
#include "tests/macos/fake/objc/Runtime.h"

#include <atomic>
#include <cstdlib>
#include <cstring>

namespace {

struct Descriptor {
    std::uint64_t reserved;
    std::uint64_t size;
    // Only there when the block has `hasCopyAndDispose`.
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

// A variable marked __block.
struct Shared {
    void* isa;
    Shared* forwarding;
    std::atomic<std::int32_t> flags;
    std::uint32_t size;
    void (*keep)(void*, const void*);
    void (*dispose)(const void*);
};

enum : std::int32_t {
    oneReference = 2,
    referenceMask = 0xfffe,
    onHeap = 1 << 24,
    hasCopyAndDispose = 1 << 25,
    isGlobal = 1 << 28,
};

// What a captured value is.
enum : int { aBlock = 7, aShared = 8, byCaller = 128 };

Block* asBlock(const void* block) {
    return static_cast<Block*>(const_cast<void*>(block));
}

Shared* keepShared(Shared* shared) {
    if ((shared->flags & onHeap) != 0) {
        shared->flags += oneReference;
        return shared;
    }
    auto* const copy = static_cast<Shared*>(std::malloc(shared->size));
    std::memcpy(static_cast<void*>(copy), shared, shared->size);
    // One for the block, one for the frame that it was taken from.
    copy->flags = shared->flags | onHeap | (2 * oneReference);
    copy->forwarding = copy;
    shared->forwarding = copy;
    if ((shared->flags & hasCopyAndDispose) != 0) {
        shared->keep(copy, shared);
    }
    return copy;
}

void dropShared(Shared* shared) {
    if ((shared->flags & onHeap) != 0 && ((shared->flags -= oneReference) & referenceMask) == 0) {
        if ((shared->flags & hasCopyAndDispose) != 0) {
            shared->dispose(shared);
        }
        std::free(shared);
    }
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
    if ((kind & byCaller) != 0) {
        *place = value;
    } else if ((kind & aShared) != 0) {
        *place = keepShared(static_cast<Shared*>(const_cast<void*>(value))->forwarding);
    } else if ((kind & aBlock) == aBlock) {
        *place = _Block_copy(value);
    } else {
        *place = objc_retain(static_cast<FakeObject*>(const_cast<void*>(value)));
    }
}

void _Block_object_dispose(const void* value, int kind) {
    if ((kind & byCaller) != 0) {
        return;
    }
    if ((kind & aShared) != 0) {
        dropShared(static_cast<Shared*>(const_cast<void*>(value))->forwarding);
    } else if ((kind & aBlock) == aBlock) {
        _Block_release(value);
    } else {
        objc_release(static_cast<FakeObject*>(const_cast<void*>(value)));
    }
}
}
