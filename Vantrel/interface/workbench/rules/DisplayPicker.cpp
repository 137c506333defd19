#include "Vantrel/interface/workbench/rules/DisplayPicker.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/symbols/Symbols.h"
#include "VantrelCore/studio/CanvasGeometry.h"

#include <QAbstractButton>
#include <QPainter>

#include <algorithm>

namespace vantrel {

namespace {

constexpr double widest = 104;
constexpr double highest = 40;
constexpr double smallestTile = 16;

} // namespace

class DisplayPicker::Tile final : public QAbstractButton {
public:
    explicit Tile(QWidget* parent) : QAbstractButton(parent) {
        setCheckable(true);
        setFocusPolicy(Qt::StrongFocus);
        setCursor(Qt::PointingHandCursor);
    }

    std::string uuid;

    [[nodiscard]] QSize sizeHint() const override { return size(); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const auto colors = DeskColors::of(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF body = QRectF(rect()).adjusted(3, 3, -3, -3);
        painter.setPen(QPen(isChecked() ? palette().color(QPalette::Highlight) : colors.rim, 1.5));
        painter.setBrush(isChecked()    ? palette().color(QPalette::Highlight)
                         : underMouse() ? colors.selection
                                        : colors.panel);
        painter.drawRoundedRect(body, 3, 3);
        if (isChecked()) {
            const double side = std::min({body.width(), body.height(), 14.0});
            const QRectF square(body.center() - QPointF(side / 2, side / 2), QSizeF(side, side));
            Symbols::paint(painter, "check", square, palette().color(QPalette::HighlightedText));
        }
        if (hasFocus()) {
            painter.setPen(QPen(colors.accent, 1.5));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(QRectF(rect()).adjusted(0.75, 0.75, -0.75, -0.75), 5, 5);
        }
    }
    void enterEvent(QEnterEvent* /*event*/) override { update(); }
    void leaveEvent(QEvent* /*event*/) override { update(); }
};

DisplayPicker::DisplayPicker(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize DisplayPicker::sizeHint() const {
    return {Metrics::points(*this, widest), Metrics::points(*this, highest)};
}

void DisplayPicker::show(const QString& subject, const std::vector<DisplayInfo>& displays,
                         const std::string& chosen) {
    const bool isSame = m_displays == displays;
    if (!isSame) {
        for (Tile* const tile : m_tiles) {
            delete tile;
        }
        m_tiles.clear();
        m_displays = displays;
        for (const DisplayInfo& display : displays) {
            auto* const tile = m_tiles.emplace_back(new Tile(this));
            tile->uuid = display.uuid;
            connect(tile, &QAbstractButton::clicked, this, [this, uuid = display.uuid] { onChosen(uuid); });
            tile->show();
        }
        place();
    }
    for (std::size_t i = 0; i < m_tiles.size(); ++i) {
        Tile& tile = *m_tiles[i];
        tile.setChecked(tile.uuid == chosen);
        tile.setAccessibleName(qt(trf("Keep {} on {}", subject.toStdString(), displays[i].name)));
        tile.setToolTip(qt(displays[i].name));
    }
}

void DisplayPicker::place() {
    const CanvasGeometry geometry(m_displays, {static_cast<double>(width()), static_cast<double>(height())},
                                  {.gap = 2, .margin = 0, .labelHeight = 0});
    const double smallest = Metrics::points(*this, smallestTile);
    for (std::size_t i = 0; i < m_tiles.size(); ++i) {
        const Rect& frame = geometry.regions()[i].frame;
        QRectF tile(frame.origin.x, frame.origin.y, frame.width(), frame.height());
        // Even a very small display must be large enough to click.
        const double wider = std::max(0.0, smallest - tile.width()) / 2;
        const double higher = std::max(0.0, smallest - tile.height()) / 2;
        tile.adjust(-wider, -higher, wider, higher);
        m_tiles[i]->setGeometry(tile.toAlignedRect().intersected(rect()));
    }
}

void DisplayPicker::resizeEvent(QResizeEvent* /*event*/) {
    place();
}

QAbstractButton* DisplayPicker::buttonFor(const std::string& uuid) const {
    const auto found = std::ranges::find_if(m_tiles, [&](const Tile* tile) { return tile->uuid == uuid; });
    return found == m_tiles.end() ? nullptr : *found;
}

} // namespace vantrel
