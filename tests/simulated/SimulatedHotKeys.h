// A keyboard whose combinations a test presses, and of which another program may hold some.
#pragma once

#include "VantrelCore/ports/HotKeys.h"

#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace vantrel::simulated {

class SimulatedHotKeys final : public HotKeys {
public:
    [[nodiscard]] std::unique_ptr<HotKey> add(std::uint32_t id, HotKeyCombo combo,
                                              std::function<void()> action) override;
    void setChangeHandler(std::function<void()> handler) override { m_changeHandler = std::move(handler); }

    // Whether anybody wants to be told of another keyboard.
    [[nodiscard]] bool isWatched() const { return static_cast<bool>(m_changeHandler); }
    // True when somebody here had registered it.
    bool press(HotKeyCombo combo);
    void holdElsewhere(HotKeyCombo combo) { m_elsewhere.push_back(combo); }
    void releaseElsewhere() { m_elsewhere.clear(); }
    // The user switches to another keyboard: nothing registered works any longer.
    void changeKeyboard();
    // In the order of registration, those that are gone included.
    [[nodiscard]] const std::vector<std::uint32_t>& ids() const { return m_ids; }

private:
    class Held;

    std::map<Held*, std::pair<HotKeyCombo, std::function<void()>>> m_held;
    std::vector<HotKeyCombo> m_elsewhere;
    std::vector<std::uint32_t> m_ids;
    std::function<void()> m_changeHandler;
};

} // namespace vantrel::simulated
