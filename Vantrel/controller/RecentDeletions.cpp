#include "Vantrel/controller/RecentDeletions.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <utility>

namespace vantrel {

void RecentDeletions::add(std::string what, PutBack putBack) {
    m_deletions.push_back({{++m_lastID, std::move(what)}, std::move(putBack)});
    if (m_deletions.size() > limit) {
        m_deletions.pop_front();
    }
    onChanged();
}

std::optional<RecentDeletions::ID> RecentDeletions::newest() const {
    return m_deletions.empty() ? std::nullopt : std::optional(m_deletions.back().info.id);
}

std::optional<DeletionInfo> RecentDeletions::newestInfo() const {
    return m_deletions.empty() ? std::nullopt : std::optional(m_deletions.back().info);
}

std::expected<std::string, std::string> RecentDeletions::putBack(std::optional<ID> id) {
    const auto isWanted = [wanted = id ? id : newest()](const Deletion& each) {
        return each.info.id == wanted;
    };
    const auto found = std::ranges::find_if(m_deletions, isWanted);
    if (found == m_deletions.end()) {
        return std::unexpected(tr("Nothing was deleted since Vantrel started that could be put back."));
    }
    // A copy, as putting back may lead to other deletions.
    Deletion deletion = *found;
    if (const auto result = deletion.putBack(); !result) {
        return std::unexpected(result.error());
    }
    std::erase_if(m_deletions, [&](const Deletion& each) { return each.info.id == deletion.info.id; });
    onChanged();
    return std::move(deletion.info.what);
}

} // namespace vantrel
