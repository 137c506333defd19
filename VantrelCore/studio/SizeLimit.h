// What an application's known sizes mean for a box of the scene editor, in numbers and in words.
#pragma once

#include "VantrelCore/model/AppSizeBehavior.h"

#include <string>

namespace vantrel::SizeLimit {

// The smallest size that the application accepts; zero if unknown.
[[nodiscard]] Size smallest(const AppSizeBehavior::Classification& behavior);
// What the application makes of a requested size.
[[nodiscard]] Size accepted(const AppSizeBehavior::Classification& behavior, Size wanted);

// For people: why the application does not take this size; empty if it does.
[[nodiscard]] std::string problem(const std::string& appName, const AppSizeBehavior::Classification& behavior,
                                  Size wanted);
// For people: what is known, whatever size is wanted; empty if every size is accepted.
[[nodiscard]] std::string fact(const std::string& appName, const AppSizeBehavior::Classification& behavior);

} // namespace vantrel::SizeLimit
