// How the canvas is painted.
#include "Vantrel/interface/editor/EditorCanvas.h"

#include "Vantrel/interface/controls/Metrics.h"
#include "VantrelCore/studio/Distances.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

constexpr double ringWidth = 2;
constexpr double guideWidth = 1.25;
constexpr double guideBeyond = 8;
constexpr double cornerRadius = 5;
constexpr double chipHeight = 17;

QRectF qtRect(const Rect& rect) {
    return {rect.minX(), rect.minY(), rect.width(), rect.height()};
}

Rect united(const Rect& a, const Rect& b) {
    const Point origin{std::min(a.minX(), b.minX()), std::min(a.minY(), b.minY())};
    return {origin, {std::max(a.maxX(), b.maxX()) - origin.x, std::max(a.maxY(), b.maxY()) - origin.y}};
}

} // namespace

void EditorCanvas::resizeEvent(QResizeEvent* /*event*/) {
    forget();
}

void EditorCanvas::changeEvent(QEvent* event) {
    forget();
    update();
    QWidget::changeEvent(event);
}

void EditorCanvas::paintGround() {
    const double ratio = devicePixelRatioF();
    m_ground = QPixmap((QSizeF(size()) * ratio).toSize());
    m_ground.setDevicePixelRatio(ratio);
    m_ground.fill(palette().color(QPalette::Window));
    QPainter ground(&m_ground);
    if (m_drag) {
        painterOf(picture(false)).paint(ground, {});
        return;
    }
    DeskPainter::Emphasis emphasis;
    for (std::size_t i = 0; i < painter().picture().windows.size() && m_selection.size() == 1; ++i) {
        if (m_selection.contains(m_stack[i]) && painter().isHidden(i)) {
            emphasis.lifted = i;
        }
    }
    painter().paint(ground, emphasis);
}

void EditorCanvas::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (m_draft == nullptr) {
        painter.fillRect(event->rect(), palette().color(QPalette::Window));
        return;
    }
    if (m_ground.isNull() || m_ground.devicePixelRatio() != devicePixelRatioF()) {
        paintGround();
    }
    painter.drawPixmap(0, 0, m_ground);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto colors = DeskColors::of(palette());
    if (m_drag) {
        paintZone(painter, colors);
        paintDragged(painter);
    }
    paintSelection(painter, colors);
    if (m_drag) {
        paintGuides(painter, colors);
        paintDistances(painter, colors);
    }
    if (hasFocus() && m_isReachedByKey && m_selection.empty()) {
        painter.setPen(QPen(colors.accent, ringWidth));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), cornerRadius, cornerRadius);
    }
    if (m_band) {
        painter.setPen(QPen(colors.accent, 1));
        painter.setBrush(DeskColors::translucent(colors.accent, 0.12));
        painter.drawRect(m_band->frame());
    }
}

void EditorCanvas::paintDragged(QPainter& painter) {
    DeskPicture dragged{.displays = m_draft->displays(), .windows = {}};
    for (const BoxID id : m_stack) {
        if (const auto step = m_step.frames.find(id); step != m_step.frames.end()) {
            dragged.windows.push_back(window(record(id), step->second));
        }
    }
    for (const auto& [id, incoming] : m_incoming) {
        dragged.windows.insert(dragged.windows.begin(), window(incoming, m_step.frames.at(id)));
    }
    painterOf(std::move(dragged)).paintWindows(painter);
    painter.setOpacity(1);
}

void EditorCanvas::paintSelection(QPainter& painter, const DeskColors& colors) {
    std::vector<QRectF> rings;
    if (m_drag) {
        for (const auto& [id, frame] : m_step.frames) {
            rings.push_back(shownFrame(id));
        }
    } else {
        std::ranges::transform(m_selection, std::back_inserter(rings),
                               [this](BoxID id) { return shownFrame(id); });
    }
    painter.setBrush(Qt::NoBrush);
    for (const QRectF& frame : rings) {
        const QRectF ring = frame.adjusted(-1, -1, 1, 1);
        painter.setPen(QPen(colors.base, ringWidth + 2));
        painter.drawRoundedRect(ring, cornerRadius, cornerRadius);
        painter.setPen(QPen(colors.accent, ringWidth));
        painter.drawRoundedRect(ring, cornerRadius, cornerRadius);
    }
    if (m_drag) {
        return;
    }
    painter.setPen(QPen(colors.accent, 1.5));
    painter.setBrush(colors.base);
    for (const Handle& handle : handles()) {
        painter.drawRoundedRect(handle.frame, 2, 2);
    }
}

