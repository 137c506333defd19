#include "tools/desk/ReadyPipe.h"

#include "tools/desk/Waiting.h"

#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <unistd.h>

namespace vantrel::tools {

ReadyPipe::ReadyPipe() {
    if (pipe2(m_ends.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("A pipe cannot be created.");
    }
}

ReadyPipe::~ReadyPipe() {
    close(m_ends[0]);
    closeWriteEnd();
}

std::optional<std::string> ReadyPipe::line() {
    closeWriteEnd();
    std::string text;
    pollfd readable{.fd = m_ends[0], .events = POLLIN, .revents = 0};
    while (!text.ends_with('\n') && poll(&readable, 1, static_cast<int>(generousSeconds * 1000)) > 0) {
        std::array<char, 256> chunk{};
        const ssize_t count = read(m_ends[0], chunk.data(), chunk.size());
        if (count <= 0) {
            return std::nullopt;
        }
        text.append(chunk.data(), static_cast<std::size_t>(count));
    }
    return text.ends_with('\n') ? std::optional(text.substr(0, text.size() - 1)) : std::nullopt;
}

void ReadyPipe::closeWriteEnd() {
    if (m_ends[1] >= 0) {
        close(m_ends[1]);
        m_ends[1] = -1;
    }
}

} // namespace vantrel::tools
