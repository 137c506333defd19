#include "Vantrel/interface/symbols/Symbols.h"

#include "Vantrel/interface/symbols/PaintedIconEngine.h"
#include "Vantrel/interface/symbols/SvgPath.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace vantrel::Symbols {

namespace {

// On a grid of this many units.
constexpr double grid = 16;
constexpr double stroke = 1.35;

constexpr std::pair<const char*, const char*> drawings[] = {
    {"pencil", "M10.7 2.9l2.4 2.4M2.7 13.3l.7-3 7.6-7.6a1 1 0 0 1 1.4 0l.9.9a1 1 0 0 1 0 1.4l-7.6 7.6z"},
    {"code", "M5 4.5L1.7 8 5 11.5M11 4.5L14.3 8 11 11.5M9.2 3L6.8 13"},
    {"bubble", "M3.2 2.5h9.6a1.2 1.2 0 0 1 1.2 1.2v6a1.2 1.2 0 0 1-1.2 1.2H7.3L4.2 13.6v-2.7h-1A1.2 1.2 0 0 "
               "1 2 9.7v-6a1.2 1.2 0 0 1 1.2-1.2z"},
    {"note", "M6.2 12V3.6l6.6-1.3v8.2M6.2 12a2 1.8 0 1 1-4 0 2 1.8 0 0 1 4 0zM12.8 10.5a2 1.8 0 1 1-4 0 2 "
             "1.8 0 0 1 4 0z"},
    {"envelope",
     "M2.8 3.5h10.4a1 1 0 0 1 1 1v7a1 1 0 0 1-1 1H2.8a1 1 0 0 1-1-1v-7a1 1 0 0 1 1-1zM2.2 4.2L8 8.8l5.8-4.6"},
    {"briefcase", "M2.7 5h10.6a1 1 0 0 1 1 1v6.5a1 1 0 0 1-1 1H2.7a1 1 0 0 1-1-1V6a1 1 0 0 1 1-1zM5.5 "
                  "5V3.3a.8.8 0 0 1 .8-.8h3.4a.8.8 0 0 1 .8.8V5M1.7 8.7h12.6"},
    {"house", "M2 7.6L8 2.4l6 5.2M3.5 6.6v6.9h9V6.6M6.6 13.5V9.6h2.8v3.9"},
    {"scenes", "M2 2.7h7a.8.8 0 0 1 .8.8v5a.8.8 0 0 1-.8.8H2a.8.8 0 0 1-.8-.8v-5A.8.8 0 0 1 2 2.7zM12 "
               "5.2h1.8a.8.8 0 0 1 .8.8v5.5a.8.8 0 0 1-.8.8H12M4 11.8v.7a.8.8 0 0 0 .8.8h4.4"},
    {"monitor", "M2.2 2.7h11.6a.9.9 0 0 1 .9.9v6.6a.9.9 0 0 1-.9.9H2.2a.9.9 0 0 1-.9-.9V3.6a.9.9 0 0 1 "
                ".9-.9zM8 11.2v2.3M5.2 13.6h5.6"},
    {"laptop", "M3.6 3.2h8.8a.8.8 0 0 1 .8.8v6.3H2.8V4a.8.8 0 0 1 .8-.8zM1 12.7h14"},
    {"clock", "M14 8A6 6 0 1 1 2 8a6 6 0 0 1 12 0zM8 4.6V8l2.4 1.7"},
    {"rules", "M2 4.5h6.3M12.3 4.5H14M2 11.5h1.7M7.7 11.5H14M10.3 6.4a1.9 1.9 0 1 0 0-3.8 1.9 1.9 0 0 0 0 "
              "3.8zM5.7 13.4a1.9 1.9 0 1 0 0-3.8 1.9 1.9 0 0 0 0 3.8z"},
    {"gear", "M8 10.2a2.2 2.2 0 1 0 0-4.4 2.2 2.2 0 0 0 0 4.4zM8 1.6v1.9M8 12.5v1.9M1.6 8h1.9M12.5 8h1.9M3.5 "
             "3.5l1.3 1.3M11.2 11.2l1.3 1.3M12.5 3.5l-1.3 1.3M4.8 11.2l-1.3 1.3"},
    {"pin", "M5.2 2.2h5.6M6 2.2v4.2L4.2 8.7h7.6L10 6.4V2.2M8 8.7v5"},
    {"dots", "M3.3 8h.01M8 8h.01M12.7 8h.01"},
    {"plus", "M8 3v10M3 8h10"},
    {"search", "M11.5 7a4.5 4.5 0 1 1-9 0 4.5 4.5 0 0 1 9 0zM10.3 10.3l3.5 3.5"},
    {"close", "M4 4l8 8M12 4l-8 8"},
    {"check", "M3 8.5l3.3 3.3L13 4.8"},
    {"warn", "M8 2.2l6.3 11.1H1.7zM8 6.4v3.2M8 11.6h.01"},
    {"info", "M14 8A6 6 0 1 1 2 8a6 6 0 0 1 12 0zM8 7.3v3.6M8 5h.01"},
    {"restore", "M5.7 2.9L2.8 5.8l2.9 2.9M3 5.8h6.2a4 4 0 0 1 0 8H6"},
    {"undo", "M5.7 2.9L2.8 5.8l2.9 2.9M3 5.8h6.2a4 4 0 0 1 0 8H6"},
    {"redo", "M10.3 2.9l2.9 2.9-2.9 2.9M13 5.8H6.8a4 4 0 0 0 0 8H10"},
    {"save", "M8 2.2v7.3M4.9 6.7L8 9.8l3.1-3.1M2.5 10v2.5a1 1 0 0 0 1 1h9a1 1 0 0 0 1-1V10"},
    {"stash", "M2 8.8l1.8-5.3a1 1 0 0 1 .9-.7h6.6a1 1 0 0 1 .9.7L14 8.8v3.7a1 1 0 0 1-1 1H3a1 1 0 0 1-1-1zM2 "
              "8.8h3.4l1 1.8h3.2l1-1.8H14"},
    {"down", "M4 6.2l4 4 4-4"},
    {"right", "M6.2 4l4 4-4 4"},
    {"left", "M9.8 4l-4 4 4 4"},
    {"keyboard", "M2.2 4h11.6a.9.9 0 0 1 .9.9v6.2a.9.9 0 0 1-.9.9H2.2a.9.9 0 0 1-.9-.9V4.9a.9.9 0 0 1 "
                 ".9-.9zM4 6.7h.01M6.7 6.7h.01M9.3 6.7h.01M12 6.7h.01M5 9.5h6"},
    {"bolt", "M9 1.8L3.5 9h4L6.8 14.2 12.5 7h-4z"},
    {"calendar", "M2.8 3.3h10.4a1 1 0 0 1 1 1v8.4a1 1 0 0 1-1 1H2.8a1 1 0 0 1-1-1V4.3a1 1 0 0 1 1-1zM1.8 "
                 "6.5h12.4M5 1.8v2.6M11 1.8v2.6"},
    {"trash", "M2.6 4.3h10.8M6 4.3V2.6h4v1.7M3.9 4.3l.6 8.6a.9.9 0 0 0 .9.8h5.2a.9.9 0 0 0 .9-.8l.6-8.6M6.7 "
              "7v4M9.3 7v4"},
    {"copy", "M6 5.5h6.5a1 1 0 0 1 1 1V13a1 1 0 0 1-1 1H6a1 1 0 0 1-1-1V6.5a1 1 0 0 1 1-1zM11 5.5V3a1 1 0 0 "
             "0-1-1H3.5a1 1 0 0 0-1 1v6.5a1 1 0 0 0 1 1H5"},
    {"folder", "M1.8 4.3a1 1 0 0 1 1-1h3.3l1.5 1.7h5.6a1 1 0 0 1 1 1v6.3a1 1 0 0 1-1 1H2.8a1 1 0 0 1-1-1z"},
    {"power", "M8 2v5.5M4.7 4a5.3 5.3 0 1 0 6.6 0"},
    {"play", "M4.5 2.9l8 5.1-8 5.1z"},
    {"window",
     "M2.6 3h10.8a.9.9 0 0 1 .9.9v8.2a.9.9 0 0 1-.9.9H2.6a.9.9 0 0 1-.9-.9V3.9a.9.9 0 0 1 .9-.9zM1.8 6h12.4"},
    {"move", "M3 8h9M9 5l3 3-3 3"},
    {"phone", "M2.5 4.3h7.3a1 1 0 0 1 1 1v5.4a1 1 0 0 1-1 1H2.5a1 1 0 0 1-1-1V5.3a1 1 0 0 1 1-1zM10.8 "
              "7.3l3.5-2v5.4l-3.5-2"},
    {"moon", "M13 9.7A5.6 5.6 0 1 1 6.3 3a4.5 4.5 0 0 0 6.7 6.7z"},
    {"key", "M9.6 6.4a3 3 0 1 0-2.8 3l1.1 1.1h1.6v1.6h1.6v1.5h2.6v-2.2L9.5 7.2"},
    {"download", "M8 2.2v7.3M4.9 6.7L8 9.8l3.1-3.1M3 13.3h10"},
    {"image", "M2.6 2.8h10.8a.9.9 0 0 1 .9.9v8.6a.9.9 0 0 1-.9.9H2.6a.9.9 0 0 1-.9-.9V3.7a.9.9 0 0 1 "
              ".9-.9zM2 11.6l3.6-3.7 2.7 2.7 2-1.9 3.6 3.3M10.8 6.2h.01"},
    {"none", "M14 8A6 6 0 1 1 2 8a6 6 0 0 1 12 0zM3.8 3.8l8.4 8.4"},
    {"eye",
     "M1.4 8S3.8 3.6 8 3.6 14.6 8 14.6 8 12.2 12.4 8 12.4 1.4 8 1.4 8zM8 10a2 2 0 1 0 0-4 2 2 0 0 0 0 4z"},
    {"shield", "M8 1.8l5 1.9v4c0 3-2.1 5.2-5 6.5-2.9-1.3-5-3.5-5-6.5v-4z"},
    {"lock", "M4 7.2h8a.8.8 0 0 1 .8.8v5a.8.8 0 0 1-.8.8H4a.8.8 0 0 1-.8-.8V8a.8.8 0 0 1 .8-.8zM5.3 "
             "7.2V5a2.7 2.7 0 0 1 5.4 0v2.2"},
    {"brush", "M13.4 2.6a1.3 1.3 0 0 0-1.9 0L6.2 8.2l1.7 1.7 5.5-5.4a1.3 1.3 0 0 0 0-1.9zM5.3 9a2.4 2.4 0 0 "
              "0-2.4 2.4c0 .9-.5 1.5-1.2 1.9 1.9.6 5.4.2 5.4-2.3A2 2 0 0 0 5.3 9z"},
    {"brain", "M8 3.4a2 2 0 0 0-3.6.6 2 2 0 0 0-1.7 2.6 2.1 2.1 0 0 0 0 3A2 2 0 0 0 4.3 12 2 2 0 0 0 8 "
              "12.6zM8 3.4a2 2 0 0 1 3.6.6 2 2 0 0 1 1.7 2.6 2.1 2.1 0 0 1 0 3A2 2 0 0 1 11.7 12 2 2 0 0 1 8 "
              "12.6zM5.4 7.2h1M9.6 9h1"},
    {"broadcast", "M8 8h.01M5.4 10.6a3.7 3.7 0 0 1 0-5.2M10.6 5.4a3.7 3.7 0 0 1 0 5.2M3.3 12.7a6.6 6.6 0 0 1 "
                  "0-9.4M12.7 3.3a6.6 6.6 0 0 1 0 9.4"},
    {"game", "M4.8 4.5h6.4a3 3 0 0 1 2.9 2.3l.6 3.1a1.8 1.8 0 0 1-3.1 1.5L10.4 10H5.6l-1.2 1.4a1.8 1.8 0 0 "
             "1-3.1-1.5l.6-3.1a3 3 0 0 1 2.9-2.3zM5.2 6.4v2M4.2 7.4h2M10.6 6.8h.01M11.6 8h.01"},
    {"presentation", "M2.6 3h10.8a.9.9 0 0 1 .9.9v6.2a.9.9 0 0 1-.9.9H2.6a.9.9 0 0 1-.9-.9V3.9a.9.9 0 0 1 "
                     ".9-.9zM6.8 5.2v3.6L10 7zM5.2 13.6h5.6"},
};

// What the system calls a symbol like ours. The names of scenes' symbols are among them, so that each of
// these names belongs to one drawing.
constexpr std::pair<std::string_view, std::string_view> systemNames[] = {
    {"code", "chevron.left.forwardslash.chevron.right"},
    {"brain", "brain.head.profile"},
    {"brush", "paintbrush"},
    {"search", "magnifyingglass"},
    {"bubble", "bubble.left"},
    {"presentation", "play.rectangle"},
    {"pencil", "pencil"},
    {"envelope", "envelope"},
    {"note", "music.note"},
    {"broadcast", "dot.radiowaves.left.and.right"},
    {"phone", "video"},
    {"game", "gamecontroller"},
    {"briefcase", "briefcase"},
    {"house", "house"},
    {"scenes", "rectangle.3.group"},
    {"monitor", "display"},
    {"laptop", "laptopcomputer"},
    {"clock", "clock"},
    {"rules", "slider.horizontal.3"},
    {"gear", "gearshape"},
    {"pin", "pin"},
    {"dots", "ellipsis"},
    {"plus", "plus"},
    {"close", "xmark"},
    {"check", "checkmark"},
    {"warn", "exclamationmark.triangle"},
    {"info", "info.circle"},
    {"restore", "arrow.uturn.backward"},
    {"undo", "arrow.uturn.backward"},
    {"redo", "arrow.uturn.forward"},
    {"save", "square.and.arrow.down"},
    {"stash", "tray"},
    {"down", "chevron.down"},
    {"right", "chevron.right"},
    {"left", "chevron.left"},
    {"keyboard", "keyboard"},
    {"bolt", "bolt"},
    {"calendar", "calendar"},
    {"trash", "trash"},
    {"copy", "doc.on.doc"},
    {"folder", "folder"},
    {"power", "power"},
    {"play", "play"},
    {"window", "macwindow"},
    {"move", "arrow.right"},
    {"moon", "moon"},
    {"key", "key"},
    {"download", "arrow.down.to.line"},
    {"image", "photo"},
    {"none", "nosign"},
    {"eye", "eye"},
    {"shield", "shield"},
    {"lock", "lock"},
};

struct Mask {
    QImage image;
    // In units of the font's size.
    QSizeF size;
};

struct System {
    SystemSymbols* symbols = nullptr;
    // By our names; none for those that the system lacks.
    std::map<std::string, std::optional<Mask>, std::less<>> known;
};

System& system() {
    static System system;
    return system;
}

std::optional<Mask> readMask(SystemSymbols& symbols, std::string_view name) {
    const auto* const named =
        std::ranges::find(systemNames, name, &std::pair<std::string_view, std::string_view>::first);
    const auto picture =
        named == std::end(systemNames) ? std::nullopt : symbols.picture(std::string(named->second));
    if (!picture || picture->size.width <= 0 || picture->size.height <= 0) {
        return std::nullopt;
    }
    const auto image = QImage::fromData(QByteArray::fromStdString(picture->png), "PNG");
    return image.isNull() ? std::nullopt
                          : std::optional(Mask{image, {picture->size.width, picture->size.height}});
}

const std::optional<Mask>& mask(std::string_view name) {
    static const std::optional<Mask> none;
    if (system().symbols == nullptr) {
        return none;
    }
    if (const auto found = system().known.find(name); found != system().known.end()) {
        return found->second;
    }
    return system().known.emplace(name, readMask(*system().symbols, name)).first->second;
}

void paintMask(QPainter& painter, const Mask& mask, const QRectF& square, const QColor& color) {
    // Of the square's side: what the font has that suits our drawings.
    constexpr double share = 0.8;
    const double font = square.height() * std::min({share, 1 / mask.size.width(), 1 / mask.size.height()});
    QRectF place(QPointF(), mask.size * font);
    place.moveCenter(square.center());
    const double resolution = painter.deviceTransform().m22();
    const QSize pixels = (place.size() * std::abs(resolution)).toSize().expandedTo(QSize(1, 1));
    // Averages the pixels, which the painter itself would not do.
    QImage tinted = mask.image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter tint(&tinted);
    tint.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tint.fillRect(tinted.rect(), color);
    tint.end();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, tinted);
}

