// SystemSymbols from SF Symbols.
#pragma once

#include "VantrelCore/ports/SystemSymbols.h"

namespace vantrel {

class MacSystemSymbols final : public SystemSymbols {
public:
    [[nodiscard]] std::optional<Picture> picture(const std::string& name) override;
};

} // namespace vantrel
