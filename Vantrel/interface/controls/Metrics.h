// Lengths that scale with the font. They are given for a font of 13 pixels.
#pragma once

#include <QFont>
#include <QFontInfo>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace vantrel::Metrics {

inline constexpr double usualFontHeight = 13;

[[nodiscard]] inline int points(const QFont& font, double length) {
    return static_cast<int>(std::lround(length * QFontInfo(font).pixelSize() / usualFontHeight));
}

[[nodiscard]] inline int points(const QWidget& widget, double length) {
    return points(widget.font(), length);
}

[[nodiscard]] inline QFont scaled(QFont font, double factor, QFont::Weight weight) {
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(QFontInfo(font).pixelSize() * factor))));
    font.setWeight(weight);
    return font;
}

} // namespace vantrel::Metrics
