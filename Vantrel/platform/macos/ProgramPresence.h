// The program's presence on the Mac: its Dock icon (the activation policy) and its activation.
#pragma once

#include <cstdint>
#include <string>

namespace vantrel::ProgramPresence {

// Shows or hides the Dock icon; without it, the program is only in the menu bar. Call all functions here on
// the main thread.
void setShown(bool isShown);

// Brings the program to the front.
void activate();

// Shows a window of this program on every Space, also above full-screen windows. `view` is a native view, as
// Qt's winId().
void showOnEverySpace(std::uintptr_t view);

// Opens a page in the user's browser. Returns false if the URL is not valid.
bool openPage(const std::string& url);

// Opens the pane of System Settings where users allow programs to control windows.
void openAccessibilitySettings();

// Whether the user's settings permit animations.
[[nodiscard]] bool wantsMotion();

} // namespace vantrel::ProgramPresence
