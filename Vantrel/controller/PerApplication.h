// Processes windows with one worker per application, so that a hanging application delays no other.
#pragma once

#include "Vantrel/controller/RestoreFollowUp.h"
#include "VantrelCore/ports/Background.h"

#include <functional>

namespace vantrel::PerApplication {

// Calls `work` with the index of every window; the windows of one application run in order. Blocks until all
// are done.
void forEach(const std::vector<RestoreFollowUp::Moved>& windows, Background& background,
             const std::function<void(std::size_t index)>& work);

} // namespace vantrel::PerApplication
