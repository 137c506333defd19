// A moment on the wall clock (UTC), and its ISO 8601 form in whole seconds, for example 2025-03-01T08:15:00Z.
// Fractions of a second are dropped.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel {

using Date = std::chrono::sys_time<std::chrono::microseconds>;

// `later` minus `earlier` in seconds, negative when the clock went back.
[[nodiscard]] double secondsBetween(Date earlier, Date later);

[[nodiscard]] Date dateAfter(Date date, double seconds);

[[nodiscard]] std::string iso8601Text(Date date);

// Reads YYYY-MM-DDThh:mm:ss with an optional fraction (dropped), and "Z" or a numeric offset. None when the
// text is malformed or not a real date and time.
[[nodiscard]] std::optional<Date> dateFromIso8601(std::string_view text);

} // namespace vantrel
