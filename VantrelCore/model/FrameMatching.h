// Pairs remembered windows with live ones by application and frame alone: the one rule behind every
// question of the kind "has anything moved?".
#pragma once

#include "VantrelCore/model/WindowRecord.h"

#include <cstddef>
#include <vector>

namespace vantrel::FrameMatching {

// How many windows of `saved` have no counterpart in `current`. For each saved window in order, the first
// window of the same application whose minimum x, minimum y, width and height each differ by at most
// `tolerance` points (inclusive) vouches for it, and for no other.
[[nodiscard]] std::size_t windowsWithoutCounterpart(const std::vector<WindowRecord>& saved,
                                                    const std::vector<WindowRecord>& current,
                                                    double tolerance);

} // namespace vantrel::FrameMatching
