// Key combinations through the Carbon event manager.
#pragma once

#include "VantrelCore/ports/HotKeys.h"

namespace vantrel {

class CarbonHotKeys final : public HotKeys {
public:
    [[nodiscard]] std::unique_ptr<HotKey> add(std::uint32_t id, HotKeyCombo combo,
                                              std::function<void()> action) override;

    // A combination names a place on the keyboard here, which no change of the keyboard moves.
    void setChangeHandler(std::function<void()> /*handler*/) override {}
};

} // namespace vantrel
