// The signals that a broken program is ended by. A thread that blocks them ends without a crash report.
#pragma once

#include <array>
#include <csignal>

namespace vantrel::posix {

inline constexpr std::array crashSignals{SIGILL, SIGTRAP, SIGABRT, SIGFPE, SIGBUS, SIGSEGV};

} // namespace vantrel::posix
