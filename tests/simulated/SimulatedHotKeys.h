// A keyboard on which tests press hot keys. Another program may hold some of them.
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

    // Whether a change handler is set.
    [[nodiscard]] bool isWatched() const { return static_cast<bool>(m_changeHandler); }
    // Returns true if the combination is registered.
    bool press(HotKeyCombo combo);
    void holdElsewhere(HotKeyCombo combo) { m_elsewhere.push_back(combo); }
    void releaseElsewhere() { m_elsewhere.clear(); }
    // The user switches keyboards: nothing registered works any more.
    void changeKeyboard();
    // In order of registration, including removed ones.
    [[nodiscard]] const std::vector<std::uint32_t>& ids() const { return m_ids; }

private:
    class Held;

    std::map<Held*, std::pair<HotKeyCombo, std::function<void()>>> m_held;
    std::vector<HotKeyCombo> m_elsewhere;
    std::vector<std::uint32_t> m_ids;
    std::function<void()> m_changeHandler;
};

} // namespace vantrel::simulated
