// The most recent restore, summarised for one menu line. Kept in memory only.
#pragma once

#include "VantrelCore/model/Date.h"

#include <cstdint>
#include <string>

namespace vantrel {

struct LastAction {
    enum class Kind { restore };

    Kind kind = Kind::restore;
    std::int64_t windowCount = 0;
    Date date;
    std::string reason;

    bool operator==(const LastAction&) const = default;
};

} // namespace vantrel
