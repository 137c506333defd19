#include "Vantrel/interface/wallpaper/WallpaperTiles.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyledItemDelegate>

#include <algorithm>
#include <set>

namespace vantrel {

namespace {

using Found = FileThumbnail::State;

constexpr double imageWidth = 128;
constexpr double imageHeight = 72;
constexpr double gap = 12;
constexpr double rowGap = 14;
// Around the image, for the ring of a chosen one.
constexpr double ring = 5;
constexpr double radius = 6;
// Bytes of pixels that are kept: about 150 pictures at two pixels per point.
constexpr int keptBytes = 24 * 1024 * 1024;

QPixmap rounded(const QImage& image, double ratio, double corner) {
    QPixmap pixmap(image.size());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(image));
    painter.drawRoundedRect(QRectF(QPointF(), QSizeF(image.size())), corner * ratio, corner * ratio);
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

} // namespace

class WallpaperTiles::Model final : public QAbstractListModel {
public:
    explicit Model(const WallpaperTiles& view) : m_view(view) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_view.m_tiles.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        const auto& tile = m_view.m_tiles[static_cast<std::size_t>(index.row())];
        switch (role) {
        case Qt::DisplayRole:
            return qt(m_view.textOf(tile));
        case Qt::AccessibleTextRole:
            return tile.isChosen ? qtr("%1, chosen").arg(qt(m_view.textOf(tile))) : qt(m_view.textOf(tile));
        case Qt::ToolTipRole:
            return m_view.stateOf(tile.path) == Found::unreadable
                       ? qt(tile.path) + '\n' + qtr("There is no preview of this picture.")
                       : qt(tile.path);
        default:
            return {};
        }
    }

    // Before the tiles are replaced, and after.
    void beginOther() { beginResetModel(); }
    void endOther() { endResetModel(); }
    void changed(int row) { Q_EMIT dataChanged(index(row), index(row)); }

private:
    const WallpaperTiles& m_view;
};

class WallpaperTiles::Delegate final : public QStyledItemDelegate {
public:
    explicit Delegate(const WallpaperTiles& view) : m_view(view) {}

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                                 const QModelIndex& /*index*/) const override {
        return m_view.cell();
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const auto& tile = m_view.m_tiles[static_cast<std::size_t>(index.row())];
        const auto colors = DeskColors::of(option.palette);
        const auto points = [&](double length) { return Metrics::points(option.font, length); };
        const int inset = points(ring);
        const QRect image =
            QStyle::visualRect(option.direction, option.rect,
                               QRect(option.rect.topLeft() + QPoint(inset, inset), m_view.imageSize()));
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const auto* const loaded = m_view.m_loaded.object(qt(tile.path));
        const auto state = m_view.stateOf(tile.path);
        const int side = points(20);
        const QRect sign(image.center() - QPoint(side / 2, side / 2), QSize(side, side));
        if (loaded != nullptr) {
            painter->drawPixmap(image.topLeft(), loaded->pixmap);
        } else if (state == Found::gone) {
            painter->setPen(QPen(colors.secondText, 1.25, Qt::DashLine));
            painter->setBrush(Qt::NoBrush);
            painter->drawRoundedRect(QRectF(image).adjusted(0.6, 0.6, -0.6, -0.6), radius, radius);
            Symbols::paint(*painter, "image", sign, colors.secondText);
        } else {
            painter->setPen(Qt::NoPen);
            painter->setBrush(colors.ground);
            painter->drawRoundedRect(image, radius, radius);
            painter->setOpacity(state ? 1 : 0.5);
            Symbols::paint(*painter, state ? "warn" : "image", sign, colors.secondText);
            painter->setOpacity(1);
        }
        paintMarks(*painter, option, image, tile.isChosen, colors);
        paintName(*painter, option, image, tile, colors);
        painter->restore();
    }

