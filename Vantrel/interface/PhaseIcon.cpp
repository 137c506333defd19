#include "Vantrel/interface/PhaseIcon.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

#include <array>
#include <utility>

namespace vantrel::PhaseIcon {

namespace {

// The icon is drawn on a square of this many units.
constexpr double side = 24;
constexpr std::array sizes{16, 22, 24, 32, 48};

struct Colors {
    QColor body;
    QColor rim;
    // Opaque, and the most visible part on a panel of the other tone.
    QColor pane;
};

Colors colors(Tone tone) {
    const QColor dark(40, 44, 52);
    const QColor light(240, 242, 246);
    return tone == Tone::dark ? Colors{dark, QColor(255, 255, 255, 200), light}
                              : Colors{light, QColor(0, 0, 0, 150), dark};
}

// The color of the badge at the lower right; invalid when there is none.
struct Sign {
    QColor operator()(const Phase::Empty& /*empty*/) const { return {}; }

    QColor operator()(const Phase::Saved& /*saved*/) const { return {}; }

    QColor operator()(const Phase::Restoring& /*restoring*/) const { return {70, 130, 255}; }

    QColor operator()(const Phase::Restored& /*restored*/) const { return {52, 190, 100}; }

    QColor operator()(const Phase::Off& /*off*/) const { return {}; }

    QColor operator()(const Phase::NeedsPermission& /*needs*/) const { return {240, 150, 30}; }
};

// As the files are named in the icon theme.
struct ThemeName {
    const char* operator()(const Phase::Empty& /*empty*/) const { return "empty"; }

    const char* operator()(const Phase::Saved& /*saved*/) const { return "saved"; }

    const char* operator()(const Phase::Restoring& /*restoring*/) const { return "restoring"; }

    const char* operator()(const Phase::Restored& /*restored*/) const { return "restored"; }

    const char* operator()(const Phase::Off& /*off*/) const { return "off"; }

    const char* operator()(const Phase::NeedsPermission& /*needs*/) const { return "attention"; }
};

// Draws as another icon does, under a name of its own.
class NamedEngine final : public QIconEngine {
public:
    NamedEngine(QString name, QIcon drawn) : m_name(std::move(name)), m_drawn(std::move(drawn)) {}

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State state) override {
        m_drawn.paint(painter, area, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return m_drawn.pixmap(size, mode, state);
    }
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
        return m_drawn.availableSizes(mode, state);
    }
    QString iconName() override { return m_name; }

