// Ends a fuzz target with the name of the law that an input broke.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace vantrel::fuzz {

inline void require(bool holds, const char* law) {
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", law);
        std::abort();
    }
}

} // namespace vantrel::fuzz
