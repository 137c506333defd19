#include "VantrelCore/text/LastActionFormatting.h"

#include "VantrelCore/text/CountedNoun.h"
#include "VantrelCore/text/RelativeTimeCaption.h"

#include <fmt/format.h>

namespace vantrel::LastActionFormatting {

std::string line(const LastAction& action, Date now) {
    return fmt::format("Restored {} · {}", countedNoun(action.windowCount, "window"),
                       RelativeTimeCaption::caption(action.date, now));
}

} // namespace vantrel::LastActionFormatting
