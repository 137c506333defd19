// Text in a fixed buffer. It never allocates, so signal handlers may write to it.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace vantrel {

template <std::size_t capacity>
class FixedText {
public:
    // Appends all of `text`, or nothing and returns false if it does not fit.
    bool append(std::string_view text) {
        if (text.size() > capacity - m_size) {
            return false;
        }
        std::ranges::copy(text, m_text.begin() + static_cast<std::ptrdiff_t>(m_size));
        m_size += text.size();
        m_text[m_size] = '\0';
        return true;
    }

    // Removes everything beyond `size`.
    void truncate(std::size_t size) {
        m_size = std::min(m_size, size);
        m_text[m_size] = '\0';
    }

    [[nodiscard]] std::size_t size() const { return m_size; }

    [[nodiscard]] std::string_view view() const { return {m_text.data(), m_size}; }

    // Null-terminated.
    [[nodiscard]] const char* data() const { return m_text.data(); }

private:
    std::array<char, capacity + 1> m_text{};
    std::size_t m_size = 0;
};

} // namespace vantrel
