// Ownership of what xcb allocates with malloc: replies, events and errors.
#pragma once

#include <cstdlib>
#include <memory>

namespace vantrel {

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};

// Null where the request failed: the window vanished, the connection is lost.
template <typename T>
using XcbReply = std::unique_ptr<T, FreeDeleter>;

template <typename T>
[[nodiscard]] XcbReply<T> ownReply(T* reply) {
    return XcbReply<T>(reply);
}

} // namespace vantrel
