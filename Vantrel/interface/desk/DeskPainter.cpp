// The layout; DeskPainterPainting.cpp paints it.
#include "Vantrel/interface/desk/DeskPainter.h"

#include "Vantrel/interface/Text.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QLineF>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace vantrel {

namespace {

using State = DeskPicture::Window::State;

constexpr double fontHeight = 13;
constexpr double gap = 10;
constexpr double labelHeight = 25;

QRectF qt(const Rect& rect) {
    return {rect.minX(), rect.minY(), rect.width(), rect.height()};
}

Rect plain(const QRectF& rect) {
    return {{rect.x(), rect.y()}, {rect.width(), rect.height()}};
}

double unitOf(const QFont& font) {
    return QFontInfo(font).pixelSize() / fontHeight;
}

QFont scaled(QFont font, double factor, QFont::Weight weight) {
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(QFontInfo(font).pixelSize() * factor))));
    font.setWeight(weight);
    return font;
}

CanvasGeometry::Options optionsFor(double unit, bool hasLabels) {
    return {.gap = gap, .margin = 5, .labelHeight = hasLabels ? labelHeight * unit : 5};
}

} // namespace

double DeskPainter::heightFor(const std::vector<DisplayInfo>& displays, double width, double highest,
                              const QFont& font) {
    const auto options = optionsFor(unitOf(font), true);
    const CanvasGeometry geometry(displays, {width, highest}, options);
    return std::min(highest, std::ceil(geometry.bounds().height() + 2 * options.margin));
}

DeskPainter::DeskPainter(DeskPicture picture, QSizeF size, Style style, ApplicationLooks& looks)
    : m_picture(std::move(picture)), m_style(std::move(style)), m_looks(looks),
      m_colors(DeskColors::of(m_style.palette)), m_unit(unitOf(m_style.font)),
      m_nameFont(scaled(m_style.font, 0.81, QFont::Medium)),
      m_captionFont(scaled(m_style.font, 0.72, QFont::Normal)),
      m_labelFont(scaled(m_style.font, 0.85, QFont::Normal)),
      m_labelNameFont(scaled(m_style.font, 0.85, QFont::Medium)),
      m_geometry(m_picture.displays, {size.width(), size.height()}, optionsFor(m_unit, m_style.hasLabels)) {
    const double scale = m_geometry.scale();
    m_displayRadius = std::clamp(90 * scale, 4.0, 10.0);
    m_boxRadius = std::clamp(38 * scale, 2.5, 6.0);
    m_strip = std::clamp(std::round(46 * scale), 4.0, 16.0);
    if (m_picture.displays.empty()) {
        m_picture.windows.clear();
        return;
    }
    placeBoxes();
    for (std::size_t i = 0; i < m_geometry.regions().size(); ++i) {
        placeDisplayLabel(i);
    }
    drawWays();
}

void DeskPainter::placeBoxes() {
    std::vector<SchematicDepth::Box> stack;
    std::vector<std::size_t> inSight;
    for (const auto& window : m_picture.windows) {
        const std::size_t display = *m_geometry.regionAtScreen(window.frame.center());
        m_boxes.push_back({.frame = qt(m_geometry.toCanvas(window.frame)), .display = display});
        Box& box = m_boxes.back();
        box.strip = m_colors.strip(m_looks.of(window.bundleID, window.appName).color);
        if (window.flight) {
            placeFlying(box, window);
            continue;
        }
        if (window.now) {
            m_hasMoved = true;
            box.now = qt(m_geometry.toCanvas(*window.now));
        }
        if (!window.isOutOfSight) {
            inSight.push_back(m_boxes.size() - 1);
            stack.push_back({plain(box.frame), display});
        }
    }
    std::vector<Rect> displays;
    for (const auto& region : m_geometry.regions()) {
        displays.push_back(region.frame);
    }
    const auto depth = SchematicDepth::of(stack, displays, {.strip = m_strip, .smallest = 13});
    for (std::size_t i = 0; i < inSight.size(); ++i) {
        if (depth.pieces[i]) {
            m_boxes[inSight[i]].piece = qt(*depth.pieces[i]);
            placeName(m_boxes[inSight[i]], m_picture.windows[inSight[i]]);
        }
    }
    m_hidden.resize(displays.size());
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        if (!m_boxes[i].piece) {
            m_hidden[m_boxes[i].display].push_back(i);
            // Where it is drawn when it is lifted.
            m_boxes[i].piece = m_boxes[i].frame.adjusted(0, m_strip, 0, 0);
            placeName(m_boxes[i], m_picture.windows[i]);
            m_boxes[i].piece.reset();
        }
    }
}

