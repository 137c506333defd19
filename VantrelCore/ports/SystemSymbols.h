// Port: the symbols that the system has for all programs.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <optional>
#include <string>

namespace vantrel {

// Used on the main thread.
class SystemSymbols {
public:
    struct Picture {
        // Only its opacity counts.
        std::string png;
        // In units of the size of the font that it goes with.
        Size size;
    };

    SystemSymbols() = default;
    SystemSymbols(const SystemSymbols&) = delete;
    SystemSymbols& operator=(const SystemSymbols&) = delete;
    virtual ~SystemSymbols() = default;

    // By the system's name, such as "paintbrush"; none if it has no such symbol.
    [[nodiscard]] virtual std::optional<Picture> picture(const std::string& name) = 0;
};

} // namespace vantrel
