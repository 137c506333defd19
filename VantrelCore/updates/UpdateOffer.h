// Decides when to check for updates and what to offer, and words the offer.
#pragma once

#include "VantrelCore/model/Date.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel::UpdateOffer {

// Whether it is time to check again. A last check in the future means that the clock was wrong.
[[nodiscard]] bool isDue(const std::optional<Date>& lastCheck, Date now);

// In bytes. Longer than any version anyone would publish.
inline constexpr std::size_t maxVersionLength = 64;

// The version to offer; none if it is not newer than the running one, or if either is invalid or too long.
[[nodiscard]] std::optional<std::string> latestAvailable(const std::string& latest, std::string_view current);

// "Update available · v1.2".
[[nodiscard]] std::string caption(std::string_view version);

} // namespace vantrel::UpdateOffer
