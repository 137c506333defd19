// A picture of the private desk's whole screen.
#pragma once

#include "tests/live/desk/DeskConnection.h"

#include <filesystem>

namespace vantrel::live {

// Writes a PNG file. Throws std::runtime_error with a sentence when it cannot.
void saveScreenshot(DeskConnection& connection, const std::filesystem::path& file);

} // namespace vantrel::live
