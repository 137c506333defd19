// Calls one method and guarantees exactly one reply to the caller.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "VantrelCore/diagnostics/ErrorBoundary.h"

#include <string>
#include <vector>

namespace vantrel::ControlCall {

// Calls the method. Exceptions are passed to `log`. If the method throws, or drops its reply callback without
// using it, the caller gets ControlNames::failed. Further replies are ignored.
void run(const ControlMethod& method, const std::vector<std::string>& arguments, ControlReply reply,
         const ErrorBoundary::Log& log);

} // namespace vantrel::ControlCall
