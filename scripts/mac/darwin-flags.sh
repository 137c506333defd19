# shellcheck shell=bash
# Flags with which clang takes our sources as a Mac's, without a Mac's headers: our framework headers stand in for
# the platform's, this system's C and C++ libraries for the others. Sourced by the scripts beside it, which run in
# the repository's root.

# Quirks of this system's headers under a foreign target: they believe in the processor they came with, macOS
# has no 128-bit floats, and clang predefines one of their macros there.
darwin_headers=build/macos/darwin-headers
mkdir -p "$darwin_headers/bits"
cat >"$darwin_headers/bits/floatn.h" <<'HEADER'
#pragma once
#define __HAVE_FLOAT128 0
#define __HAVE_DISTINCT_FLOAT128 0
#define __HAVE_FLOAT64X 0
#define __HAVE_FLOAT64X_LONG_DOUBLE 0
#include <bits/floatn-common.h>
HEADER

# shellcheck disable=SC2034 # read by whoever sources this
darwin_flags=(
    -std=c++23 -nostdinc++ -U__nonnull -D_GNU_SOURCE -D__x86_64__ '-D__builtin_ia32_pause()='
    -I. -isystem tests/macos/frameworks -isystem "$darwin_headers"
    -isystem /usr/include/c++/12 -isystem /usr/include/x86_64-linux-gnu/c++/12 -isystem /usr/include/c++/12/backward
    -isystem /usr/include/x86_64-linux-gnu -isystem /usr/include
)

# The language flags of a source.
darwin_language() {
    case $1 in
    *.mm) echo "-x objective-c++ -fobjc-arc -fblocks" ;;
    *) echo "-x c++" ;;
    esac
}

# Calls a function with each source, on all processors. Returns how many calls failed.
darwin_each() {
    local work=$1 source failed=0 running=0
    shift
    for source in "$@"; do
        if [ $running = "$(nproc)" ]; then
            wait -n || failed=$((failed + 1))
            running=$((running - 1))
        fi
        "$work" "$source" &
        running=$((running + 1))
    done
    for (( ; running > 0; running--)); do
        wait -n || failed=$((failed + 1))
    done
    return $failed
}
