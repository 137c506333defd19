// The program's presence on the Mac: its Dock icon (the activation policy) and its activation.
#pragma once

#include <string>

namespace vantrel::ProgramPresence {

// Shows or hides the Dock icon; without it, the program is only in the menu bar. Call all functions here on
// the main thread.
void setShown(bool isShown);

// Brings the program to the front.
void activate();

// Opens a page in the user's browser. Returns false if the URL is not valid.
bool openPage(const std::string& url);

} // namespace vantrel::ProgramPresence
