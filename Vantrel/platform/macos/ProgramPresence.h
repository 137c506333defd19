// The program among the others on the Mac: its icon in the Dock, what the system calls its activation policy,
// and its way to the front.
#pragma once

#include <string>

namespace vantrel::ProgramPresence {

// On the main thread, as everything here. Without one the program lives in the menu bar alone.
void setShown(bool isShown);

// Brings the program in front of all others.
void activate();

// Opens a page in the user's browser. False when the address is none.
bool openPage(const std::string& url);

} // namespace vantrel::ProgramPresence
