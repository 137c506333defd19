// Owning handles for libical objects.
#pragma once

#include <libical/ical.h>
#include <memory>

namespace vantrel {

struct IcalDeleter {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }

    void operator()(icalrecur_iterator* iterator) const { icalrecur_iterator_free(iterator); }

    // Also frees parsed components that were not handed out.
    void operator()(icalparser* parser) const { icalparser_free(parser); }
};

using IcalComponent = std::unique_ptr<icalcomponent, IcalDeleter>;
using IcalParser = std::unique_ptr<icalparser, IcalDeleter>;
using IcalIterator = std::unique_ptr<icalrecur_iterator, IcalDeleter>;

} // namespace vantrel
