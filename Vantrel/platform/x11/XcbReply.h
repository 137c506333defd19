// Owns what xcb allocates with malloc: replies, events and errors.
#pragma once

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>
#include <xcb/xcbext.h>

namespace vantrel {

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};

// Null if the request failed, for example because the window vanished or the connection is lost.
template <typename T>
using XcbReply = std::unique_ptr<T, FreeDeleter>;

template <typename T>
[[nodiscard]] XcbReply<T> ownReply(T* reply) {
    return XcbReply<T>(reply);
}

// Returns the reply to a request. Waits only if it has not been read yet.
//
// xcb 1.15 wakes another thread after every wait, even if the reply was ready. So, for requests sent
// together, take the last reply first.
template <typename T>
[[nodiscard]] XcbReply<T> takeReply(xcb_connection_t* xcb, unsigned int sequence) {
    void* reply = nullptr;
    xcb_generic_error_t* error = nullptr;
    if (xcb_poll_for_reply(xcb, sequence, &reply, &error) == 0) {
        reply = xcb_wait_for_reply(xcb, sequence, &error);
    }
    std::free(error);
    return XcbReply<T>(static_cast<T*>(reply));
}

} // namespace vantrel
