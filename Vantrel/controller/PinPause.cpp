#include "Vantrel/controller/PinPause.h"

#include <fmt/format.h>

namespace vantrel {

std::string PinPause::text() const {
    return fmt::format("paused until the {}: {}",
                       cause == Cause::gaveUp ? "layout changes" : "displays change", reason);
}

} // namespace vantrel
