// Makes system calls on the files of one folder fail. The calls of the C library are intercepted in a program
// that links this or preloads it (LD_PRELOAD).
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace vantrel::faults {

struct Fault {
    // 0 is the first call after arm().
    std::size_t firstCall = std::numeric_limits<std::size_t>::max();
    // How many calls in a row fail.
    std::size_t count = 1;
    // The errno. 0: calls that read or write do half of the work, the others succeed.
    int error = 0;
};

// The environment arms a program that preloads this: VANTREL_FAULT="FOLDER:FIRST:COUNT:ERROR".

// Counts the calls on files in and below `folder` from now on, and makes them fail as `fault` says. Sleeping
// returns at once, so that waiting between attempts takes no time. For one thread at a time.
void arm(const std::string& folder, const Fault& fault);

// Ends the faults. Returns the names of the calls since arm(), such as "rename".
std::vector<std::string> disarm();

} // namespace vantrel::faults