private:
    static void paintMarks(QPainter& painter, const QStyleOptionViewItem& option, const QRect& image,
                           bool isChosen, const DeskColors& colors) {
        const auto points = [&](double length) { return Metrics::points(option.font, length); };
        const QRectF outer = QRectF(image).adjusted(-3.25, -3.25, 3.25, 3.25);
        painter.setBrush(Qt::NoBrush);
        if (option.state.testFlag(QStyle::State_HasFocus) && !isChosen) {
            painter.setPen(QPen(colors.accent, 1.5, Qt::DotLine));
            painter.drawRoundedRect(outer, radius + 3, radius + 3);
        } else if (option.state.testFlag(QStyle::State_MouseOver) && !isChosen) {
            painter.setPen(QPen(colors.rim, 1.5));
            painter.drawRoundedRect(outer, radius + 3, radius + 3);
        }
        if (!isChosen) {
            return;
        }
        painter.setPen(QPen(colors.accent, 2.5));
        painter.drawRoundedRect(outer, radius + 3, radius + 3);
        if (option.state.testFlag(QStyle::State_HasFocus)) {
            painter.setPen(QPen(colors.base, 1.5, Qt::DotLine));
            painter.drawRoundedRect(QRectF(image).adjusted(1, 1, -1, -1), radius, radius);
        }
        const int badge = points(20);
        const QRect place = QStyle::visualRect(option.direction, image,
                                               QRect(image.right() + 1 - badge - points(6),
                                                     image.bottom() + 1 - badge - points(6), badge, badge));
        painter.setPen(Qt::NoPen);
        painter.setBrush(option.palette.color(QPalette::Highlight));
        painter.drawEllipse(place);
        const int inside = points(13);
        Symbols::paint(painter, "check",
                       QRect(place.center() - QPoint(inside / 2, inside / 2), QSize(inside, inside)),
                       option.palette.color(QPalette::HighlightedText));
    }

    void paintName(QPainter& painter, const QStyleOptionViewItem& option, const QRect& image,
                   const WallpaperContent::Tile& tile, const DeskColors& colors) const {
        const auto points = [&](double length) { return Metrics::points(option.font, length); };
        const bool isGone = m_view.stateOf(tile.path) == Found::gone;
        const QFont font = Metrics::scaled(option.font, 0.92, tile.isChosen ? QFont::Medium : QFont::Normal);
        const QFontMetrics metrics(font);
        QRect line(image.left(), image.bottom() + 1 + points(6), image.width(), metrics.height());
        if (isGone) {
            const int side = points(12);
            const QRect sign = QStyle::visualRect(
                option.direction, line, QRect(line.left(), line.center().y() - side / 2, side, side));
            Symbols::paint(painter, "warn", sign, colors.warning);
            const int taken = side + points(4);
            line.adjust(option.direction == Qt::RightToLeft ? 0 : taken, 0,
                        option.direction == Qt::RightToLeft ? -taken : 0, 0);
        }
        painter.setFont(font);
        painter.setPen(isGone ? colors.warning : tile.isChosen ? colors.text : colors.secondText);
        painter.drawText(line,
                         static_cast<int>(QStyle::visualAlignment(option.direction, Qt::AlignLeft)) |
                             Qt::AlignVCenter | Qt::TextSingleLine,
                         metrics.elidedText(qt(m_view.textOf(tile)), Qt::ElideRight, line.width()));
    }

    const WallpaperTiles& m_view;
};

WallpaperTiles::WallpaperTiles(Thumbnails* thumbnails, QWidget* parent)
    : QListView(parent), m_thumbnails(thumbnails), m_model(std::make_unique<Model>(*this)),
      m_delegate(std::make_unique<Delegate>(*this)), m_loaded(keptBytes) {
    setModel(m_model.get());
    setItemDelegate(m_delegate.get());
    setFrameShape(QFrame::NoFrame);
    setFlow(QListView::LeftToRight);
    setWrapping(true);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_Hover);
    viewport()->setAutoFillBackground(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // Not `activated`, which on some desktops is a double click.
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
        onChosen(m_tiles[static_cast<std::size_t>(index.row())].path);
    });
}

WallpaperTiles::~WallpaperTiles() {
    setModel(nullptr);
}

QSize WallpaperTiles::imageSize() const {
    return {Metrics::points(*this, imageWidth), Metrics::points(*this, imageHeight)};
}

QSize WallpaperTiles::cell() const {
    const QFontMetrics name(Metrics::scaled(font(), 0.92, QFont::Medium));
    return imageSize() + QSize(Metrics::points(*this, gap), Metrics::points(*this, ring + 6 + rowGap - ring) +
                                                                name.height() + Metrics::points(*this, ring));
}

QSize WallpaperTiles::minimumSizeHint() const {
    return {cell().width() + 1, 0};
}

int WallpaperTiles::heightForWidth(int width) const {
    const int columns = std::max(1, (width - 1) / cell().width());
    return (static_cast<int>(m_tiles.size()) + columns - 1) / columns * cell().height();
}

void WallpaperTiles::fitHeight() {
    setFixedHeight(heightForWidth(width()));
}

