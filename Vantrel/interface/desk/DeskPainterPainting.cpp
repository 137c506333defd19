#include "Vantrel/interface/desk/DeskPainter.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QPainter>
#include <QPainterPathStroker>

#include <algorithm>
#include <cmath>
#include <ranges>

namespace vantrel {

namespace {

using State = DeskPicture::Window::State;

constexpr double coveringOpacity = 0.4;

QRectF inset(const QRectF& rect, double by) {
    return rect.adjusted(by, by, -by, -by);
}

QRectF qt(const Rect& rect) {
    return {rect.minX(), rect.minY(), rect.width(), rect.height()};
}

// Lines at 45 degrees, 1.6 wide in every 6.
void hatch(QPainter& painter, const QRectF& area, double radius, const QColor& color) {
    constexpr double period = 6 * 1.41421356;
    painter.save();
    QPainterPath shape;
    shape.addRoundedRect(area, radius, radius);
    painter.setClipPath(shape, Qt::IntersectClip);
    painter.setPen(QPen(color, 1.6));
    const int lines = static_cast<int>(std::ceil((area.width() + area.height()) / period));
    for (int line = 0; line < lines; ++line) {
        const double x = area.left() - area.height() + line * period;
        painter.drawLine(QPointF(x, area.bottom()), QPointF(x + area.height(), area.top()));
    }
    painter.restore();
}

// Rounded above only.
QPainterPath stripShape(const QRectF& box, double height, double radius) {
    QPainterPath whole;
    whole.addRoundedRect(box, radius, radius);
    QPainterPath top;
    top.addRect(QRectF(box.left(), box.top(), box.width(), std::min(height, box.height())));
    return whole.intersected(top);
}

QPainterPath arrowHead(const QPainterPath& way) {
    constexpr double length = 5.5;
    constexpr double spread = 0.62;
    const QPointF end = way.currentPosition();
    const QPointF before = way.elementAt(2);
    const QPointF delta = end - QPointF(before.x(), before.y());
    const double size = std::max(1e-6, std::hypot(delta.x(), delta.y()));
    const QPointF along = delta / size * length;
    const QPointF across = QPointF(-along.y(), along.x()) * spread;
    QPainterPath head(end - along + across);
    head.lineTo(end);
    head.lineTo(end - along - across);
    return head;
}

} // namespace

QPainterPath DeskPainter::displayShape(std::size_t display) const {
    QPainterPath shape;
    shape.addRoundedRect(qt(m_geometry.regions()[display].frame), m_displayRadius, m_displayRadius);
    return shape;
}

void DeskPainter::paint(QPainter& painter, const Emphasis& emphasis) const {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform |
                           QPainter::TextAntialiasing);
    for (std::size_t i = 0; i < m_geometry.regions().size(); ++i) {
        painter.setOpacity(opacityOf(i));
        paintDisplay(painter, i);
        if (opacityOf(i) < 1) {
            paintRim(painter, i);
        }
    }
    const auto lifted = emphasis.lifted ? emphasis.lifted : emphasis.selected;
    const auto opacity = [&](std::size_t window) {
        const bool covers = lifted && window < *lifted &&
                            m_boxes[window].display == m_boxes[*lifted].display &&
                            m_boxes[window].frame.intersects(m_boxes[*lifted].frame);
        return covers ? coveringOpacity : 1.0;
    };
    const auto isShown = [&](std::size_t window) {
        return window != lifted && !m_picture.windows[window].isOutOfSight;
    };
    for (std::size_t i = m_boxes.size(); i-- > 0;) {
        if (isShown(i)) {
            painter.setOpacity(opacity(i));
            paintBox(painter, i);
        }
    }
    painter.setOpacity(1);
    for (const Box& box : m_boxes) {
        if (box.now) {
            paintNow(painter, box);
        }
    }
    for (const Box& box : m_boxes) {
        if (box.now) {
            paintWay(painter, box);
        }
    }
    for (std::size_t i = m_boxes.size(); i-- > 0;) {
        if (isShown(i) && m_boxes[i].piece) {
            painter.setOpacity(opacity(i));
            paintName(painter, i);
        }
    }
    painter.setOpacity(1);
    if (lifted) {
        paintBox(painter, *lifted);
        if (emphasis.selected == lifted) {
            paintRing(painter, m_boxes[*lifted]);
        }
        paintName(painter, *lifted);
    }
    for (std::size_t i = 0; i < m_geometry.regions().size(); ++i) {
        painter.setOpacity(opacityOf(i));
        // The rim of one that is coming or going would be drawn across windows on their way.
        if (opacityOf(i) == 1) {
            paintRim(painter, i);
        }
        if (m_style.hasLabels) {
            paintDisplayLabel(painter, i);
        }
    }
    painter.setOpacity(1);
}

