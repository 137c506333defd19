#include "Vantrel/interface/lists/ListRowDelegate.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/lists/ListRowsModel.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace vantrel {

namespace {

constexpr double oneLine = 34;
constexpr double twoLines = 46;
constexpr double headingHeight = 32;
constexpr double inset = 10;
constexpr double symbolSide = 16;
constexpr double iconSide = 22;
constexpr double pinSide = 13;
constexpr double gap = 12;
constexpr double radius = 6;

QFont titleFont(const QFont& font) {
    return Metrics::scaled(font, 1, QFont::Medium);
}

QFont detailFont(const QFont& font) {
    return Metrics::scaled(font, 0.92, QFont::Normal);
}

QFont headingFont(const QFont& font) {
    return Metrics::scaled(font, 0.92, QFont::DemiBold);
}

const ListRow& rowOf(const QModelIndex& index) {
    return static_cast<const ListRowsModel*>(index.model())->row(index);
}

void drawText(QPainter& painter, const QRect& place, const std::string& text, Qt::LayoutDirection direction) {
    const QString shown = painter.fontMetrics().elidedText(qt(text), Qt::ElideRight, place.width());
    // The text keeps its own direction; otherwise, a leading number would move to the end.
    painter.setLayoutDirection(shown.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(place,
                     static_cast<int>(QStyle::visualAlignment(direction, Qt::AlignLeft)) | Qt::AlignVCenter |
                         Qt::TextSingleLine,
                     shown);
}

} // namespace

ListRowDelegate::ListRowDelegate(ApplicationLooks* looks, QObject* parent)
    : QStyledItemDelegate(parent), m_looks(looks) {}

QSize ListRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const ListRow& row = rowOf(index);
    const QFont& font = option.font;
    const bool isOneLine = row.detail.empty() || m_form == Form::table;
    const double height = row.kind == ListRow::Kind::heading ? headingHeight : isOneLine ? oneLine : twoLines;
    const int lines =
        QFontMetrics(titleFont(font)).height() + (isOneLine ? 0 : QFontMetrics(detailFont(font)).height());
    return {Metrics::points(font, 120), std::max(Metrics::points(font, height), lines + 4)};
}

ListRowDelegate::Places ListRowDelegate::places(const QStyleOptionViewItem& option,
                                                const ListRow& row) const {
    const auto points = [&](double length) { return Metrics::points(option.font, length); };
    Places places;
    places.ground = option.rect.adjusted(0, 1, 0, -1);
    const int side = points(row.bundleID.empty() ? symbolSide : iconSide);
    const bool hasSymbol = !row.symbol.empty() || !row.bundleID.empty();
    int left = option.rect.left() + points(inset);
    places.symbol = QRect(left, option.rect.center().y() - side / 2, hasSymbol ? side : 0, side);
    left += hasSymbol ? side + points(gap) : 0;
    if (m_form == Form::table) {
        placeColumns(places, option, row, left);
    } else {
        placeTexts(places, option, row, left);
    }
    for (QRect* const place :
         {&places.symbol, &places.title, &places.detail, &places.note, &places.noteSymbol, &places.pin}) {
        *place = QStyle::visualRect(option.direction, option.rect, *place);
    }
    return places;
}

void ListRowDelegate::placeTexts(Places& places, const QStyleOptionViewItem& option, const ListRow& row,
                                 int left) const {
    const auto points = [&](double length) { return Metrics::points(option.font, length); };
    int right = option.rect.right() + 1 - points(inset);
    const QFontMetrics notes(detailFont(option.font));
    if (!row.note.empty()) {
        const int width = notes.horizontalAdvance(qt(row.note)) + 2;
        right -= width;
        places.note = QRect(right, option.rect.top(), width, option.rect.height());
        right -= points(8);
    }
    if (row.isPinned) {
        const int pin = points(pinSide);
        right -= pin;
        places.pin = QRect(right, option.rect.center().y() - pin / 2, pin, pin);
        right -= points(8);
    }
    const int titleHeight = QFontMetrics(titleFont(option.font)).height();
    const int detailHeight = row.detail.empty() ? 0 : QFontMetrics(detailFont(option.font)).height();
    const int top = option.rect.top() + (option.rect.height() - titleHeight - detailHeight) / 2;
    places.title = QRect(left, top, std::max(0, right - left), titleHeight);
    places.detail = QRect(left, top + titleHeight, std::max(0, right - left), detailHeight);
}

