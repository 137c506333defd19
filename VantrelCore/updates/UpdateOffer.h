// Decides when updates are looked for, what is offered, and how the offer reads.
#pragma once

#include "VantrelCore/model/Date.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel::UpdateOffer {

// Whether it is time to look again. A last check in the future is a clock's that was wrong.
[[nodiscard]] bool isDue(const std::optional<Date>& lastCheck, Date now);

// A version that is longer, in bytes, is none that anybody would publish.
inline constexpr std::size_t maxVersionLength = 64;

// The version to offer; none when the running one is as new, or either is no version or too long a one.
[[nodiscard]] std::optional<std::string> latestAvailable(const std::string& latest, std::string_view current);

// "Update available · v1.2".
[[nodiscard]] std::string caption(std::string_view version);

} // namespace vantrel::UpdateOffer
