#include "Vantrel/interface/HUDOverlay.h"

#include "Vantrel/interface/controls/DarkSurface.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <chrono>

namespace vantrel {

namespace {

constexpr std::chrono::milliseconds shownFor{2200};
// In pixels at 96 dots per inch.
constexpr int padding = 22;
constexpr int lineGap = 4;
constexpr int symbolSize = 22;
constexpr int symbolGap = 14;
constexpr int narrowest = 180;
constexpr int widest = 520;
constexpr int distanceFromEdge = 96;
// Text can be laid out slightly wider than the sum of its letters.
constexpr int roundingSlack = 12;
constexpr double radius = 14;

QColor symbolColor(std::string_view symbol) {
    return symbol == "check"  ? QColor(0x74, 0xcf, 0x97)
           : symbol == "warn" ? QColor(0xf0, 0xb3, 0x5a)
                              : DarkSurface::linkText;
}

QFont headlineFont() {
    constexpr double larger = 1.25;
    QFont font = QGuiApplication::font();
    // A font has either a point size or a pixel size.
    if (font.pointSizeF() > 0) {
        font.setPointSizeF(font.pointSizeF() * larger);
    } else {
        font.setPixelSize(qRound(font.pixelSize() * larger));
    }
    font.setWeight(QFont::DemiBold);
    return font;
}

QString qt(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace

HUDOverlay::HUDOverlay()
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint |
                           Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus |
                           Qt::WindowTransparentForInput) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TranslucentBackground);
    m_hide.setSingleShot(true);
    m_hide.setInterval(shownFor);
    m_hide.callOnTimeout([this] { hide(); });
}

void HUDOverlay::follow(AppController& controller) {
    controller.setHUDHandler([this, &controller](const HUDEvent& event) {
        if (Settings(controller.defaults()).showHUD()) {
            show(HUDText::of(event));
        }
    });
}

void HUDOverlay::show(const HUDText& text) {
    m_text = text;
    // The window has no visible title, but screen readers read it.
    setWindowTitle(qt(text.detail.empty() ? text.headline : text.headline + " · " + text.detail));
    place();
    QWidget::show();
    raise();
    update();
    m_hide.start();
}

void HUDOverlay::place() {
    const QFontMetrics headline(headlineFont(), this);
    const QFontMetrics detail(QGuiApplication::font(), this);
    int width = headline.horizontalAdvance(qt(m_text.headline));
    int height = headline.height();
    if (!m_text.detail.empty()) {
        width = std::max(width, detail.horizontalAdvance(qt(m_text.detail)));
        height += lineGap + detail.height();
    }
    const QScreen* const screen = DarkSurface::screen();
    if (screen == nullptr) {
        return;
    }
    const QRect area = screen->availableGeometry();
    const QSize size(
        std::min(std::clamp(width + symbolSize + symbolGap + 2 * padding + roundingSlack, narrowest, widest),
                 area.width()),
        height + 2 * padding - lineGap * 2);
    const int y = std::max(area.top(), area.bottom() - distanceFromEdge - size.height());
    setGeometry(QRect(QPoint(area.center().x() - size.width() / 2, y), size));
    setMask(DarkSurface::mask(size, radius));
}

void HUDOverlay::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    DarkSurface::paint(painter, size(), radius);

    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const int symbolLeft = isMirrored ? width() - padding - symbolSize : padding;
    Symbols::paint(painter, m_text.symbol,
                   QRectF(symbolLeft, (height() - symbolSize) / 2.0, symbolSize, symbolSize),
                   symbolColor(m_text.symbol));
    const int textLeft = isMirrored ? padding : padding + symbolSize + symbolGap;
    const int textWidth = width() - 2 * padding - symbolSize - symbolGap;
    const auto line = [&](const std::string& text, const QFont& font, const QColor& color, int top) {
        const QFontMetrics metrics(font, this);
        painter.setFont(font);
        painter.setPen(color);
        const QRect place(textLeft, top, textWidth, metrics.height());
        const Qt::Alignment alignment =
            QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter);
        painter.drawText(place, static_cast<int>(alignment),
                         metrics.elidedText(qt(text), Qt::ElideRight, place.width()));
        return top + metrics.height() + lineGap;
    };
    const int below = line(m_text.headline, headlineFont(), DarkSurface::text, padding - lineGap);
    if (!m_text.detail.empty()) {
        line(m_text.detail, QGuiApplication::font(), DarkSurface::secondText, below);
    }
}

} // namespace vantrel
