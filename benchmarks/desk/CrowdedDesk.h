// A private desk with many windows of many applications, and two arrangements of them that have no window's
// position or size in common.
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
    // Returns when every window is on screen. Throws std::runtime_error with a sentence.
    explicit CrowdedDesk(const Crowd& crowd);

    [[nodiscard]] tools::PrivateDesk& desk() { return m_desk; }

    [[nodiscard]] const std::string& display() const { return m_desk.display(); }

    [[nodiscard]] const std::array<Arrangement, 2>& arrangements() const { return m_arrangements; }

    // How many windows stand exactly where the arrangement says, as the harness reads them from the server.
    [[nodiscard]] std::size_t arrived(const Arrangement& arrangement);

private:
    tools::PrivateDesk m_desk;
    std::array<Arrangement, 2> m_arrangements;
};

} // namespace vantrel::bench
