// Whether this process may read and move the windows of other applications.
#pragma once

#include "VantrelCore/ports/Desk.h"

namespace vantrel::AXPermission {

[[nodiscard]] inline bool isGranted(Desk& desk) {
    return desk.isTrusted();
}

// Makes the system show its permission dialog if permission is missing, and returns the state it reports.
inline bool prompt(Desk& desk) {
    return desk.prompt();
}

} // namespace vantrel::AXPermission
