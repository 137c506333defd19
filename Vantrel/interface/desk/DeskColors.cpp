#include "Vantrel/interface/desk/DeskColors.h"

#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

constexpr double legible = 4.5;

double channel(double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF()) +
           0.0722 * channel(color.blueF());
}

// Moves the colour towards `goal` until it is legible on `ground`.
QColor legibleOn(const QColor& color, const QColor& ground, const QColor& goal) {
    constexpr int steps = 20;
    QColor result = color;
    for (int step = 1; step <= steps && DeskColors::contrast(result, ground) < legible; ++step) {
        result = DeskColors::mix(color, goal, static_cast<double>(step) / steps);
    }
    return result;
}

} // namespace

QColor DeskColors::mix(const QColor& a, const QColor& b, double share) {
    const auto between = [share](int from, int to) {
        return std::clamp(static_cast<int>(std::lround(from + (to - from) * share)), 0, 255);
    };
    return {between(a.red(), b.red()), between(a.green(), b.green()), between(a.blue(), b.blue())};
}

double DeskColors::contrast(const QColor& a, const QColor& b) {
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

QColor DeskColors::translucent(QColor color, double alpha) {
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

DeskColors DeskColors::of(const QPalette& palette) {
    DeskColors colors;
    colors.window = palette.color(QPalette::Window);
    colors.base = palette.color(QPalette::Base);
    colors.text = palette.color(QPalette::WindowText);
    colors.isDark = luminance(colors.window) < luminance(colors.text);
    const auto either = [&](double light, double dark) { return colors.isDark ? dark : light; };

    // Legible on the ground under the pointer too, which is the least favourable.
    colors.hover = translucent(colors.text, either(0.055, 0.07));
    colors.ground = translucent(colors.text, either(0.045, 0.055));
    colors.hairline = translucent(colors.text, either(0.085, 0.095));
    const QColor worst = mix(colors.window, colors.text, either(0.055, 0.07));
    colors.secondText = legibleOn(mix(colors.text, colors.window, either(0.27, 0.35)), worst, colors.text);
    colors.accent =
        legibleOn(palette.color(QPalette::Highlight), colors.window, colors.isDark ? Qt::white : Qt::black);
    colors.selection = translucent(palette.color(QPalette::Highlight), either(0.13, 0.22));
    colors.panel =
        colors.isDark ? mix(colors.window, Qt::white, 0.075) : mix(colors.window, colors.text, 0.075);
    colors.rim = mix(colors.window, colors.text, either(0.46, 0.38));
    colors.warning = colors.isDark ? QColor("#f0b35a") : QColor("#8a5300");
    colors.error = colors.isDark ? QColor("#ff8f86") : QColor("#b3261e");
    colors.good = colors.isDark ? QColor("#74cf97") : QColor("#1c6e3c");
    return colors;
}

QColor DeskColors::strip(const QColor& dominant) const {
    const float saturation = std::min(dominant.hslSaturationF(), isDark ? 0.34F : 0.46F);
    return QColor::fromHslF(std::max(0.0F, dominant.hslHueF()), saturation, isDark ? 0.46F : 0.62F);
}

QColor DeskColors::body(const QColor& strip) const {
    return mix(base, strip, isDark ? 0.24 : 0.15);
}

QColor DeskColors::edge(const QColor& strip) const {
    return isDark ? mix(strip, Qt::white, 0.2) : mix(strip, text, 0.36);
}

} // namespace vantrel
