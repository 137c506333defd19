// The desks that the pictures show.
#pragma once

#include "Vantrel/controller/PublishedState.h"
#include "Vantrel/interface/desk/DeskPicture.h"

#include <string>
#include <vector>

namespace vantrel::pictures::SampleDesks {

struct Placed {
    const char* app = "";
    const char* title = "";
    Rect frame;
};

[[nodiscard]] DisplayInfo display(const std::string& name, const Rect& frame, bool isBuiltin = false);
// A monitor with a laptop to its right.
[[nodiscard]] std::vector<DisplayInfo> usualDisplays();
// Front to back.
[[nodiscard]] std::vector<Placed> everyday();
[[nodiscard]] Layout layout(const std::string& name, const std::vector<DisplayInfo>& displays,
                            const std::vector<Placed>& windows);
[[nodiscard]] std::vector<DeskWindow> live(const std::vector<Placed>& windows);
[[nodiscard]] DeskPicture picture(const std::vector<DisplayInfo>& displays,
                                  const std::vector<Placed>& windows);

// What the controller publishes on the usual desk with four scenes, everything in its place.
[[nodiscard]] PublishedState state();
// The same with two windows somewhere else.
[[nodiscard]] PublishedState movedState();

} // namespace vantrel::pictures::SampleDesks
