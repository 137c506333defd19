// A picture file as it fills a display.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

namespace vantrel {

// As large as `size`, cut at the edges that are too long. Null when `file` holds no picture that Qt can read,
// or one that takes more memory than Qt allows.
[[nodiscard]] QImage fittedImage(const QByteArray& file, QSize size);

} // namespace vantrel
