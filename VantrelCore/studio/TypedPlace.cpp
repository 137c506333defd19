#include "VantrelCore/studio/TypedPlace.h"

#include "VantrelCore/displays/DisplayGeometry.h"
#include "VantrelCore/studio/SizeLimit.h"
#include "VantrelCore/text/Translation.h"

#include <cmath>

namespace vantrel {

TypedPlace TypedPlace::of(const Rect& typed, const DisplayInfo& display, const std::string& appName,
                          const AppSizeBehavior::Classification& limits) {
    const Rect usable = display.usableFrame();
    const Size accepted = SizeLimit::accepted(limits, typed.size);
    TypedPlace place{DisplayGeometry::clamp({typed.origin, accepted}, usable),
                     SizeLimit::problem(appName, limits, typed.size)};
    if (place.problem.empty() && (accepted.width > usable.width() || accepted.height > usable.height())) {
        place.problem = trf("{} has room for {} × {}.", display.name, std::lround(usable.width()),
                            std::lround(usable.height()));
    } else if (place.problem.empty() && place.frame.origin != typed.origin) {
        place.problem = trf("There it would not be whole on {}.", display.name);
    }
    return place;
}

} // namespace vantrel
