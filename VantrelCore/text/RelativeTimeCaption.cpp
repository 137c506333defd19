#include "VantrelCore/text/RelativeTimeCaption.h"

#include <fmt/format.h>

namespace vantrel::RelativeTimeCaption {

std::string caption(Date from, Date now) {
    using namespace std::chrono;
    const auto age = now - from;
    if (age < minutes{1}) {
        return "just now";
    }
    if (age < hours{1}) {
        return fmt::format("{}m ago", duration_cast<minutes>(age).count());
    }
    if (age < days{1}) {
        return fmt::format("{}h ago", duration_cast<hours>(age).count());
    }
    return fmt::format("{}d ago", duration_cast<days>(age).count());
}

} // namespace vantrel::RelativeTimeCaption
