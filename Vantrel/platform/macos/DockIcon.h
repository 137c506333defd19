// Whether the program has an icon in the Dock: what the system calls its activation policy.
#pragma once

namespace vantrel::DockIcon {

// On the main thread. Without one the program lives in the menu bar alone.
void setShown(bool isShown);

} // namespace vantrel::DockIcon
