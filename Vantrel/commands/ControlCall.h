// A call of one method: whoever asked is answered once, whatever becomes of it.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "VantrelCore/diagnostics/ErrorBoundary.h"

#include <string>
#include <vector>

namespace vantrel::ControlCall {

// Calls the method. Where it throws, `log` is told; then, and where it lets go of its reply without an
// answer, the answer is ControlNames::failed. Further answers are dropped.
void run(const ControlMethod& method, const std::vector<std::string>& arguments, ControlReply reply,
         const ErrorBoundary::Log& log);

} // namespace vantrel::ControlCall
