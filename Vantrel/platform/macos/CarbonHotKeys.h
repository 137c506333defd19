// Hot keys through the Carbon Event Manager.
#pragma once

#include "VantrelCore/ports/HotKeys.h"

namespace vantrel {

class CarbonHotKeys final : public HotKeys {
public:
    [[nodiscard]] std::unique_ptr<HotKey> add(std::uint32_t id, HotKeyCombo combo,
                                              std::function<void()> action) override;

    // Key codes denote positions on the keyboard here, so layout changes do not matter.
    void setChangeHandler(std::function<void()> /*handler*/) override {}
};

} // namespace vantrel
