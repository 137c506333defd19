// Recognises a remembered desk whose displays have come back on other connectors and so under other
// identifiers: equal monitors without serial numbers, or monitors without identity data.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::SameDesk {

using Displays = std::vector<DisplayInfo>;

enum class Likeness : std::uint8_t {
    different,
    // Displays of the same names and sizes in the same arrangement, some with another identity: a monitor on
    // another kind of port, or another monitor of the same model.
    possible,
    // The same, and only displays without a usable identity of their own have changed theirs.
    certain,
};

[[nodiscard]] Likeness likeness(const Displays& a, const Displays& b);

struct Remembered {
    std::string configID;
    // The desk's name.
    std::string name;
    // It is the only desk that is certainly the same.
    bool isCertain = false;

    bool operator==(const Remembered&) const = default;
};

// The desk in `layouts`, other than `configID` itself, that `displays` are or may be. Of several, the one
// saved last.
[[nodiscard]] std::optional<Remembered> find(const std::vector<Layout>& layouts, const std::string& configID,
                                             const Displays& displays);

} // namespace vantrel::SameDesk
