#include "VantrelCore/windows/RestoreReport.h"

#include <algorithm>

namespace vantrel {

namespace {

std::size_t countOf(const std::vector<RestoreReport::Item>& items, RestoreReport::Kind kind) {
    return static_cast<std::size_t>(std::ranges::count_if(
        items, [kind](const RestoreReport::Item& item) { return item.outcome.kind == kind; }));
}

} // namespace

std::size_t RestoreReport::restoredCount() const {
    return countOf(items, Kind::restored) + countOf(items, Kind::retried);
}

std::size_t RestoreReport::failedCount() const {
    return countOf(items, Kind::failed);
}

std::size_t RestoreReport::skippedCount() const {
    return countOf(items, Kind::skipped);
}

} // namespace vantrel
