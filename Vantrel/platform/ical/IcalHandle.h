// Owners of what libical allocates.
#pragma once

#include <libical/ical.h>
#include <memory>

namespace vantrel {

struct IcalDeleter {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }

    void operator()(icalrecur_iterator* iterator) const { icalrecur_iterator_free(iterator); }
};

using IcalComponent = std::unique_ptr<icalcomponent, IcalDeleter>;
using IcalIterator = std::unique_ptr<icalrecur_iterator, IcalDeleter>;

} // namespace vantrel
