// Scales a picture to fill a display.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

namespace vantrel {

// Returns an image of `size`, with overhanging edges cropped. Returns a null image if Qt cannot read `file`
// or it takes more memory than Qt allows.
[[nodiscard]] QImage fittedImage(const QByteArray& file, QSize size);

} // namespace vantrel
