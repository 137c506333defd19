// A window title prepared for near matching: lower-cased, and only as much of it as matters.
//
// Two titles are near when, lower-cased, one is a prefix of the other and has at least eight characters, or
// when their first ten characters agree. So if both have ten or more characters, only the first ten count; a
// shorter title must have eight or nine and be a prefix of the other. The buckets below follow from that.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vantrel {

// Live windows of one application by title or title prefix, each bucket in front-to-back order. Finds the
// front-most free window without rescanning taken ones.
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

class NearTitle {
public:
    static constexpr std::size_t shortest = 8;
    static constexpr std::size_t decisive = 10;

    explicit NearTitle(std::string_view title);

    // In characters, at most `decisive`.
    [[nodiscard]] std::size_t length() const { return m_length; }

    // The first `count` characters, for `count` from `shortest` to length().
    [[nodiscard]] std::string_view beginning(std::size_t count) const {
        return std::string_view(m_text).substr(0, m_ends[count - shortest]);
    }

private:
    std::string m_text;
    std::size_t m_length = 0;
    // Byte offsets of the ends of characters 8, 9 and 10, where they exist.
    std::array<std::size_t, 3> m_ends{};
};

// The live titles of one application, to find the front-most free one near a saved title.
class NearTitleIndex {
public:
    explicit NearTitleIndex(std::size_t positionCount);

    // Call from the last position to the first. `title` must outlive the index at the same address.
    void add(const NearTitle& title, std::size_t position);

    // The smallest position near `title` that is not taken, or TitleBuckets::none.
    std::size_t firstFree(const NearTitle& title, const std::vector<bool>& isTaken);

private:
    // By a prefix of 8, 9 or 10 characters: all titles that start with it ...
    std::array<TitleBuckets, 3> m_beginning;
    // ... and by a whole title of 8 or 9.
    std::array<TitleBuckets, 2> m_whole;
};

} // namespace vantrel
