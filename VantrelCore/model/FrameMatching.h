// Pairs remembered windows with live ones by application and frame alone: the rule behind every check whether
// anything has moved.
#pragma once

#include "VantrelCore/model/WindowRecord.h"

#include <cstddef>
#include <vector>

namespace vantrel::FrameMatching {

// How many windows of `saved` have no counterpart in `current`. Each saved window, in order, claims the first
// free window of the same application whose minimum x, minimum y, width and height each differ by at most
// `tolerance` points (inclusive).
[[nodiscard]] std::size_t windowsWithoutCounterpart(const std::vector<WindowRecord>& saved,
                                                    const std::vector<WindowRecord>& current,
                                                    double tolerance);

} // namespace vantrel::FrameMatching