void DeskPainter::paintWindows(QPainter& painter) const {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform |
                           QPainter::TextAntialiasing);
    for (std::size_t i = m_boxes.size(); i-- > 0;) {
        paintBox(painter, i);
        if (m_boxes[i].piece) {
            paintName(painter, i);
        }
    }
}

void DeskPainter::paintDisplay(QPainter& painter, std::size_t display) const {
    const auto& region = m_geometry.regions()[display];
    painter.fillPath(displayShape(display), m_colors.panel);
    // Menu bar, panels and docks.
    QPainterPath usable;
    usable.addRect(qt(region.usable));
    painter.fillPath(displayShape(display).subtracted(usable), DeskColors::translucent(m_colors.text, 0.10));
    if (m_picture.displays[display].isBuiltin) {
        const QRectF frame = qt(region.frame);
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_colors.rim);
        painter.drawRoundedRect(QRectF(frame.left() - 5, frame.bottom() + 1.6, frame.width() + 10, 3.4), 1.7,
                                1.7);
    }
}

void DeskPainter::paintRim(QPainter& painter, std::size_t display) const {
    painter.setPen(QPen(m_colors.rim, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(inset(qt(m_geometry.regions()[display].frame), -0.25), m_displayRadius + 0.25,
                            m_displayRadius + 0.25);
}

QColor DeskPainter::fill(std::size_t window) const {
    switch (m_picture.windows[window].state) {
    case State::notRunning:
        return DeskColors::mix(m_colors.panel, m_boxes[window].strip, 0.10);
    case State::noWindow:
    case State::couldNotMove:
        return DeskColors::mix(m_colors.panel, m_colors.base, 0.5);
    case State::seen:
        return DeskColors::mix(m_colors.panel, m_colors.base, 0.35);
    case State::remembered:
        break;
    }
    return m_colors.body(m_boxes[window].strip);
}

QImage DeskPainter::pictureOf(std::size_t window) const {
    const auto& shown = m_picture.windows[window];
    const bool isOpen = shown.state == State::remembered || shown.state == State::seen;
    return isOpen && shown.live ? m_looks.picture(*shown.live) : QImage();
}

// Below the title strip, from the top left, filling the width or the height.
void DeskPainter::paintPicture(QPainter& painter, const Box& box, const QImage& picture) const {
    const QRectF place = box.frame.adjusted(0, m_strip, 0, 0);
    if (picture.isNull() || place.width() < 1 || place.height() < 1) {
        return;
    }
    QPainterPath shape;
    shape.addRoundedRect(box.frame, m_boxRadius, m_boxRadius);
    QPainterPath body;
    body.addRect(place);
    painter.save();
    painter.setClipPath(shape.intersected(body), Qt::IntersectClip);
    const QSizeF filled = QSizeF(picture.size()).scaled(place.size(), Qt::KeepAspectRatioByExpanding);
    painter.drawImage(QRectF(place.topLeft(), filled), picture);
    painter.restore();
}

void DeskPainter::paintBox(QPainter& painter, std::size_t window) const {
    const Box& box = m_boxes[window];
    const QRectF& frame = box.frame;
    const QColor edge = m_colors.edge(box.strip);
    painter.save();
    if (!m_picture.windows[window].flight) {
        painter.setClipPath(displayShape(box.display), Qt::IntersectClip);
    }
    const auto rounded = [&](const QRectF& rect, double radius, const QColor& color, const QPen& pen) {
        painter.setPen(pen);
        painter.setBrush(color);
        painter.drawRoundedRect(rect, radius, radius);
    };
    switch (m_picture.windows[window].state) {
    case State::seen:
        rounded(inset(frame, 0.5), m_boxRadius, fill(window), Qt::NoPen);
        paintPicture(painter, box, pictureOf(window));
        rounded(inset(frame, 0.5), m_boxRadius, Qt::transparent,
                QPen(DeskColors::mix(m_colors.panel, m_colors.text, 0.32), 1));
        break;
    case State::notRunning: {
        QPen dashes(DeskColors::mix(edge, m_colors.text, 0.15), 1.25);
        dashes.setDashPattern({4 / 1.25, 3 / 1.25});
        dashes.setCapStyle(Qt::FlatCap);
        rounded(inset(frame, 0.75), m_boxRadius, fill(window), dashes);
        break;
    }
    case State::noWindow:
    case State::couldNotMove:
        rounded(inset(frame, 0.5), m_boxRadius, fill(window), Qt::NoPen);
        hatch(painter, inset(frame, 0.5), m_boxRadius, DeskColors::mix(m_colors.base, m_colors.text, 0.28));
        rounded(inset(frame, 0.5), m_boxRadius, Qt::transparent,
                QPen(DeskColors::mix(m_colors.base, m_colors.text, 0.5), 1));
        if (box.piece || !box.icon.isEmpty()) {
            rounded((box.icon | box.nameFrame).adjusted(-7, -5, 7, 4), 6, fill(window), Qt::NoPen);
        }
        break;
    case State::remembered:
        rounded(frame.adjusted(-1, 0.5, 1, 3), m_boxRadius + 1,
                DeskColors::translucent(Qt::black, m_colors.isDark ? 0.16 : 0.05), Qt::NoPen);
        rounded(frame.adjusted(-0.5, 1.5, 0.5, 1.5), m_boxRadius + 0.5,
                DeskColors::translucent(Qt::black, m_colors.isDark ? 0.30 : 0.10), Qt::NoPen);
        rounded(frame, m_boxRadius, fill(window), Qt::NoPen);
        paintPicture(painter, box, pictureOf(window));
        painter.fillPath(stripShape(frame, m_strip, m_boxRadius), box.strip);
        rounded(inset(frame, 0.5), m_boxRadius - 0.3, Qt::transparent,
                QPen(DeskColors::translucent(edge, 0.85), 1));
        break;
    }
    painter.restore();
}

void DeskPainter::paintRing(QPainter& painter, const Box& box) const {
    painter.setBrush(Qt::NoBrush);
    for (const auto& [color, width] : {std::pair(m_colors.base, 4.0), std::pair(m_colors.accent, 2.0)}) {
        painter.setPen(QPen(color, width));
        painter.drawRoundedRect(inset(box.frame, -1.5), m_boxRadius + 2, m_boxRadius + 2);
    }
}

void DeskPainter::paintNow(QPainter& painter, const Box& box) const {
    painter.setBrush(Qt::NoBrush);
    for (const auto& [color, width] :
         {std::pair(DeskColors::translucent(m_colors.base, 0.8), 3.5), std::pair(m_colors.accent, 1.5)}) {
        painter.setPen(QPen(color, width));
        painter.drawRoundedRect(inset(*box.now, 0.75), m_boxRadius, m_boxRadius);
    }
}

void DeskPainter::paintWay(QPainter& painter, const Box& box) const {
    if (box.way.isEmpty()) {
        return;
    }
    painter.setBrush(Qt::NoBrush);
    const QPainterPath head = arrowHead(box.way);
    for (const auto& [color, width] :
         {std::pair(DeskColors::translucent(m_colors.base, 0.85), 4.0), std::pair(m_colors.accent, 1.5)}) {
        painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(box.way);
        painter.drawPath(head);
    }
    painter.setPen(QPen(m_colors.base, 1.5));
    painter.setBrush(m_colors.accent);
    painter.drawEllipse(box.way.pointAtPercent(0), 3, 3);
}

void DeskPainter::paintName(QPainter& painter, std::size_t window) const {
    const Box& box = m_boxes[window];
    const auto& shown = m_picture.windows[window];
    const bool isPale = shown.state == State::notRunning || shown.state == State::noWindow;
    const QIcon& icon = m_looks.of(shown.bundleID, shown.appName).icon;
    const double opacity = painter.opacity();
    if (!pictureOf(window).isNull()) {
        // Icon and name stay legible on whatever the window shows.
        const QRectF plate = box.name.isEmpty() ? box.icon : box.icon | box.nameFrame;
        painter.setPen(Qt::NoPen);
        painter.setBrush(DeskColors::translucent(fill(window), 0.88));
        painter.drawRoundedRect(plate.adjusted(-7, -5, 7, 5), 6, 6);
    }
    painter.setOpacity(opacity * (isPale ? 0.62 : 1));
    const double ratio = painter.device()->devicePixelRatioF();
    const QSize size(static_cast<int>(std::ceil(box.icon.width())),
                     static_cast<int>(std::ceil(box.icon.height())));
    const QPixmap pixmap = icon.pixmap(size, ratio);
    painter.drawPixmap(box.icon, pixmap, QRectF(pixmap.rect()));
    painter.setOpacity(opacity);
    if (shown.state == State::couldNotMove) {
        const double side = std::max(9.0, box.icon.width() * 0.5);
        const QRectF sign(box.icon.right() - side * 0.6, box.icon.bottom() - side * 0.75, side, side);
        painter.setPen(Qt::NoPen);
        painter.setBrush(fill(window));
        painter.drawEllipse(sign.center(), side * 0.62, side * 0.62);
        Symbols::paint(painter, "warn", sign, m_colors.warning);
    }
    if (box.name.isEmpty()) {
        return;
    }
    painter.setFont(m_nameFont);
    if (m_hasMoved) {
        // A halo, since outlines and curves may lie below.
        QPainterPath text;
        const QFontMetricsF metrics(m_nameFont);
        text.addText(QPointF(box.nameFrame.left(), box.nameFrame.top() + metrics.ascent()), m_nameFont,
                     box.name);
        painter.strokePath(text, QPen(fill(window), 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    painter.setPen(m_colors.text);
    painter.drawText(box.nameFrame, Qt::AlignCenter | Qt::TextDontClip, box.name);
    if (!box.caption.isEmpty()) {
        painter.setFont(m_captionFont);
        painter.setPen(m_colors.secondText);
        painter.drawText(box.captionFrame, Qt::AlignCenter | Qt::TextDontClip, box.caption);
    }
}

void DeskPainter::paintDisplayLabel(QPainter& painter, std::size_t display) const {
    const DisplayLabel& label = m_labels[display];
    if (m_geometry.regions()[display].isLabelInside && !label.nameText.isEmpty()) {
        // Windows may lie below it.
        const QRectF plate =
            (label.symbol | label.name | (label.sizeText.isEmpty() ? label.name : label.size));
        painter.setPen(Qt::NoPen);
        painter.setBrush(DeskColors::translucent(m_colors.panel, 0.88));
        painter.drawRoundedRect(plate.adjusted(-4, -2, 4, 2), 5, 5);
        if (!label.hidden.isNull()) {
            painter.drawRoundedRect(label.hidden.adjusted(-4, -2, 4, 2), 5, 5);
        }
    }
    Symbols::paint(painter, m_picture.displays[display].isBuiltin ? "laptop" : "monitor", label.symbol,
                   m_colors.secondText);
    const auto write = [&](const QRectF& rect, const QString& text, const QFont& font, const QColor& color) {
        painter.setFont(font);
        painter.setPen(color);
        painter.drawText(rect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextDontClip, text);
    };
    write(label.name, label.nameText, m_labelNameFont, m_colors.text);
    write(label.size, label.sizeText, m_labelFont, m_colors.secondText);
    for (std::size_t i = 0; i < label.hiddenIcons.size(); ++i) {
        const auto& window = m_picture.windows[m_hidden[display][i]];
        const QRectF& at = label.hiddenIcons[i];
        const QPixmap pixmap = m_looks.of(window.bundleID, window.appName)
                                   .icon.pixmap(at.size().toSize(), painter.device()->devicePixelRatioF());
        painter.drawPixmap(at, pixmap, QRectF(pixmap.rect()));
    }
    if (!label.hiddenText.isEmpty()) {
        painter.setFont(m_labelFont);
        painter.setPen(m_colors.secondText);
        const Qt::AlignmentFlag side = m_style.isRightToLeft ? Qt::AlignLeft : Qt::AlignRight;
        painter.drawText(label.hidden, static_cast<int>(Qt::AlignVCenter) | side | Qt::TextDontClip,
                         label.hiddenText);
    }
}

} // namespace vantrel
