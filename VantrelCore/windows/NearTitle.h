// A window title as the near match sees it: lower-cased, and only as long as it can matter.
//
// Two titles are near when, lower-cased, one begins with the other and the shorter has at least eight
// characters, or when they have at least ten first characters in common. Hence with ten or more characters
// on both sides only the first ten count, and a shorter title must have eight or nine and be the beginning
// of the other; the buckets below follow from that.
#pragma once

#include "VantrelCore/windows/TitleBuckets.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace vantrel {

class NearTitle {
public:
    static constexpr std::size_t shortest = 8;
    static constexpr std::size_t decisive = 10;

    explicit NearTitle(std::string_view title);

    // Characters, at most `decisive`.
    [[nodiscard]] std::size_t length() const { return m_length; }

    // The first `count` characters, for `count` from `shortest` to length().
    [[nodiscard]] std::string_view beginning(std::size_t count) const {
        return std::string_view(m_text).substr(0, m_ends[count - shortest]);
    }

private:
    std::string m_text;
    std::size_t m_length = 0;
    // Byte offsets of the ends of characters 8, 9 and 10, as far as there are that many.
    std::array<std::size_t, 3> m_ends{};
};

// The live titles of one application, for finding the front-most free one that is near a saved title.
class NearTitleIndex {
public:
    explicit NearTitleIndex(std::size_t positionCount);

    // From the last position to the first; `title` must outlive the index and stay where it is.
    void add(const NearTitle& title, std::size_t position);

    // The smallest position near `title` that is not taken, or TitleBuckets::none.
    std::size_t firstFree(const NearTitle& title, const std::vector<bool>& isTaken);

private:
    // By a beginning of 8, 9 or 10 characters: all titles that have it ...
    std::array<TitleBuckets, 3> m_beginning;
    // ... and by a whole title of 8 or 9.
    std::array<TitleBuckets, 2> m_whole;
};

} // namespace vantrel
