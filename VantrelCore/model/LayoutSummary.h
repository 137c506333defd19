// A layout's windows as a per-application tally for the user interface.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vantrel::LayoutSummary {

struct AppEntry {
    std::string bundleID;
    std::string appName;
    std::int64_t count = 0;

    bool operator==(const AppEntry&) const = default;
};

// One entry per application, named after its first window. Most windows first; equal counts by name in byte
// order, then by first appearance.
[[nodiscard]] std::vector<AppEntry> apps(const std::vector<WindowRecord>& windows);
[[nodiscard]] std::vector<AppEntry> apps(const Layout& layout);

} // namespace vantrel::LayoutSummary
