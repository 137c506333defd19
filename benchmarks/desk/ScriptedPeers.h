// What a user's script would do with standard tools: whole processes, including the arithmetic.
#pragma once

#include "benchmarks/desk/Arrangement.h"

#include <cstdint>
#include <string>

namespace vantrel::bench {

enum class Waiting : std::uint8_t { none, untilSeen };

class ScriptedPeers {
public:
    explicit ScriptedPeers(std::string display) : m_display(std::move(display)) {}

    // One wmctrl process per window.
    void wmctrlLoop(const Arrangement& arrangement) const;

    // One xdotool process for all windows; with `untilSeen` it waits for each change (--sync).
    void xdotoolChain(const Arrangement& arrangement, Waiting waiting) const;

private:
    std::string m_display;
};

} // namespace vantrel::bench
