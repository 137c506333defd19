// The signals of a crash. A thread that blocks them crashes without a report.
#pragma once

#include <array>
#include <csignal>

namespace vantrel::posix {

inline constexpr std::array crashSignals{SIGILL, SIGTRAP, SIGABRT, SIGFPE, SIGBUS, SIGSEGV};

} // namespace vantrel::posix
