# shellcheck shell=bash
# Flags that make clang compile our sources as on a Mac, without a Mac's headers: our
# framework headers replace the platform's, this system's C and C++ libraries the others. Sourced by the other
# scripts in this folder, which run in the repository's root.

# Works around this system's headers under a foreign target: they assume the native processor, macOS has no
# 128-bit floats, and clang predefines one of their macros there.
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

# Prints the language flags for a source.
darwin_language() {
    case $1 in
    *.mm) echo "-x objective-c++ -fobjc-arc -fblocks" ;;
    *) echo "-x c++" ;;
    esac
}

# Calls a function with each source, on all processors. Returns the number of failed calls.
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
