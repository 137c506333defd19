#include "Vantrel/interface/desk/ApplicationLooks.h"

#include "Vantrel/interface/symbols/PaintedIconEngine.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace vantrel {

namespace {

// Stays the same from run to run.
int hueOf(const std::string& text) {
    std::uint32_t hash = 2166136261;
    for (const char letter : text) {
        hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619;
    }
    return static_cast<int>(hash % 360);
}

// A rounded plate with the application's first letter.
class LetterEngine final : public PaintedIconEngine {
public:
    LetterEngine(QString letter, QColor plate) : m_letter(std::move(letter)), m_plate(plate) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        const double side = std::min(rect.width(), rect.height());
        const QRectF plate =
            QRectF(rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2, side, side)
                .adjusted(side / 12, side / 12, -side / 12, -side / 12);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(m_plate);
        painter->drawRoundedRect(plate, side * 0.21, side * 0.21);
        QFont font = QGuiApplication::font();
        font.setPixelSize(std::max(1, static_cast<int>(std::lround(side * 0.48))));
        font.setWeight(QFont::DemiBold);
        painter->setFont(font);
        painter->setPen(Qt::white);
        painter->drawText(plate, Qt::AlignCenter, m_letter);
        painter->restore();
    }

    [[nodiscard]] QIconEngine* clone() const override { return new LetterEngine(m_letter, m_plate); }

private:
    QString m_letter;
    QColor m_plate;
};

ApplicationLooks::Look drawnLook(const std::string& bundleID, const std::string& name) {
    const QColor plate = QColor::fromHsl(hueOf(bundleID), 110, 110);
    const QString text = QString::fromStdString(name.empty() ? bundleID : name);
    // The first character may be a surrogate pair.
    const QString letter = text.left(!text.isEmpty() && text.front().isHighSurrogate() ? 2 : 1).toUpper();
    return {QIcon(new LetterEngine(letter, plate)), plate};
}

// The hue that covers most of the icon, weighted by how vivid it is; grey for an icon without colours.
QColor dominantColor(const QIcon& icon) {
    constexpr int side = 32;
    constexpr std::size_t sectors = 24;
    const QImage image = icon.pixmap(QSize(side, side), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
    struct Sector {
        double weight = 0;
        double red = 0;
        double green = 0;
        double blue = 0;
    };
    std::array<Sector, sectors> found{};
    Sector grey;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            const double opacity = color.alphaF();
            const double vividness = color.hslSaturationF() * (1 - std::abs(2 * color.lightnessF() - 1));
            const auto add = [&](Sector& sector, double weight) {
                sector.weight += weight;
                sector.red += weight * color.redF();
                sector.green += weight * color.greenF();
                sector.blue += weight * color.blueF();
            };
            add(grey, opacity * 0.02);
            if (color.hslHue() >= 0) {
                add(found[static_cast<std::size_t>(color.hslHue()) * sectors / 360], opacity * vividness);
            }
        }
    }
    const Sector& most = std::max(*std::ranges::max_element(found, {}, &Sector::weight), grey,
                                  [](const Sector& a, const Sector& b) { return a.weight < b.weight; });
    if (most.weight <= 0) {
        return Qt::gray;
    }
    const auto share = [&](double sum) {
        return static_cast<float>(std::clamp(sum / most.weight, 0.0, 1.0));
    };
    return QColor::fromRgbF(share(most.red), share(most.green), share(most.blue));
}

} // namespace

const ApplicationLooks::Look& ApplicationLooks::of(const std::string& bundleID, const std::string& name) {
    const auto [entry, isNew] = m_looks.try_emplace(bundleID);
    if (isNew) {
        const QIcon icon = m_icons != nullptr ? m_icons->icon(bundleID) : QIcon();
        entry->second = icon.isNull() ? drawnLook(bundleID, name) : Look{icon, dominantColor(icon)};
    }
    return entry->second;
}

} // namespace vantrel
