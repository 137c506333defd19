// What assistive technology sees of a drawing: a list of its windows in reading order.
#pragma once

namespace vantrel::DeskAccessible {

// Makes every AccessibleDrawing accessible, and every scroll area safely so; further calls do nothing.
void install();

} // namespace vantrel::DeskAccessible
