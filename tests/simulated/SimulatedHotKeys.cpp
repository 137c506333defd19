#include "tests/simulated/SimulatedHotKeys.h"

#include <algorithm>

namespace vantrel::simulated {

class SimulatedHotKeys::Held final : public HotKey {
public:
    explicit Held(SimulatedHotKeys& owner) : m_owner(owner) {}

    ~Held() override { m_owner.m_held.erase(this); }

    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

private:
    SimulatedHotKeys& m_owner;
};

std::unique_ptr<HotKey> SimulatedHotKeys::add(std::uint32_t id, HotKeyCombo combo,
                                              std::function<void()> action) {
    const bool isHeld =
        std::ranges::any_of(m_held, [&](const auto& held) { return held.second.first == combo; });
    if (isHeld || std::ranges::find(m_elsewhere, combo) != m_elsewhere.end()) {
        return nullptr;
    }
    m_ids.push_back(id);
    auto held = std::make_unique<Held>(*this);
    m_held.emplace(held.get(), std::pair(combo, std::move(action)));
    return held;
}

bool SimulatedHotKeys::press(HotKeyCombo combo) {
    const auto found =
        std::ranges::find_if(m_held, [&](const auto& held) { return held.second.first == combo; });
    if (found == m_held.end()) {
        return false;
    }
    const auto action = found->second.second;
    action();
    return true;
}

void SimulatedHotKeys::changeKeyboard() {
    for (auto& [held, registered] : m_held) {
        registered.first = {.keyCode = -1, .modifiers = 0};
    }
    if (m_changeHandler) {
        m_changeHandler();
    }
}

} // namespace vantrel::simulated