void WallpaperTiles::show(const std::vector<WallpaperContent::Tile>& tiles) {
    const auto path = [](const WallpaperContent::Tile& tile) { return tile.path; };
    if (std::ranges::equal(tiles, m_tiles, {}, path, path)) {
        for (std::size_t i = 0; i < tiles.size(); ++i) {
            if (tiles[i] != m_tiles[i]) {
                m_tiles[i] = tiles[i];
                m_model->changed(static_cast<int>(i));
            }
        }
        return;
    }
    const int current = currentIndex().row();
    const std::string held = current >= 0 ? m_tiles[static_cast<std::size_t>(current)].path : "";
    m_model->beginOther();
    m_tiles = tiles;
    m_model->endOther();
    if (const auto same = std::ranges::find(m_tiles, held, path); same != m_tiles.end()) {
        setCurrentIndex(m_model->index(static_cast<int>(same - m_tiles.begin())));
    }
    fitHeight();
}

std::optional<Found> WallpaperTiles::stateOf(const std::string& path) const {
    if (const auto failed = m_failed.find(path); failed != m_failed.end()) {
        return failed->second;
    }
    return m_loaded.contains(qt(path)) ? std::optional(Found::picture) : std::nullopt;
}

std::string WallpaperTiles::textOf(const WallpaperContent::Tile& tile) const {
    return stateOf(tile.path) == Found::gone ? trf("{} is gone", tile.name) : tile.name;
}

void WallpaperTiles::load(const std::string& path) {
    if (m_thumbnails == nullptr || stateOf(path) || m_requests.contains(path)) {
        return;
    }
    m_requests[path] =
        m_thumbnails->request(path, imageSize() * devicePixelRatioF(),
                              [this, path](const FileThumbnail& thumbnail) { loaded(path, thumbnail); });
}

void WallpaperTiles::loaded(const std::string& path, const FileThumbnail& thumbnail) {
    m_requests.erase(path);
    if (thumbnail.state == Found::picture) {
        auto pixmap = rounded(thumbnail.image, devicePixelRatioF(), radius);
        const auto bytes = static_cast<int>(thumbnail.image.sizeInBytes());
        m_loaded.insert(qt(path), new Loaded{thumbnail.state, std::move(pixmap)}, bytes);
    } else {
        m_failed[path] = thumbnail.state;
    }
    const auto tile = std::ranges::find(m_tiles, path, &WallpaperContent::Tile::path);
    if (tile != m_tiles.end()) {
        m_model->changed(static_cast<int>(tile - m_tiles.begin()));
    }
    onLoaded();
}

// What can be seen, and a row more on either side. Nobody waits for the rest.
void WallpaperTiles::loadVisible() {
    const QRect seen = visibleRegion().boundingRect();
    if (seen.isEmpty() || m_tiles.empty()) {
        return;
    }
    const int columns = std::max(1, (width() - 1) / cell().width());
    const int rowHeight = cell().height();
    const int first = std::max(0, (seen.top() / rowHeight - 1) * columns);
    const int last = std::min(static_cast<int>(m_tiles.size()), (seen.bottom() / rowHeight + 2) * columns);
    std::set<std::string> wanted;
    for (int i = first; i < last; ++i) {
        wanted.insert(m_tiles[static_cast<std::size_t>(i)].path);
    }
    std::erase_if(m_requests, [&](const auto& request) { return !wanted.contains(request.first); });
    for (int i = first; i < last; ++i) {
        load(m_tiles[static_cast<std::size_t>(i)].path);
    }
}

void WallpaperTiles::paintEvent(QPaintEvent* event) {
    loadVisible();
    QListView::paintEvent(event);
}

void WallpaperTiles::resizeEvent(QResizeEvent* event) {
    QListView::resizeEvent(event);
    if (event->oldSize().width() != event->size().width()) {
        fitHeight();
    }
}

void WallpaperTiles::changeEvent(QEvent* event) {
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        m_requests.clear();
        m_loaded.clear();
        scheduleDelayedItemsLayout();
        fitHeight();
    }
}

void WallpaperTiles::keyPressEvent(QKeyEvent* event) {
    const bool chooses =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (chooses && currentIndex().isValid()) {
        onChosen(m_tiles[static_cast<std::size_t>(currentIndex().row())].path);
        return;
    }
    QListView::keyPressEvent(event);
}

void WallpaperTiles::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    if (current.isValid() && hasFocus()) {
        onReached(visualRect(current));
    }
}

void WallpaperTiles::focusInEvent(QFocusEvent* event) {
    QListView::focusInEvent(event);
    if (!currentIndex().isValid() && !m_tiles.empty()) {
        const auto chosen = std::ranges::find(m_tiles, true, &WallpaperContent::Tile::isChosen);
        const auto first = chosen == m_tiles.end() ? m_tiles.begin() : chosen;
        setCurrentIndex(m_model->index(static_cast<int>(first - m_tiles.begin())));
    }
    if (event->reason() != Qt::MouseFocusReason && currentIndex().isValid()) {
        onReached(visualRect(currentIndex()));
    }
}

} // namespace vantrel
