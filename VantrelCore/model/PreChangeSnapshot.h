// Decides whether a recent capture can represent the desk just before a change.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <optional>
#include <string>

namespace vantrel::PreChangeSnapshot {

struct Candidate {
    Layout layout;
    Date takenAt;

    bool operator==(const Candidate&) const = default;
};

// True when there is a candidate of the current desk with at least one window, taken no more than `maxAge`
// seconds before `now`.
[[nodiscard]] bool shouldAdopt(const std::optional<Candidate>& candidate, Date now,
                               const std::string& currentConfigID, double maxAge);

} // namespace vantrel::PreChangeSnapshot