const QPainterPath& path(std::string_view name) {
    static std::map<std::string, QPainterPath, std::less<>> known;
    if (const auto found = known.find(name); found != known.end()) {
        return found->second;
    }
    const auto* const drawing =
        std::ranges::find(drawings, name, [](const auto& entry) { return std::string_view(entry.first); });
    return known.emplace(name, drawing == std::end(drawings) ? QPainterPath() : svgPath(drawing->second))
        .first->second;
}

class Engine final : public PaintedIconEngine {
public:
    Engine(std::string name, QPalette::ColorRole role) : m_name(std::move(name)), m_role(role) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : m_role;
        const double side = std::min(rect.width(), rect.height());
        const QRectF square(rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2, side,
                            side);
        Symbols::paint(*painter, m_name, square, QGuiApplication::palette().color(group, role));
    }

    [[nodiscard]] QIconEngine* clone() const override { return new Engine(m_name, m_role); }

private:
    std::string m_name;
    QPalette::ColorRole m_role;
};

} // namespace

void paint(QPainter& painter, std::string_view name, const QRectF& square, const QColor& color) {
    painter.save();
    if (const auto& shown = mask(name)) {
        paintMask(painter, *shown, square, color);
        painter.restore();
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.topLeft());
    painter.scale(square.width() / grid, square.height() / grid);
    // Dots are points with round ends.
    painter.setPen(QPen(color, name == "dots" ? 2 : stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path(name));
    painter.restore();
}

QIcon icon(std::string_view name, QPalette::ColorRole role) {
    return QIcon(new Engine(std::string(name), role));
}

bool exists(std::string_view name) {
    return !path(name).isEmpty();
}

std::string_view ofSystemSymbol(std::string_view name) {
    const auto* const found =
        std::ranges::find(systemNames, name, &std::pair<std::string_view, std::string_view>::second);
    return found == std::end(systemNames) ? "scenes" : found->first;
}

void useSystem(SystemSymbols* symbols) {
    system() = {.symbols = symbols, .known = {}};
}

} // namespace vantrel::Symbols
