#include "Vantrel/interface/workbench/desks/DeskCardDelegate.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskPainter.h"
#include "Vantrel/interface/lists/ListRowsModel.h"

#include <QPainter>
#include <QWidget>

namespace vantrel {

namespace {

constexpr double gap = 16;
constexpr double padding = 14;
constexpr double radius = 8;
// Size of the cache in bytes: about fifty cards at two pixels per point.
constexpr int keptBytes = 48 * 1024 * 1024;

void drawLine(QPainter& painter, const QRect& place, const std::string& text, Qt::LayoutDirection direction) {
    const QString shown = painter.fontMetrics().elidedText(qt(text), Qt::ElideRight, place.width());
    painter.setLayoutDirection(shown.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(
        place, static_cast<int>(QStyle::visualAlignment(direction, Qt::AlignLeft)) | Qt::AlignVCenter, shown);
}

} // namespace

DeskCardDelegate::DeskCardDelegate(ApplicationLooks& looks, Drawing drawing, QObject* parent)
    : QStyledItemDelegate(parent), m_looks(looks), m_drawing(std::move(drawing)), m_drawn(keptBytes) {}

void DeskCardDelegate::setCardSize(QSize size) {
    if (size != m_size) {
        m_size = size;
        forget();
    }
}

QSize DeskCardDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const {
    return m_size;
}

QPixmap DeskCardDelegate::drawn(const std::string& configID, QSize size,
                                const QStyleOptionViewItem& option) const {
    const double ratio = option.widget != nullptr ? option.widget->devicePixelRatioF() : 1;
    if (const QPixmap* const known = m_drawn.object(qt(configID));
        known != nullptr && known->deviceIndependentSize().toSize() == size &&
        known->devicePixelRatio() == ratio) {
        return *known;
    }
    auto* const pixmap = new QPixmap(size * ratio);
    pixmap->setDevicePixelRatio(ratio);
    pixmap->fill(Qt::transparent);
    QPainter painter(pixmap);
    DeskPainter(m_drawing(configID), QSizeF(size),
                DeskPainter::Style{.palette = option.palette,
                                   .font = option.font,
                                   .isRightToLeft = option.direction == Qt::RightToLeft,
                                   .hasLabels = false,
                                   .hasNames = false},
                m_looks)
        .paint(painter, {});
    painter.end();
    const QPixmap result = *pixmap;
    const auto bytes = static_cast<int>(4 * pixmap->width() * pixmap->height());
    m_drawn.insert(qt(configID), pixmap, bytes);
    return result;
}

void DeskCardDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const ListRow& row = static_cast<const ListRowsModel*>(index.model())->row(index);
    const auto colors = DeskColors::of(option.palette);
    const auto points = [&](double length) { return Metrics::points(option.font, length); };
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const int half = points(gap / 2);
    const QRect card = option.rect.adjusted(half, half, -half, -half);
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    painter->setPen(isSelected ? QPen(colors.accent, 2) : QPen(colors.hairline, 1));
    painter->setBrush(colors.base);
    painter->drawRoundedRect(QRectF(card).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    if (option.state.testFlag(QStyle::State_MouseOver)) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(colors.hover);
        painter->drawRoundedRect(QRectF(card).adjusted(1, 1, -1, -1), radius, radius);
    }
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(QPen(colors.accent, 1, Qt::DotLine));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(card).adjusted(3.5, 3.5, -3.5, -3.5), radius - 3, radius - 3);
    }
    const QFont titleFont = Metrics::scaled(option.font, 1, QFont::DemiBold);
    const QFont detailFont = Metrics::scaled(option.font, 0.92, QFont::Normal);
    const int titleHeight = QFontMetrics(titleFont).height();
    const int detailHeight = QFontMetrics(detailFont).height();
    const QRect inner = card.adjusted(points(padding), points(padding), -points(padding), -points(padding));
    const QRect drawing = inner.adjusted(0, 0, 0, -(titleHeight + detailHeight + points(10)));
    if (!drawing.isEmpty()) {
        painter->drawPixmap(drawing.topLeft(), drawn(row.id, drawing.size(), option));
    }
    painter->setFont(titleFont);
    painter->setPen(colors.text);
    drawLine(*painter,
             QRect(inner.left(), inner.bottom() + 1 - titleHeight - detailHeight, inner.width(), titleHeight),
             row.title, option.direction);
    painter->setFont(detailFont);
    painter->setPen(colors.secondText);
    drawLine(*painter, QRect(inner.left(), inner.bottom() + 1 - detailHeight, inner.width(), detailHeight),
             row.detail, option.direction);
    painter->restore();
}

} // namespace vantrel
