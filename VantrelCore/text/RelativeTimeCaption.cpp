#include "VantrelCore/text/RelativeTimeCaption.h"
#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>

namespace vantrel::RelativeTimeCaption {

std::string caption(Date from, Date now) {
    using namespace std::chrono;
    const auto age = now - from;
    if (age < minutes{1}) {
        return tr("just now");
    }
    if (age < hours{1}) {
        return trf("{}m ago", duration_cast<minutes>(age).count());
    }
    if (age < days{1}) {
        return trf("{}h ago", duration_cast<hours>(age).count());
    }
    return trn("{}d ago", "{}d ago", duration_cast<days>(age).count());
}

} // namespace vantrel::RelativeTimeCaption
