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
    // Discard what did not fit, so that it does not begin the next line.
    std::array<char, 256> rest{};
    while (::read(m_pipe[0], rest.data(), rest.size()) > 0) {
    }
    std::string_view text(m_line.data(), static_cast<std::size_t>(count));
    if (text.ends_with('\n')) {
        text.remove_suffix(1);
    }
    return CrashReportText::withoutFolders(text);
}

} // namespace vantrel::posix
