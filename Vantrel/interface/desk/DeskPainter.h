// Lays out and paints the drawing of a desk.
#pragma once

#include "Vantrel/interface/desk/ApplicationLooks.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/desk/DeskPicture.h"
#include "VantrelCore/studio/CanvasGeometry.h"
#include "VantrelCore/studio/SchematicDepth.h"

#include <QFont>
#include <QPainterPath>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <cstddef>
#include <optional>
#include <vector>

class QPainter;

namespace vantrel {

class DeskPainter {
public:
    struct Style {
        QPalette palette;
        // The interface's font; all lengths but lines follow its height.
        QFont font;
        bool isRightToLeft = false;
        // The displays' names and sizes, and what is hidden.
        bool hasLabels = true;
        // The applications' names.
        bool hasNames = true;
    };

    struct Emphasis {
        // Drawn in front of all others.
        std::optional<std::size_t> lifted{};
        // Drawn with a ring.
        std::optional<std::size_t> selected{};

        bool operator==(const Emphasis&) const = default;
    };

    // `looks` outlives the painter.
    DeskPainter(DeskPicture picture, QSizeF size, Style style, ApplicationLooks& looks);

    void paint(QPainter& painter, const Emphasis& emphasis) const;

    // Only the windows, for one that is dragged across a drawing without it.
    void paintWindows(QPainter& painter) const;

    [[nodiscard]] const DeskPicture& picture() const { return m_picture; }
    [[nodiscard]] const CanvasGeometry& geometry() const { return m_geometry; }
    // The front-most window at this point.
    [[nodiscard]] std::optional<std::size_t> windowAt(QPointF point) const;
    // The display whose list of hidden windows is at this point.
    [[nodiscard]] std::optional<std::size_t> hiddenListAt(QPointF point) const;
    [[nodiscard]] const std::vector<std::size_t>& hiddenOn(std::size_t display) const {
        return m_hidden[display];
    }
    [[nodiscard]] bool isHidden(std::size_t window) const { return !m_boxes[window].piece; }
    [[nodiscard]] QRectF frameOf(std::size_t window) const { return m_boxes[window].frame; }

    // The height at which a drawing of these displays fills the width, but at most `highest`.
    [[nodiscard]] static double heightFor(const std::vector<DisplayInfo>& displays, double width,
                                          double highest, const QFont& font);

private:
    struct Box {
        QRectF frame;
        std::size_t display = 0;
        // None for a hidden window.
        std::optional<QRectF> piece{};
        QRectF icon{};
        // Empty when there is no room for a name.
        QRectF nameFrame{};
        QString name{};
        // Below the name; empty when there is no room for it, or nothing to say.
        QRectF captionFrame{};
        QString caption{};
        QColor strip{};
        std::optional<QRectF> now{};
        // From there to its place; empty when it would cross what must be read.
        QPainterPath way{};
    };

    struct DisplayLabel {
        QRectF symbol;
        QRectF name;
        QString nameText;
        QRectF size;
        QString sizeText;
        QRectF hidden;
        QString hiddenText;
        std::vector<QRectF> hiddenIcons;
    };

    void placeBoxes();
    void placeCaption(Box& box) const;
    void placeFlying(Box& box, const DeskPicture::Window& window);
    [[nodiscard]] double opacityOf(std::size_t display) const {
        return m_picture.displayOpacity.empty() ? 1 : m_picture.displayOpacity[display];
    }
    void placeName(Box& box, const DeskPicture::Window& window) const;
    void placeDisplayLabel(std::size_t display);
    void drawWays();
    [[nodiscard]] std::optional<QPainterPath> way(const Box& box, QPointF from, QPointF to,
                                                  double bend) const;
    [[nodiscard]] bool crossesLabel(const QPainterPath& way, const Box& own) const;

    void paintDisplay(QPainter& painter, std::size_t display) const;
    void paintRim(QPainter& painter, std::size_t display) const;
    void paintBox(QPainter& painter, std::size_t window) const;
    void paintPicture(QPainter& painter, const Box& box, const QImage& picture) const;
    // The picture of its live window; null where none is drawn.
    [[nodiscard]] QImage pictureOf(std::size_t window) const;
    void paintRing(QPainter& painter, const Box& box) const;
    void paintNow(QPainter& painter, const Box& box) const;
    void paintWay(QPainter& painter, const Box& box) const;
    void paintName(QPainter& painter, std::size_t window) const;
    void paintDisplayLabel(QPainter& painter, std::size_t display) const;
    [[nodiscard]] QPainterPath displayShape(std::size_t display) const;
    [[nodiscard]] QColor fill(std::size_t window) const;

    DeskPicture m_picture;
    Style m_style;
    ApplicationLooks& m_looks;
    DeskColors m_colors;
    // Points per length that is given for a font of 13 pixels.
    double m_unit = 1;
    QFont m_nameFont;
    QFont m_captionFont;
    QFont m_labelFont;
    QFont m_labelNameFont;
    CanvasGeometry m_geometry;
    double m_displayRadius = 4;
    double m_boxRadius = 3;
    double m_strip = 4;
    std::vector<Box> m_boxes;
    std::vector<DisplayLabel> m_labels;
    std::vector<std::vector<std::size_t>> m_hidden;
    bool m_hasMoved = false;
};

} // namespace vantrel
