// System calls on the files of one folder that fail as told. The calls are intercepted where the C library is
// called, in a program that is linked with this or has it preloaded (LD_PRELOAD).
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace vantrel::faults {

struct Fault {
    // 0 is the first call after arm().
    std::size_t firstCall = std::numeric_limits<std::size_t>::max();
    // How many calls fail, one after the other.
    std::size_t count = 1;
    // The errno. 0: calls that read or write do half of what they are asked to, the others succeed.
    int error = 0;
};

// A program with this preloaded is armed by its environment: VANTREL_FAULT="FOLDER:FIRST:COUNT:ERROR".

// From now on the calls on files in and below `folder` are counted, and fail as `fault` says. Sleeping ends
// at once, so that what waits between attempts costs no time. Not for several threads at once.
void arm(const std::string& folder, const Fault& fault);

// Nothing fails any more. Returns the names of the calls since arm(), "rename" say.
std::vector<std::string> disarm();

} // namespace vantrel::faults
