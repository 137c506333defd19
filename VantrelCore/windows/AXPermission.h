// Whether this process may read and move the windows of other applications.
#pragma once

#include "VantrelCore/ports/Accessibility.h"

namespace vantrel::AXPermission {

[[nodiscard]] inline bool isGranted(Accessibility& accessibility) {
    return accessibility.isTrusted();
}

// Makes the system show its permission dialog if permission is missing, and returns the state it reports.
inline bool prompt(Accessibility& accessibility) {
    return accessibility.prompt();
}

} // namespace vantrel::AXPermission
