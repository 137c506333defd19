// What the user has deleted since the program started, so that it can be put back.
#pragma once

#include <cstdint>
#include <deque>
#include <expected>
#include <functional>
#include <optional>
#include <string>

namespace vantrel {

struct DeletionInfo {
    std::uint64_t id = 0;
    // In words, as in a sentence: "the scene "Work"".
    std::string what;

    bool operator==(const DeletionInfo&) const = default;
};

class RecentDeletions {
public:
    static constexpr std::size_t limit = 20;

    using ID = std::uint64_t;
    // The error is a sentence for the user.
    using PutBack = std::function<std::expected<void, std::string>()>;

    // `what` as in DeletionInfo. Of more than `limit` deletions the oldest is forgotten.
    void add(std::string what, PutBack putBack);

    // The newest deletion that has not been undone.
    [[nodiscard]] std::optional<ID> newest() const;
    [[nodiscard]] std::optional<DeletionInfo> newestInfo() const;

    // Called after something was added or put back.
    std::function<void()> onChanged = [] {};

    // Undoes the deletion with this ID, or the newest one. Returns what was put back. After a failure it can
    // be tried again.
    std::expected<std::string, std::string> putBack(std::optional<ID> id = {});

private:
    struct Deletion {
        DeletionInfo info;
        PutBack putBack;
    };

    ID m_lastID = 0;
    // Oldest first.
    std::deque<Deletion> m_deletions;
};

} // namespace vantrel
