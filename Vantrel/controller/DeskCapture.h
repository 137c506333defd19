// Captures the live desk in the background and turns it into window records.
#pragma once

#include "VantrelCore/model/Layout.h"
#include "VantrelCore/ports/Accessibility.h"
#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/windows/CurrentWindow.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vantrel::DeskCapture {

// The scope of a capture. Values only, so that a worker can own it.
struct Scope {
    std::vector<DisplayInfo> displays;
    // This program itself.
    std::optional<std::string> excludedBundleID;
    std::set<std::string> ignoredBundleIDs;
};

struct Picture {
    std::vector<WindowRecord> windows;
    Date takenAt;
};

[[nodiscard]] std::vector<CurrentWindow> windows(Accessibility& accessibility, const Scope& scope);

[[nodiscard]] Picture picture(Accessibility& accessibility, Clock& clock, const Scope& scope);

[[nodiscard]] std::vector<WindowRecord> records(const std::vector<CurrentWindow>& windows);

} // namespace vantrel::DeskCapture
