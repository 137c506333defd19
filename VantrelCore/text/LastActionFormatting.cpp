#include "VantrelCore/text/LastActionFormatting.h"

#include "VantrelCore/text/RelativeTimeCaption.h"
#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>

namespace vantrel::LastActionFormatting {

std::string line(const LastAction& action, Date now) {
    return trn("Restored {0} window · {1}", "Restored {0} windows · {1}", action.windowCount,
               RelativeTimeCaption::caption(action.date, now));
}

} // namespace vantrel::LastActionFormatting
