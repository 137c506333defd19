#include "tests/macos/fake/ObjectLedger.h"

#include "tests/macos/fake/CoreFoundationObjects.h"

#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <set>

namespace vantrel::fake {

ObjectiveCLayer objectiveC;

namespace {

struct Entry {
    std::atomic<long> references = 1;
    void (*destroy)(void* object) = nullptr;
};
constexpr std::size_t entryBytes = 16;
static_assert(sizeof(Entry) <= entryBytes);

Entry& entry(const void* object) {
    return *reinterpret_cast<Entry*>(const_cast<char*>(static_cast<const char*>(object)) - entryBytes);
}

std::mutex& ledgerLock() {
    static auto* const lock = new std::mutex;
    return *lock;
}

std::set<const void*>& live() {
    static auto* const objects = new std::set<const void*>;
    return *objects;
}

} // namespace

void fail(const char* function, const std::string& complaint) {
    std::fprintf(stderr, "fake platform: %s: %s\n", function, complaint.c_str());
    std::abort();
}

namespace Ledger {

void* allocate(std::size_t bytes, void (*destroy)(void* object)) {
    auto* const memory = static_cast<char*>(std::calloc(1, entryBytes + bytes));
    void* const object = memory + entryBytes;
    new (memory) Entry{.references = 1, .destroy = destroy};
    const std::scoped_lock lock(ledgerLock());
    live().insert(object);
    return object;
}

void retain(const void* object) {
    if (entry(object).references++ <= 0) {
        fail("CFRetain", "the object has no references left");
    }
}

void release(const void* object) {
    const long left = --entry(object).references;
    if (left < 0) {
        fail("CFRelease", "the object has no references left");
    }
    if (left > 0) {
        return;
    }
    entry(object).destroy(const_cast<void*>(object));
    {
        const std::scoped_lock lock(ledgerLock());
        live().erase(object);
    }
    // From here on, AddressSanitizer detects every use.
    std::free(static_cast<void*>(&entry(object)));
}

long references(const void* object) {
    return entry(object).references;
}

std::size_t liveObjects() {
    const std::scoped_lock lock(ledgerLock());
    return live().size();
}

long liveReferences() {
    const std::scoped_lock lock(ledgerLock());
    long sum = 0;
    for (const void* const object : live()) {
        sum += references(object);
    }
    return sum;
}

std::string describeLive() {
    const std::scoped_lock lock(ledgerLock());
    std::string lines;
    for (const void* const object : live()) {
        lines += "  kind " + std::to_string(static_cast<std::uint32_t>(kindOf(object))) + ", references " +
                 std::to_string(references(object));
        if (kindOf(object) == Kind::string) {
            lines += ", \"" + textOf(static_cast<CFStringRef>(object)) + "\"";
        }
        lines += "\n";
    }
    return lines;
}

} // namespace Ledger

} // namespace vantrel::fake
