// Colours that a palette lacks, mixed from its roles; legible in light and dark palettes.
#pragma once

#include <QColor>
#include <QPalette>

namespace vantrel {

struct DeskColors {
    bool isDark = false;
    QColor window;
    QColor base;
    QColor text;
    // For what is less important; at least 4.5:1 on window and base.
    QColor secondText;
    // The highlight, lightened until it is legible on a dark window.
    QColor accent;
    // A display's body and rim.
    QColor panel;
    QColor rim;
    // Fine lines between groups, and the ground of messages and of a row under the pointer.
    QColor hairline;
    QColor ground;
    QColor hover;
    QColor selection;
    QColor warning;
    QColor error;
    QColor good;

    [[nodiscard]] static DeskColors of(const QPalette& palette);

    // A window's title strip, from the dominant colour of its application's icon; and its body and edge.
    [[nodiscard]] QColor strip(const QColor& dominant) const;
    [[nodiscard]] QColor body(const QColor& strip) const;
    [[nodiscard]] QColor edge(const QColor& strip) const;

    // From `a` towards `b`.
    [[nodiscard]] static QColor mix(const QColor& a, const QColor& b, double share);
    // As in WCAG 2.
    [[nodiscard]] static double contrast(const QColor& a, const QColor& b);
    [[nodiscard]] static QColor translucent(QColor color, double alpha);
};

} // namespace vantrel
