#include "Vantrel/platform/posix/AlternateSignalStack.h"

#include <csignal>
#include <sys/mman.h>
#include <unistd.h>

namespace vantrel::posix {

namespace {

// Walking the stack takes a few kilobytes; saving the registers of a large processor takes up to eleven more.
constexpr std::size_t usableSize = 65536;

} // namespace

AlternateSignalStack::AlternateSignalStack() {
    stack_t present{};
    if (::sigaltstack(nullptr, &present) != 0 || (present.ss_flags & SS_DISABLE) == 0) {
        return;
    }
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    const std::size_t size = page + usableSize;
    void* const memory = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        return;
    }
    // A guard page: overflowing it ends the process instead of corrupting memory.
    ::mprotect(memory, page, PROT_NONE);
    stack_t stack{};
    stack.ss_sp = static_cast<std::byte*>(memory) + page;
    stack.ss_size = usableSize;
    if (::sigaltstack(&stack, nullptr) != 0) {
        ::munmap(memory, size);
        return;
    }
    m_memory = memory;
    m_size = size;
}

AlternateSignalStack::~AlternateSignalStack() {
    if (m_memory == nullptr) {
        return;
    }
    stack_t none{};
    none.ss_flags = SS_DISABLE;
    // Fails while a handler runs on the stack; then the memory must stay.
    if (::sigaltstack(&none, nullptr) == 0) {
        ::munmap(m_memory, m_size);
    }
}

} // namespace vantrel::posix
