#include "VantrelCore/windows/NearTitle.h"

#include "VantrelCore/text/Unicode.h"

#include <algorithm>

namespace vantrel {

NearTitle::NearTitle(std::string_view title) : m_text(Unicode::lowercased(title)) {
    const std::vector<std::size_t> ends = Unicode::characterEnds(m_text, decisive);
    m_length = ends.size();
    for (std::size_t count = shortest; count <= m_length; ++count) {
        m_ends[count - shortest] = ends[count - 1];
    }
}

NearTitleIndex::NearTitleIndex(std::size_t positionCount)
    : m_beginning{TitleBuckets(positionCount), TitleBuckets(positionCount), TitleBuckets(positionCount)},
      m_whole{TitleBuckets(positionCount), TitleBuckets(positionCount)} {}

void NearTitleIndex::add(const NearTitle& title, std::size_t position) {
    for (std::size_t count = NearTitle::shortest; count <= title.length(); ++count) {
        m_beginning[count - NearTitle::shortest].add(title.beginning(count), position);
    }
    if (title.length() >= NearTitle::shortest && title.length() < NearTitle::decisive) {
        m_whole[title.length() - NearTitle::shortest].add(title.beginning(title.length()), position);
    }
}

std::size_t NearTitleIndex::firstFree(const NearTitle& title, const std::vector<bool>& isTaken) {
    if (title.length() < NearTitle::shortest) {
        return TitleBuckets::none;
    }
    // Live titles at least as long as this one (any length of ten or more counts as ten) ...
    std::size_t best =
        m_beginning[title.length() - NearTitle::shortest].firstFree(title.beginning(title.length()), isTaken);
    // ... and shorter ones that are a prefix of this one. `none` is the largest position.
    for (std::size_t count = NearTitle::shortest; count < title.length(); ++count) {
        best =
            std::min(best, m_whole[count - NearTitle::shortest].firstFree(title.beginning(count), isTaken));
    }
    return best;
}

} // namespace vantrel
