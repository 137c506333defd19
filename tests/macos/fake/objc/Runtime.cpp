#include "tests/macos/fake/objc/Runtime.h"

#include "tests/macos/fake/ObjectLedger.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

// The compiler's layout of classes.
extern "C" {
struct FakeObject {
    FakeClass* isa;
};

using Selector = const char*;
using Implementation = void (*)();

struct Method {
    Selector selector;
    const char* types;
    Implementation implementation;
};

struct MethodList {
    std::uint32_t entrySize;
    std::uint32_t count;
    Method first;
};

struct ClassFacts {
    std::uint32_t flags;
    std::uint32_t start;
    std::uint32_t size;
    std::uint32_t padding;
    const void* instanceLayout;
    const char* name;
    MethodList* methods;
};

struct FakeClass {
    FakeClass* isa;
    FakeClass* super;
    void* cache;
    void* table;
    ClassFacts* facts;
};

struct SuperCall {
    FakeObject* self;
    FakeClass* implementer;
};

extern FakeClass* __start_objc_classlist[];
extern FakeClass* __stop_objc_classlist[];
extern Selector __start_objc_selrefs[];
extern Selector __stop_objc_selrefs[];

extern char __CFConstantStringClassReference[];
char _objc_empty_cache[16];
char _objc_empty_vtable[16];

void objc_msgSend();
}

namespace vantrel::fake::objc {

namespace {

struct Tables {
    std::recursive_mutex mutex;
    std::set<std::string> selectors;
    std::map<std::string, FakeClass*> classes;
    std::set<std::string> hiddenClasses;
    std::unordered_map<FakeClass*, std::unordered_map<Selector, Implementation>> methods;
    std::set<std::pair<FakeClass*, Selector>> hiddenMethods;
};

// Never destroyed: objects may outlive our static variables.
Tables& tables() {
    static auto* const only = new Tables;
    return *only;
}

Selector intern(const char* name) {
    return tables().selectors.insert(name).first->c_str();
}

void add(FakeClass* to, MethodList* list) {
    for (std::uint32_t i = 0; list != nullptr && i < list->count; ++i) {
        const auto* const method = reinterpret_cast<Method*>(reinterpret_cast<char*>(&list->first) +
                                                             std::size_t{i} * (list->entrySize & 0xfffcU));
        tables().methods[to][intern(method->selector)] = method->implementation;
    }
}

// Reads the compiler's tables before main() and before constructors that send messages.
__attribute__((constructor(101))) void readClasses() {
    Tables& t = tables();
    const std::scoped_lock lock(t.mutex);
    for (Selector* selector = __start_objc_selrefs; selector != __stop_objc_selrefs; ++selector) {
        *selector = intern(*selector);
    }
    for (FakeClass** kind = __start_objc_classlist; kind != __stop_objc_classlist; ++kind) {
        t.classes[(*kind)->facts->name] = *kind;
        add(*kind, (*kind)->facts->methods);
        add((*kind)->isa, (*kind)->isa->facts->methods);
    }
    FakeClass* const text = t.classes.at("NSString");
    auto* const literal = reinterpret_cast<FakeClass*>(__CFConstantStringClassReference);
    std::memcpy(static_cast<void*>(literal), text, sizeof(FakeClass));
    t.methods[literal] = t.methods[text];
}

bool isClass(const FakeObject* object) {
    return (object->isa->facts->flags & 1U) != 0;
}

bool isLiteral(const FakeObject* object) {
    return static_cast<const void*>(object->isa) == __CFConstantStringClassReference;
}

FakeClass* classOf(const FakeObject* object) {
    return fakeIsBlock(object) ? tables().classes.at("NSObject") : object->isa;
}

Implementation find(FakeClass* kind, Selector selector) {
    Tables& t = tables();
    for (; kind != nullptr; kind = kind->super) {
        if (t.hiddenMethods.contains({kind, selector})) {
            return nullptr;
        }
        if (const auto table = t.methods.find(kind); table != t.methods.end()) {
            if (const auto method = table->second.find(selector); method != table->second.end()) {
                return method->second;
            }
        }
    }
    return nullptr;
}

[[noreturn]] void failToFind(const FakeClass* kind, Selector selector) {
    fail("objc_msgSend", std::string("no method [") + kind->facts->name + " " + selector + "]");
}

// Calls the class's own implementation, for constructors and destructors of C++ members.
void callOwn(FakeClass* kind, FakeObject* object, const char* selector) {
    Tables& t = tables();
    const auto table = t.methods.find(kind);
    if (table == t.methods.end()) {
        return;
    }
    if (const auto method = table->second.find(intern(selector)); method != table->second.end()) {
        reinterpret_cast<void (*)(FakeObject*, Selector)>(method->second)(object, nullptr);
    }
}

template <typename Result, typename Receiver>
Result send(Receiver* receiver, const char* selector) {
    Selector interned = nullptr;
    {
        const std::scoped_lock lock(tables().mutex);
        interned = intern(selector);
    }
    return reinterpret_cast<Result (*)(Receiver*, Selector)>(objc_msgSend)(receiver, interned);
}

// A class compiled without its superclass's members in view records too small a size.
std::size_t instanceSize(const FakeClass* kind) {
    std::size_t size = 0;
    for (; kind != nullptr; kind = kind->super) {
        const bool hasMembers = kind->facts->size > kind->facts->start;
        if (hasMembers && kind->super != nullptr && kind->facts->start < kind->super->facts->size) {
            fail("objc_alloc", std::string("members of ") + kind->facts->name + " overlap its superclass's");
        }
        size = std::max<std::size_t>(size, kind->facts->size);
    }
    return size;
}

} // namespace

const char* className(const void* object) {
    return classOf(static_cast<const FakeObject*>(object))->facts->name;
}

void setClassHidden(const char* name, bool isHidden) {
    const std::scoped_lock lock(tables().mutex);
    if (isHidden) {
        tables().hiddenClasses.insert(name);
    } else {
        tables().hiddenClasses.erase(name);
    }
}

void setMethodHidden(const char* className, const char* selector, bool isHidden) {
    const std::scoped_lock lock(tables().mutex);
    const std::pair<FakeClass*, Selector> method{tables().classes.at(className), intern(selector)};
    if (isHidden) {
        tables().hiddenMethods.insert(method);
    } else {
        tables().hiddenMethods.erase(method);
    }
}

} // namespace vantrel::fake::objc