void EditorCanvas::paintZone(QPainter& painter, const DeskColors& colors) {
    if (!m_step.zone) {
        return;
    }
    const QRectF frame = qtRect(this->painter().geometry().toCanvas(m_step.zoneFrame));
    painter.setPen(QPen(colors.accent, 1.5));
    painter.setBrush(DeskColors::translucent(colors.accent, 0.16));
    painter.drawRoundedRect(frame, cornerRadius, cornerRadius);
}

void EditorCanvas::paintGuides(QPainter& painter, const DeskColors& colors) {
    const auto& geometry = this->painter().geometry();
    const QPointF centre = shownFrame(m_drag->held).center();
    const auto region = geometry.regionAtCanvas({centre.x(), centre.y()});
    if (!region) {
        return;
    }
    const QRectF display = qtRect(geometry.regions()[*region].frame);
    painter.setPen(QPen(colors.accent, guideWidth));
    for (const auto& guide : m_step.guides) {
        if (guide.isVertical) {
            painter.drawLine(QPointF(guide.position, display.top() - guideBeyond),
                             QPointF(guide.position, display.bottom() + guideBeyond));
        } else {
            painter.drawLine(QPointF(display.left() - guideBeyond, guide.position),
                             QPointF(display.right() + guideBeyond, guide.position));
        }
    }
}

// How far the boxes are from what is beside them; or while they are resized, their size; or the zone's name.
void EditorCanvas::paintDistances(QPainter& painter, const DeskColors& colors) {
    const auto& geometry = this->painter().geometry();
    if (m_step.zone) {
        const QRectF zone = qtRect(geometry.toCanvas(m_step.zoneFrame));
        paintChip(painter, {zone.center().x(), zone.bottom() - length(chipHeight)},
                  QString::fromUtf8(Zones::name(*m_step.zone)));
        return;
    }
    Rect all = m_step.frames.at(m_drag->held);
    if (m_drag->edges.rawValue != 0) {
        const QRectF box = shownFrame(m_drag->held);
        paintChip(painter, {box.center().x(), box.bottom() - length(chipHeight)},
                  QStringLiteral("%1 × %2").arg(std::lround(all.width())).arg(std::lround(all.height())));
    }
    const auto region = geometry.regionAtScreen(all.center());
    if (!region) {
        return;
    }
    const Rect& usable = geometry.regions()[*region].usableScreen;
    for (const auto& [id, frame] : m_step.frames) {
        if (usable.contains(frame.center())) {
            all = united(all, frame);
        }
    }
    for (const auto& distance : Distances::of(all, m_others, usable)) {
        const QRectF line = qtRect(geometry.toCanvas(united({distance.from, {}}, {distance.to, {}})));
        painter.setPen(QPen(colors.accent, guideWidth));
        painter.drawLine(line.topLeft(), line.bottomRight());
        paintChip(painter, line.center(), QString::number(std::lround(distance.length())));
    }
}

void EditorCanvas::paintChip(QPainter& painter, QPointF centre, const QString& text) const {
    const QFont chipFont = Metrics::scaled(font(), 0.85, QFont::DemiBold);
    const double width = QFontMetricsF(chipFont).horizontalAdvance(text) + length(12);
    const double height = length(chipHeight);
    const QRectF chip(centre.x() - width / 2, centre.y() - height / 2, width, height);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawRoundedRect(chip, 4, 4);
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.setFont(chipFont);
    painter.drawText(chip, Qt::AlignCenter, text);
}

} // namespace vantrel
