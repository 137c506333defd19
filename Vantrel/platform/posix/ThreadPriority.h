// Sets thread priorities.
#pragma once

#include "VantrelCore/ports/Background.h"

namespace vantrel::posix {

// Sets the calling thread's priority. Call once per thread. Utility work and writing yield to anything that
// the user waits for.
void takePriority(WorkPriority priority);

} // namespace vantrel::posix
