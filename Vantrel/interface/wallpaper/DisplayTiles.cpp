#include "Vantrel/interface/wallpaper/DisplayTiles.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/symbols/Symbols.h"
#include "VantrelCore/studio/CanvasGeometry.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <optional>

namespace vantrel {

namespace {

constexpr double highest = 92;
constexpr double widest = 196;
// Around a display, for the ring of the chosen one.
constexpr int ring = 5;
constexpr double radius = 4;
// The foot of a built-in display, below it.
constexpr int foot = 6;

} // namespace

class DisplayTiles::Tile final : public QAbstractButton {
public:
    Tile(Thumbnails* thumbnails, DisplayTiles& parent)
        : QAbstractButton(&parent), m_thumbnails(thumbnails), m_owner(parent) {
        setCheckable(true);
        setAutoExclusive(false);
        setFocusPolicy(Qt::StrongFocus);
        setCursor(Qt::PointingHandCursor);
    }

    void show(const WallpaperContent::Display& display, bool isChosen) {
        const bool isOther = display.path != m_display.path;
        m_display = display;
        setChecked(isChosen);
        const QString name = qt(display.info.name);
        setAccessibleName(display.path.empty() ? name : name + ", " + qt(display.name));
        setToolTip(name);
        if (isOther) {
            m_found.reset();
            m_request.reset();
            m_asked = {};
        }
        update();
    }

    [[nodiscard]] const FileThumbnail* found() const { return m_found ? &*m_found : nullptr; }
    [[nodiscard]] const std::string& uuid() const { return m_display.info.uuid; }
    [[nodiscard]] QSize sizeHint() const override { return size(); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const QRectF body =
            QRectF(rect()).adjusted(ring, ring, -ring, m_display.info.isBuiltin ? -ring - foot : -ring);
        load(body.size().toSize() * devicePixelRatioF());
        const auto colors = DeskColors::of(palette());
        QPainter painter(this);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        QPainterPath shape;
        shape.addRoundedRect(body, radius, radius);
        painter.fillPath(shape, underMouse() ? colors.selection : colors.panel);
        if (m_found && !m_found->image.isNull()) {
            painter.setClipPath(shape);
            painter.drawImage(body, m_found->image);
            painter.setClipping(false);
        } else if (!m_display.path.empty()) {
            const double side = std::min({body.width() / 2, body.height() / 2, 20.0});
            Symbols::paint(painter, m_found ? "warn" : "image",
                           QRectF(body.center() - QPointF(side / 2, side / 2), QSizeF(side, side)),
                           m_found ? colors.warning : colors.secondText);
        }
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colors.rim, 1.5));
        painter.drawPath(shape);
        if (m_display.info.isBuiltin) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(colors.rim);
            painter.drawRoundedRect(
                QRectF(body.left() - ring, body.bottom() + 2, body.width() + 2 * ring, 3.4), 1.7, 1.7);
        }
        if (isChecked() || hasFocus()) {
            painter.setBrush(Qt::NoBrush);
            painter.setPen(
                QPen(colors.accent, isChecked() ? 2.5 : 1.5, isChecked() ? Qt::SolidLine : Qt::DotLine));
            painter.drawRoundedRect(body.adjusted(-3.25, -3.25, 3.25, 3.25), radius + 3, radius + 3);
        }
        if (isChecked() && hasFocus()) {
            painter.setPen(QPen(colors.base, 1.5, Qt::DotLine));
            painter.drawRoundedRect(body.adjusted(1.5, 1.5, -1.5, -1.5), radius, radius);
        }
    }
    void enterEvent(QEnterEvent* /*event*/) override { update(); }
    void leaveEvent(QEvent* /*event*/) override { update(); }
    // Arrows walk the displays and choose them, as in a group of radio buttons.
    void keyPressEvent(QKeyEvent* event) override {
        const bool isBack = event->key() == Qt::Key_Left || event->key() == Qt::Key_Up;
        if (!isBack && event->key() != Qt::Key_Right && event->key() != Qt::Key_Down) {
            QAbstractButton::keyPressEvent(event);
            return;
        }
        const auto& all = m_owner.m_tiles;
        const auto at = std::ranges::find(all, this) - all.begin();
        const auto next = at + (isBack ? -1 : 1);
        if (next >= 0 && next < static_cast<std::ptrdiff_t>(all.size())) {
            Tile* const tile = all[static_cast<std::size_t>(next)];
            tile->setFocus(Qt::TabFocusReason);
            tile->click();
        }
    }

private:
    void load(QSize size) {
        if (m_thumbnails == nullptr || m_display.path.empty() || size.isEmpty() || size == m_asked) {
            return;
        }
        m_asked = size;
        m_request = m_thumbnails->request(m_display.path, size, [this](const FileThumbnail& found) {
            m_found = found;
            update();
            m_owner.onLoaded();
        });
    }

    Thumbnails* m_thumbnails;
    DisplayTiles& m_owner;
    WallpaperContent::Display m_display;
    std::optional<FileThumbnail> m_found;
    std::shared_ptr<void> m_request;
    // What was asked for last.
    QSize m_asked;
};

DisplayTiles::DisplayTiles(Thumbnails* thumbnails, QWidget* parent)
    : QWidget(parent), m_thumbnails(thumbnails) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize DisplayTiles::sizeHint() const {
    return {Metrics::points(*this, widest), Metrics::points(*this, highest)};
}

void DisplayTiles::show(const std::vector<WallpaperContent::Display>& displays, const std::string& chosen) {
    const bool hasSameDisplays = std::ranges::equal(
        displays, m_displays, {}, &WallpaperContent::Display::info, &WallpaperContent::Display::info);
    m_displays = displays;
    if (!hasSameDisplays) {
        for (Tile* const tile : m_tiles) {
            delete tile;
        }
        m_tiles.clear();
        for (const auto& display : displays) {
            auto* const tile = m_tiles.emplace_back(new Tile(m_thumbnails, *this));
            connect(tile, &QAbstractButton::clicked, this,
                    [this, uuid = display.info.uuid] { onChosen(uuid); });
            tile->QWidget::show();
        }
        setFocusProxy(m_tiles.empty() ? nullptr : m_tiles.front());
        place();
    }
    for (std::size_t i = 0; i < m_tiles.size(); ++i) {
        m_tiles[i]->show(displays[i], chosen.empty() || displays[i].info.uuid == chosen);
    }
}

const FileThumbnail* DisplayTiles::found(const std::string& uuid) const {
    const auto tile = std::ranges::find_if(m_tiles, [&](const Tile* each) { return each->uuid() == uuid; });
    return tile == m_tiles.end() ? nullptr : (*tile)->found();
}

void DisplayTiles::place() {
    std::vector<DisplayInfo> displays;
    std::ranges::transform(m_displays, std::back_inserter(displays), &WallpaperContent::Display::info);
    const CanvasGeometry geometry(displays, {static_cast<double>(width()), static_cast<double>(height())},
                                  {.gap = 2 * ring, .margin = ring, .labelHeight = foot});
    for (std::size_t i = 0; i < m_tiles.size(); ++i) {
        const Rect& frame = geometry.regions()[i].frame;
        const int below = m_displays[i].info.isBuiltin ? ring + foot : ring;
        m_tiles[i]->setGeometry(QRectF(frame.origin.x, frame.origin.y, frame.width(), frame.height())
                                    .toRect()
                                    .adjusted(-ring, -ring, ring, below));
    }
}

void DisplayTiles::resizeEvent(QResizeEvent* /*event*/) {
    place();
}

} // namespace vantrel