// On the canvas, as displays have gaps between them there.
void DeskPainter::placeFlying(Box& box, const DeskPicture::Window& window) {
    const QRectF from = qt(m_geometry.toCanvas(window.now.value_or(window.frame)));
    const auto between = [share = *window.flight](double a, double b) { return a + (b - a) * share; };
    box.frame = QRectF(between(from.x(), box.frame.x()), between(from.y(), box.frame.y()),
                       between(from.width(), box.frame.width()), between(from.height(), box.frame.height()));
    box.piece = box.frame.adjusted(0, m_strip, 0, 0);
    placeName(box, window);
}

void DeskPainter::placeName(Box& box, const DeskPicture::Window& window) const {
    const QFontMetricsF metrics(m_nameFont);
    const QString name = QString::fromStdString(window.appName);
    // A pixel more, because elidedText() may need it for the same text.
    const double largestIcon = m_style.hasNames ? 40 : 22;
    const auto label = SchematicDepth::labelOn(
        plain(*box.piece), {.nameWidth = metrics.horizontalAdvance(name) + 1,
                            // A name as high as the whole piece never fits.
                            .nameHeight = m_style.hasNames ? metrics.height() : box.piece->height(),
                            .smallestIcon = 12 * m_unit,
                            .largestIcon = largestIcon * m_unit,
                            .narrowestName = 46 * m_unit});
    box.icon = qt(label.icon);
    if (label.name) {
        box.nameFrame = qt(*label.name);
        box.name = metrics.elidedText(name, Qt::ElideRight, box.nameFrame.width());
        if (window.opensWhenMissing) {
            placeCaption(box);
        }
    }
}

void DeskPainter::placeCaption(Box& box) const {
    constexpr double margin = 4;
    const QFontMetricsF metrics(m_captionFont);
    const QString text = qtr(DeskSpeech::opensWhenMissing);
    const QRectF room(box.piece->left() + margin, box.nameFrame.bottom() + 1, box.piece->width() - 2 * margin,
                      metrics.height());
    if (room.bottom() + margin <= box.piece->bottom() && metrics.horizontalAdvance(text) <= room.width()) {
        box.captionFrame = room;
        box.caption = text;
    }
}

void DeskPainter::placeDisplayLabel(std::size_t display) {
    m_labels.emplace_back();
    if (!m_style.hasLabels) {
        return;
    }
    DisplayLabel& label = m_labels.back();
    const auto& region = m_geometry.regions()[display];
    const DisplayInfo& info = m_picture.displays[display];
    const QFontMetricsF nameMetrics(m_labelNameFont);
    const QFontMetricsF metrics(m_labelFont);
    const double height = nameMetrics.height();
    const double inset = region.isLabelInside ? 7 * m_unit : 1;
    const double foot = info.isBuiltin ? 5 : 0;
    const double top = region.isLabelInside ? std::max(region.usable.minY(), region.frame.minY()) + 5 * m_unit
                                            : region.frame.maxY() + foot + 5 * m_unit;
    const double left = region.frame.minX() + inset;
    double right = region.frame.maxX() - inset;

    if (const auto& hidden = m_hidden[display]; !hidden.empty()) {
        const double icon = height;
        const double step = icon * 0.66;
        const auto shown = std::min<std::size_t>(3, hidden.size());
        label.hiddenText = QString::number(hidden.size()) + QStringLiteral(" hidden");
        const bool hasText = region.frame.width() > 170 * m_unit;
        if (!hasText) {
            label.hiddenText.clear();
        }
        const double textWidth = hasText ? metrics.horizontalAdvance(label.hiddenText) + 5 * m_unit : 0;
        const double width = icon + static_cast<double>(shown - 1) * step;
        const double start = right - textWidth - width;
        for (std::size_t i = 0; i < shown; ++i) {
            label.hiddenIcons.emplace_back(start + static_cast<double>(i) * step, top, icon, icon);
        }
        label.hidden = QRectF(start, top, textWidth + width, height);
        right = start - 8 * m_unit;
    }
    const double symbol = 13 * m_unit;
    label.symbol = QRectF(left, top + (height - symbol) / 2, symbol, symbol);
    const double nameLeft = left + symbol + 5 * m_unit;
    const QString name = QString::fromStdString(info.name);
    const double fullWidth = nameMetrics.horizontalAdvance(name) + 1;
    const double nameWidth = std::min(fullWidth, right - nameLeft);
    label.nameText = nameWidth >= std::min(fullWidth, 24 * m_unit)
                         ? nameMetrics.elidedText(name, Qt::ElideRight, nameWidth)
                         : QString();
    label.name = QRectF(nameLeft, top, std::max(0.0, nameWidth), height);
    label.sizeText =
        QStringLiteral("%1 × %2").arg(std::lround(info.frame.width())).arg(std::lround(info.frame.height()));
    const double sizeLeft = label.name.right() + 9 * m_unit;
    const double sizeWidth = metrics.horizontalAdvance(label.sizeText) + 1;
    if (sizeLeft + sizeWidth > right) {
        label.sizeText.clear();
    }
    label.size = QRectF(sizeLeft, top, sizeWidth, height);
    if (m_style.isRightToLeft) {
        const double sum = region.frame.minX() + region.frame.maxX();
        const auto mirror = [sum](QRectF& rect) { rect.moveLeft(sum - rect.right()); };
        for (QRectF* const rect : {&label.symbol, &label.name, &label.size, &label.hidden}) {
            mirror(*rect);
        }
        std::ranges::for_each(label.hiddenIcons, mirror);
    }
}

