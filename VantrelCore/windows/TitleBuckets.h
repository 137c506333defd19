// Live windows of one application by title or title prefix, each bucket in front-to-back order. Finds the
// front-most free window without rescanning taken ones.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vantrel {

class TitleBuckets {
public:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    // For positions 0 to `positionCount` - 1.
    explicit TitleBuckets(std::size_t positionCount) : m_next(positionCount, none) {}

    // Positions are added from the last to the first, each once. The key is borrowed.
    void add(std::string_view key, std::size_t position) {
        const auto [bucket, isNew] = m_first.try_emplace(key, position);
        if (!isNew) {
            m_next[position] = bucket->second;
            bucket->second = position;
        }
    }

    // The smallest free position in the key's bucket, or `none`. Taken positions must stay taken: taken heads
    // are dropped, so the total cost of all calls is linear in the positions added.
    std::size_t firstFree(std::string_view key, const std::vector<bool>& isTaken) {
        const auto bucket = m_first.find(key);
        if (bucket == m_first.end()) {
            return none;
        }
        auto& position = bucket->second;
        while (position != none && isTaken[position]) {
            position = m_next[position];
        }
        return position;
    }

private:
    std::unordered_map<std::string_view, std::size_t> m_first;
    std::vector<std::size_t> m_next;
};

} // namespace vantrel
