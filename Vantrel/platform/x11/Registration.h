// Undoes something when destroyed or reset.
#pragma once

#include <functional>
#include <utility>

namespace vantrel {

class Registration {
public:
    Registration() = default;

    explicit Registration(std::function<void()> undo) : m_undo(std::move(undo)) {}

    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

    Registration(Registration&& other) noexcept : m_undo(std::exchange(other.m_undo, nullptr)) {}

    Registration& operator=(Registration&& other) noexcept {
        if (this != &other) {
            reset();
            m_undo = std::exchange(other.m_undo, nullptr);
        }
        return *this;
    }

    ~Registration() { reset(); }

    void reset() {
        if (const auto undo = std::exchange(m_undo, nullptr)) {
            undo();
        }
    }

private:
    std::function<void()> m_undo;
};

} // namespace vantrel