// A curve that starts at the edge of where the window is now and ends before its icon.
std::optional<QPainterPath> DeskPainter::way(const Box& box, QPointF from, QPointF to, double bend) const {
    const QRectF& now = *box.now;
    QPointF delta = to - from;
    const double reach = std::min(now.width() / 2 / std::max(1e-6, std::abs(delta.x())),
                                  now.height() / 2 / std::max(1e-6, std::abs(delta.y())));
    if (reach < 1) {
        from += delta * reach;
    }
    delta = to - from;
    const double length = std::hypot(delta.x(), delta.y());
    const double stop = std::max(12 * m_unit, box.icon.width() / 2 + 5);
    if (length < stop + 10) {
        return std::nullopt;
    }
    const QPointF along = delta / length;
    const QPointF end = to - along * stop;
    const double height = std::clamp(length * bend, -60.0, 60.0);
    const QPointF middle = (from + end) / 2 + QPointF(along.y(), -along.x()) * height;
    QPainterPath path(from);
    path.quadTo(middle, end);
    return path;
}

bool DeskPainter::crossesLabel(const QPainterPath& way, const Box& own) const {
    constexpr int samples = 24;
    for (int i = 0; i <= samples; ++i) {
        const QPointF point = way.pointAtPercent(static_cast<double>(i) / samples);
        const bool isBlocked = std::ranges::any_of(m_boxes, [&](const Box& box) {
            return box.piece && ((&box != &own && box.icon.adjusted(-3, -3, 3, 3).contains(point)) ||
                                 box.nameFrame.adjusted(-2, -1, 2, 1).contains(point));
        });
        const bool isOnLabel = std::ranges::any_of(m_labels, [&](const DisplayLabel& label) {
            return (label.symbol | label.name | label.size).contains(point) || label.hidden.contains(point);
        });
        if (isBlocked || isOnLabel) {
            return true;
        }
    }
    return false;
}

void DeskPainter::drawWays() {
    constexpr std::array bends{0.1, -0.1, 0.2, -0.2, 0.3, -0.3, 0.45, -0.45};
    for (Box& box : m_boxes) {
        if (!box.now) {
            continue;
        }
        const QPointF to = box.piece ? box.icon.center() : box.frame.center();
        for (const double bend : bends) {
            const auto found = way(box, box.now->center(), to, bend);
            if (found && !crossesLabel(*found, box)) {
                box.way = *found;
                break;
            }
        }
    }
}

std::optional<std::size_t> DeskPainter::windowAt(QPointF point) const {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        if (!m_picture.windows[i].isOutOfSight && m_boxes[i].frame.contains(point) &&
            qt(m_geometry.regions()[m_boxes[i].display].frame).contains(point)) {
            return i;
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> DeskPainter::hiddenListAt(QPointF point) const {
    const auto found = std::ranges::find_if(
        m_labels, [&](const DisplayLabel& label) { return label.hidden.contains(point); });
    return found == m_labels.end() ? std::nullopt
                                   : std::optional(static_cast<std::size_t>(found - m_labels.begin()));
}

} // namespace vantrel
