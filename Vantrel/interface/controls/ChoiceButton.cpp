#include "Vantrel/interface/controls/ChoiceButton.h"

#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>

#include <algorithm>

namespace vantrel {

namespace {

constexpr double sidePadding = 12;
constexpr double topPadding = 6;
constexpr double radius = 6;
constexpr double narrowest = 200;

} // namespace

ChoiceButton::ChoiceButton(const QString& title, const QString& detail, QWidget* parent)
    : QRadioButton(title, parent), m_detail(detail) {
    setAccessibleDescription(detail);
    setAttribute(Qt::WA_Hover);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

int ChoiceButton::indent() const {
    return Metrics::points(*this, sidePadding) + style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth) +
           Metrics::points(*this, sidePadding);
}

QFont ChoiceButton::titleFont() const {
    return Metrics::scaled(font(), 1, QFont::Medium);
}

QFont ChoiceButton::detailFont() const {
    return Metrics::scaled(font(), 0.92, QFont::Normal);
}

int ChoiceButton::detailHeight(int width) const {
    const int room = std::max(1, width - indent() - Metrics::points(*this, sidePadding));
    return QFontMetrics(detailFont()).boundingRect(0, 0, room, 10000, Qt::TextWordWrap, m_detail).height();
}

int ChoiceButton::heightForWidth(int width) const {
    return 2 * Metrics::points(*this, topPadding) + QFontMetrics(titleFont()).height() + detailHeight(width);
}

QSize ChoiceButton::sizeHint() const {
    const int texts = std::max(QFontMetrics(titleFont()).horizontalAdvance(text()),
                               QFontMetrics(detailFont()).horizontalAdvance(m_detail));
    const int width = indent() + texts + Metrics::points(*this, sidePadding) + 2;
    return {width, heightForWidth(width)};
}

QSize ChoiceButton::minimumSizeHint() const {
    const int width = std::max(Metrics::points(*this, narrowest),
                               indent() + QFontMetrics(titleFont()).horizontalAdvance(text()) +
                                   Metrics::points(*this, sidePadding) + 2);
    return {width, heightForWidth(width)};
}

bool ChoiceButton::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void ChoiceButton::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isChecked() || underMouse()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isChecked() ? colors.selection : colors.hover);
        painter.drawRoundedRect(rect(), radius, radius);
    }
    const auto visual = [this](const QRect& place) {
        return QStyle::visualRect(layoutDirection(), rect(), place);
    };
    QStyleOptionButton option;
    initStyleOption(&option);
    const int side = style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, &option, this);
    option.rect = visual({Metrics::points(*this, sidePadding), (height() - side) / 2, side, side});
    style()->drawPrimitive(QStyle::PE_IndicatorRadioButton, &option, &painter, this);
    if (hasFocus() && option.state.testFlag(QStyle::State_KeyboardFocusChange)) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = rect().adjusted(2, 2, -2, -2);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
    const QRect area = rect().adjusted(indent(), Metrics::points(*this, topPadding),
                                       -Metrics::points(*this, sidePadding), 0);
    const auto leading = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignTop);
    painter.setFont(titleFont());
    painter.setPen(colors.text);
    painter.drawText(visual(area), static_cast<int>(leading), text());
    painter.setFont(detailFont());
    painter.setPen(colors.secondText);
    painter.drawText(visual(area.adjusted(0, QFontMetrics(titleFont()).height(), 0, 0)),
                     static_cast<int>(leading) | Qt::TextWordWrap, m_detail);
}

} // namespace vantrel
