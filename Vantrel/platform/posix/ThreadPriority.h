// How urgently the system runs a thread.
#pragma once

#include "VantrelCore/ports/Background.h"

namespace vantrel::posix {

// For the calling thread, once: utility work gives way to everything that somebody waits for.
void takePriority(WorkPriority priority);

} // namespace vantrel::posix