void ListRowDelegate::placeColumns(Places& places, const QStyleOptionViewItem& option, const ListRow& row,
                                   int left) const {
    const auto points = [&](double length) { return Metrics::points(option.font, length); };
    constexpr double ofTitle = 0.24;
    constexpr double ofDetail = 0.33;
    const QRect& area = option.rect;
    const int room = area.right() + 1 - points(inset) - left;
    const auto column = [&](int from, double share) {
        return QRect(from, area.top(), static_cast<int>(room * share) - points(8), area.height());
    };
    places.title = column(left, ofTitle);
    places.detail = column(left + static_cast<int>(room * ofTitle), ofDetail);
    int from = left + static_cast<int>(room * (ofTitle + ofDetail));
    if (!row.noteSymbol.empty()) {
        const int side = points(symbolSide);
        places.noteSymbol = QRect(from, area.center().y() - side / 2, side, side);
        from += side + points(8);
    }
    places.note = QRect(from, area.top(), std::max(0, area.right() + 1 - from), area.height());
}

void ListRowDelegate::paintHeading(QPainter& painter, const QStyleOptionViewItem& option,
                                   const ListRow& row) const {
    const int side = Metrics::points(option.font, inset);
    painter.setFont(headingFont(option.font));
    painter.setPen(DeskColors::of(option.palette).secondText);
    drawText(painter, option.rect.adjusted(side, Metrics::points(option.font, 8), -side, 0), row.title,
             option.direction);
}

void ListRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    const ListRow& row = rowOf(index);
    const auto colors = DeskColors::of(option.palette);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (row.kind == ListRow::Kind::heading) {
        paintHeading(*painter, option, row);
        painter->restore();
        return;
    }
    const Places places = this->places(option, row);
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    if (isSelected || option.state.testFlag(QStyle::State_MouseOver)) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(isSelected ? colors.selection : colors.hover);
        painter->drawRoundedRect(places.ground, radius, radius);
    }
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(QPen(colors.accent, 2));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(places.ground).adjusted(1, 1, -1, -1), radius, radius);
    }
    const bool isWarning = row.tone == ListRow::Tone::warning;
    if (!row.bundleID.empty() && m_looks != nullptr) {
        m_looks->of(row.bundleID, row.title).icon.paint(painter, places.symbol);
    } else {
        const QColor strong = m_hasStrongSelection && isSelected ? colors.text : colors.secondText;
        Symbols::paint(*painter, row.symbol, places.symbol,
                       isWarning                           ? colors.warning
                       : row.tone == ListRow::Tone::accent ? colors.accent
                                                           : strong);
    }
    painter->setFont(m_hasStrongSelection
                         ? Metrics::scaled(option.font, 1, isSelected ? QFont::DemiBold : QFont::Normal)
                         : titleFont(option.font));
    painter->setPen(colors.text);
    drawText(*painter, places.title, row.title, option.direction);
    const bool isTable = m_form == Form::table;
    const QColor warning = isWarning ? colors.warning : colors.secondText;
    painter->setFont(isTable ? option.font : detailFont(option.font));
    painter->setPen(isTable ? colors.secondText : warning);
    drawText(*painter, places.detail, row.detail, option.direction);
    const QColor noted = row.tone == ListRow::Tone::accent ? colors.accent : warning;
    painter->setPen(isTable ? noted : colors.secondText);
    drawText(*painter, places.note, row.note, option.direction);
    if (!row.noteSymbol.empty()) {
        Symbols::paint(*painter, row.noteSymbol, places.noteSymbol, noted);
    }
    if (isTable) {
        painter->fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1),
                          colors.hairline);
    }
    if (row.isPinned) {
        Symbols::paint(*painter, "pin", places.pin, colors.secondText);
    }
    painter->restore();
}

// Elided text gets a tooltip with the full text.
bool ListRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid()) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    const ListRow& row = rowOf(index);
    const Places places = this->places(option, row);
    QStringList lines;
    if (QFontMetrics(titleFont(option.font)).horizontalAdvance(qt(row.title)) > places.title.width()) {
        lines.append(qt(row.title));
    }
    if (QFontMetrics(detailFont(option.font)).horizontalAdvance(qt(row.detail)) > places.detail.width()) {
        lines.append(qt(row.detail));
    }
    if (QFontMetrics(detailFont(option.font)).horizontalAdvance(qt(row.note)) > places.note.width()) {
        lines.append(qt(row.note));
    }
    QToolTip::showText(event->globalPos(), lines.join('\n'), view);
    return true;
}

} // namespace vantrel
