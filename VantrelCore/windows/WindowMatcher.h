// Pairs saved windows with live ones by application, title and stacking position alone. A pure function: the
// same inputs give the same result, independent of hash order.
#pragma once

#include "VantrelCore/model/WindowRecord.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vantrel {

// The matcher's input. The strings are borrowed from the record and must outlive the call.
struct WindowIdentity {
    std::string_view bundleID;
    std::string_view title;
    std::int64_t zOrder = 0;

    WindowIdentity() = default;

    WindowIdentity(std::string_view bundle, std::string_view windowTitle, std::int64_t order)
        : bundleID(bundle), title(windowTitle), zOrder(order) {}

    explicit WindowIdentity(const WindowRecord& record)
        : bundleID(record.bundleID), title(record.title), zOrder(record.zOrder) {}
};

// By what a saved window was paired with a live one.
enum class Pairing : std::uint8_t {
    // The identity was known, as in an undo.
    known,
    sameTitle,
    nearTitle,
    // The place in the stack among the remaining windows of its application.
    order,
};

struct MatchResult {
    struct Pair {
        std::size_t saved = 0;
        std::size_t current = 0;
        Pairing by = Pairing::sameTitle;

        auto operator<=>(const Pair&) const = default;
    };

    // Ascending by `saved`.
    std::vector<Pair> pairs;
    // Ascending.
    std::vector<std::size_t> unmatchedSaved;
    std::vector<std::size_t> unmatchedCurrent;

    bool operator==(const MatchResult&) const = default;
};

namespace WindowMatcher {

// Every index of either list appears exactly once in the result.
[[nodiscard]] MatchResult match(const std::vector<WindowIdentity>& saved,
                                const std::vector<WindowIdentity>& current);

} // namespace WindowMatcher

} // namespace vantrel