using namespace vantrel::fake;
using namespace vantrel::fake::objc;

extern "C" {

Implementation fakeLookUp(FakeObject* object, Selector selector) {
    const std::scoped_lock lock(tables().mutex);
    if (const auto implementation = find(classOf(object), selector)) {
        return implementation;
    }
    failToFind(classOf(object), selector);
}

Implementation fakeLookUpSuper(SuperCall* call, Selector selector) {
    const std::scoped_lock lock(tables().mutex);
    if (const auto implementation = find(call->implementer->super, selector)) {
        return implementation;
    }
    failToFind(call->implementer->super, selector);
}

// Saves every argument register across the look-up, then jumps to the implementation.
#define KEEP                                                                                                 \
    "push %rbp\n mov %rsp,%rbp\n sub $208,%rsp\n"                                                            \
    "mov %rdi,(%rsp)\n mov %rsi,8(%rsp)\n mov %rdx,16(%rsp)\n mov %rcx,24(%rsp)\n"                           \
    "mov %r8,32(%rsp)\n mov %r9,40(%rsp)\n mov %rax,48(%rsp)\n"                                              \
    "movups %xmm0,64(%rsp)\n movups %xmm1,80(%rsp)\n movups %xmm2,96(%rsp)\n movups %xmm3,112(%rsp)\n"       \
    "movups %xmm4,128(%rsp)\n movups %xmm5,144(%rsp)\n movups %xmm6,160(%rsp)\n movups %xmm7,176(%rsp)\n"
#define GIVE_BACK                                                                                            \
    "mov %rax,%r11\n"                                                                                        \
    "mov (%rsp),%rdi\n mov 8(%rsp),%rsi\n mov 16(%rsp),%rdx\n mov 24(%rsp),%rcx\n"                           \
    "mov 32(%rsp),%r8\n mov 40(%rsp),%r9\n mov 48(%rsp),%rax\n"                                              \
    "movups 64(%rsp),%xmm0\n movups 80(%rsp),%xmm1\n movups 96(%rsp),%xmm2\n movups 112(%rsp),%xmm3\n"       \
    "movups 128(%rsp),%xmm4\n movups 144(%rsp),%xmm5\n movups 160(%rsp),%xmm6\n movups 176(%rsp),%xmm7\n"    \
    "leave\n"
asm(".text\n"
    ".globl objc_msgSend, objc_msgSend_stret, objc_msgSendSuper2, objc_msgSendSuper2_stret\n"
    "objc_msgSend:\n test %rdi,%rdi\n je 1f\n" KEEP "call fakeLookUp\n" GIVE_BACK "jmp *%r11\n"
    "1: xor %eax,%eax\n xor %edx,%edx\n xorps %xmm0,%xmm0\n xorps %xmm1,%xmm1\n ret\n"
    // The result's address is the first argument.
    "objc_msgSend_stret:\n test %rsi,%rsi\n je 1f\n" KEEP
    "mov %rsi,%rdi\n mov %rdx,%rsi\n call fakeLookUp\n" GIVE_BACK "jmp *%r11\n"
    "1: mov %rdi,%rax\n ret\n"
    "objc_msgSendSuper2:\n" KEEP "call fakeLookUpSuper\n" GIVE_BACK "mov (%rdi),%rdi\n jmp *%r11\n"
    "objc_msgSendSuper2_stret:\n" KEEP "mov %rsi,%rdi\n mov %rdx,%rsi\n call fakeLookUpSuper\n" GIVE_BACK
    "mov (%rsi),%rsi\n jmp *%r11\n");
#undef KEEP
#undef GIVE_BACK

FakeClass* objc_getClass(const char* name) {
    Tables& t = tables();
    const std::scoped_lock lock(t.mutex);
    const auto found = t.classes.find(name);
    return found == t.classes.end() || t.hiddenClasses.contains(name) ? nullptr : found->second;
}

FakeClass* object_getClass(FakeObject* object) {
    return object != nullptr ? classOf(object) : nullptr;
}

Selector sel_registerName(const char* name) {
    const std::scoped_lock lock(tables().mutex);
    return intern(name);
}

bool fakeIsBlock(const FakeObject* object) {
    const void* const isa = object->isa;
    return isa == _NSConcreteStackBlock || isa == _NSConcreteMallocBlock || isa == _NSConcreteGlobalBlock;
}

bool fakeIsImmortal(const FakeObject* object) {
    return isLiteral(object) || isClass(object);
}

bool fakeIsKind(FakeObject* object, FakeClass* kind) {
    if (isLiteral(object) && kind == tables().classes.at("NSString")) {
        return true;
    }
    for (const FakeClass* own = classOf(object); own != nullptr; own = own->super) {
        if (own == kind) {
            return true;
        }
    }
    return false;
}

bool fakeResponds(FakeObject* object, Selector selector) {
    const std::scoped_lock lock(tables().mutex);
    return find(classOf(object), selector) != nullptr;
}

FakeObject* fakeAllocate(FakeClass* kind) {
    // Releasing the last reference deallocates the object.
    void* const memory = Ledger::allocate(
        instanceSize(kind), [](void* object) { send<void>(static_cast<FakeObject*>(object), "dealloc"); });
    auto* const object = static_cast<FakeObject*>(memory);
    object->isa = kind;
    std::vector<FakeClass*> line;
    for (FakeClass* own = kind; own != nullptr; own = own->super) {
        line.insert(line.begin(), own);
    }
    const std::scoped_lock lock(tables().mutex);
    for (FakeClass* const own : line) {
        callOwn(own, object, ".cxx_construct");
    }
    return object;
}

void fakeDeallocate(FakeObject* object) {
    for (FakeClass* own = object->isa; own != nullptr; own = own->super) {
        callOwn(own, object, ".cxx_destruct");
    }
}

FakeObject* objc_alloc(FakeClass* kind) {
    return send<FakeObject*>(kind, "alloc");
}

FakeObject* objc_alloc_init(FakeClass* kind) {
    return send<FakeObject*>(objc_alloc(kind), "init");
}

FakeObject* objc_opt_new(FakeClass* kind) {
    return objc_alloc_init(kind);
}

FakeClass* objc_opt_class(FakeObject* object) {
    return object != nullptr && isClass(object) ? reinterpret_cast<FakeClass*>(object)
                                                : object_getClass(object);
}

FakeObject* objc_opt_self(FakeObject* object) {
    return object;
}

bool objc_opt_isKindOfClass(FakeObject* object, FakeClass* kind) {
    return object != nullptr && fakeIsKind(object, kind);
}

bool objc_opt_respondsToSelector(FakeObject* object, Selector selector) {
    return object != nullptr && fakeResponds(object, selector);
}

void objc_enumerationMutation(FakeObject* /*collection*/) {
    fail("objc_enumerationMutation", "a collection was changed during enumeration");
}
}
