#include "Vantrel/controller/PinPause.h"
#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>

namespace vantrel {

std::string PinPause::text() const {
    return cause == Cause::gaveUp ? trf("paused until the layout changes: {}", reason)
                                  : trf("paused until the displays change: {}", reason);
}

} // namespace vantrel
