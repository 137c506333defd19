#include "Vantrel/platform/posix/FrameSymbols.h"

#include "VantrelCore/diagnostics/CrashReportText.h"

#include <execinfo.h>
#include <fcntl.h>
#include <unistd.h>

namespace vantrel::posix {

void FrameSymbols::prepare() {
    if (m_pipe[0] >= 0 || ::pipe(m_pipe.data()) != 0) {
        return;
    }
    for (const int end : m_pipe) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
}

std::string_view FrameSymbols::line(void* frame) {
    if (m_pipe[0] < 0) {
        return {};
    }
    ::backtrace_symbols_fd(&frame, 1, m_pipe[1]);
    const auto count = ::read(m_pipe[0], m_line.data(), m_line.size());
    if (count <= 0) {
        return {};
    }
    // What did not fit must not begin the next line.
    std::array<char, 256> rest{};
    while (::read(m_pipe[0], rest.data(), rest.size()) > 0) {
    }
    std::string_view words(m_line.data(), static_cast<std::size_t>(count));
    if (words.ends_with('\n')) {
        words.remove_suffix(1);
    }
    return CrashReportText::withoutFolders(words);
}

} // namespace vantrel::posix
