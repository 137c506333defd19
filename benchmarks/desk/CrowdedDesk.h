// A private desk with many windows of many applications, and two arrangements in which every window differs
// in position and size.
#pragma once

#include "benchmarks/desk/Arrangement.h"
#include "tools/desk/PrivateDesk.h"

#include <array>
#include <cstddef>
#include <string>

namespace vantrel::bench {

struct Crowd {
    std::size_t applications = 1;
    std::size_t windowsPerApplication = 1;

    [[nodiscard]] std::size_t windows() const { return applications * windowsPerApplication; }
};

class CrowdedDesk {
public:
    // Returns when every window is on screen. Throws std::runtime_error with a readable sentence.
    explicit CrowdedDesk(const Crowd& crowd);

    [[nodiscard]] tools::PrivateDesk& desk() { return m_desk; }

    [[nodiscard]] const std::string& display() const { return m_desk.display(); }

    [[nodiscard]] const std::array<Arrangement, 2>& arrangements() const { return m_arrangements; }

    // How many windows are exactly where the arrangement puts them, as the harness reads it from the server.
    [[nodiscard]] std::size_t arrived(const Arrangement& arrangement);

private:
    tools::PrivateDesk m_desk;
    std::array<Arrangement, 2> m_arrangements;
};

} // namespace vantrel::bench