    [[nodiscard]] QIconEngine* clone() const override { return new NamedEngine(m_name, m_drawn); }

private:
    QString m_name;
    QIcon m_drawn;
};

QPainterPath rounded(const QRectF& area) {
    QPainterPath path;
    path.addRoundedRect(area, 2, 2);
    return path;
}

const QRectF behindArea(2.5, 3.5, 13, 10);
const QRectF frontArea(8, 9, 14, 11.5);
const QRectF titleArea(8, 9, 14, 4.5);
const QPointF signCenter(18.5, 18.5);
constexpr double signRadius = 4.6;
const QLineF slash(4, 21, 20.5, 3.5);

// Outlines only: nothing is remembered for this desk, or the program is switched off.
bool isOutlined(const Phase& phase) {
    return phase.is<Phase::Empty>() || phase.is<Phase::Off>();
}

void paint(QPainter& painter, const Phase& phase, Tone tone) {
    const auto [body, rim, pane] = colors(tone);
    const QPainterPath behind = rounded(behindArea);
    const QPainterPath front = rounded(frontArea);
    const QPainterPath title = rounded(titleArea);
    const bool isHollow = isOutlined(phase);
    const QPen outer(rim, 3.6);
    painter.setBrush(Qt::NoBrush);
    for (const auto* const shape : {&behind, &front}) {
        painter.setPen(outer);
        painter.drawPath(*shape);
    }
    if (!isHollow) {
        painter.fillPath(behind, pane);
    }
    painter.setPen(QPen(body, 1.6));
    painter.drawPath(behind);
    if (!isHollow) {
        painter.fillPath(front, pane);
        painter.fillPath(title, body);
    }
    painter.drawPath(front);
    if (phase.is<Phase::Off>()) {
        painter.setPen(QPen(rim, 4.4, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(slash);
        painter.setPen(QPen(body, 2, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(slash);
    }
    if (const QColor sign = std::visit(Sign{}, phase.value); sign.isValid()) {
        painter.setPen(QPen(rim, 1.2));
        painter.setBrush(sign);
        painter.drawEllipse(signCenter, signRadius, signRadius);
    }
}

// Draws in black and erases what lies around.
class MaskPainter {
public:
    explicit MaskPainter(QPainter& painter) : m_painter(painter) {}

    void fill(const QPainterPath& path, double opacity = 1) {
        m_painter.fillPath(path, QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity)));
    }
    void erase(const QPainterPath& path, double margin = 0) {
        m_painter.setCompositionMode(QPainter::CompositionMode_Clear);
        m_painter.fillPath(path, Qt::black);
        m_painter.strokePath(path, QPen(Qt::black, 2 * margin, Qt::SolidLine, Qt::RoundCap));
        m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    void outline(const QPainterPath& path, double width) {
        m_painter.strokePath(path, QPen(Qt::black, width, Qt::SolidLine, Qt::RoundCap));
    }

private:
    QPainter& m_painter;
};

// A ring while windows move, a dot when they have, a mark of exclamation when something is missing.
void maskSign(MaskPainter& mask, const Phase& phase) {
    QPainterPath circle;
    circle.addEllipse(signCenter, signRadius, signRadius);
    if (phase.is<Phase::Restoring>()) {
        mask.erase(circle, 1.5);
        mask.outline(circle, 1.8);
    } else if (phase.is<Phase::Restored>() || phase.is<Phase::NeedsPermission>()) {
        mask.erase(circle, 1.5);
        mask.fill(circle);
    }
    if (phase.is<Phase::NeedsPermission>()) {
        QPainterPath exclamation;
        exclamation.addRect(QRectF(signCenter.x() - 0.8, signCenter.y() - 3.2, 1.6, 4));
        exclamation.addRect(QRectF(signCenter.x() - 0.8, signCenter.y() + 1.6, 1.6, 1.6));
        mask.erase(exclamation);
    }
}

void paintMask(QPainter& painter, const Phase& phase) {
    constexpr double line = 1.6;
    constexpr double pane = 0.3;
    MaskPainter mask(painter);
    for (const QRectF& area : {behindArea, frontArea}) {
        const QPainterPath window = rounded(area);
        mask.erase(window, 2);
        if (!isOutlined(phase)) {
            mask.fill(window, pane);
        }
        mask.outline(window, line);
    }
    if (!isOutlined(phase)) {
        mask.fill(rounded(titleArea));
    }
    if (phase.is<Phase::Off>()) {
        QPainterPath path(slash.p1());
        path.lineTo(slash.p2());
        mask.erase(path, 2.2);
        mask.outline(path, 2);
    }
    maskSign(mask, phase);
}

} // namespace

Tone toneOfDesktop() {
    constexpr int middle = 128;
    return QGuiApplication::palette().color(QPalette::Window).lightness() < middle ? Tone::light : Tone::dark;
}

QIcon icon(const Phase& phase, Tone tone) {
    QIcon result;
    for (const int size : sizes) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / side, size / side);
        paint(painter, phase, tone);
        painter.end();
        result.addPixmap(pixmap);
    }
    return result;
}

QIcon namedIcon(const Phase& phase, Tone tone) {
    const auto name = QString("org.vantrel.Vantrel-%1-%2")
                          .arg(std::visit(ThemeName{}, phase.value), tone == Tone::dark ? "dark" : "light");
    const QIcon drawn = icon(phase, tone);
    return QIcon::hasThemeIcon(name) ? QIcon(new NamedEngine(name, drawn)) : drawn;
}

std::vector<std::string> masks(const Phase& phase) {
    constexpr int points = 18;
    std::vector<std::string> found;
    for (const int scale : {1, 2, 3}) {
        QImage image(points * scale, points * scale, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(points * scale / side, points * scale / side);
        paintMask(painter, phase);
        painter.end();
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG");
        found.push_back(png.toStdString());
    }
    return found;
}

} // namespace vantrel::PhaseIcon
