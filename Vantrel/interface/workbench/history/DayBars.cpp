#include "Vantrel/interface/workbench/history/DayBars.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace vantrel {

DayBars::DayBars(QWidget* parent) : QWidget(parent) {
    setFixedHeight(Metrics::points(*this, 38));
}

void DayBars::show(const std::vector<std::int64_t>& days, const QString& text) {
    if (days != m_days) {
        m_days = days;
        update();
    }
    setAccessibleName(text);
}

QRectF DayBars::column(std::size_t day) const {
    const double width = static_cast<double>(this->width()) / static_cast<double>(m_days.size());
    const QRectF column(static_cast<double>(day) * width, 0, width, height());
    return layoutDirection() == Qt::RightToLeft ? QRectF(this->width() - column.right(), 0, width, height())
                                                : column;
}

void DayBars::paintEvent(QPaintEvent* /*event*/) {
    if (m_days.empty()) {
        return;
    }
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const auto most = static_cast<double>(std::max<std::int64_t>(1, *std::ranges::max_element(m_days)));
    for (std::size_t day = 0; day < m_days.size(); ++day) {
        // A day without restores still shows a line, so that days can be counted.
        constexpr double least = 2;
        const double full = std::max(least, height() * static_cast<double>(m_days[day]) / most);
        const QRectF room = column(day);
        const double gap = room.width() * 0.2;
        const QRectF bar(room.left() + gap, height() - full, room.width() - 2 * gap, full);
        const bool isToday = day + 1 == m_days.size();
        painter.setBrush(isToday           ? colors.accent
                         : m_days[day] > 0 ? DeskColors::mix(colors.base, colors.text, 0.42)
                                           : DeskColors::mix(colors.base, colors.text, 0.2));
        painter.drawRoundedRect(bar, 1, 1);
    }
}

bool DayBars::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        QString text;
        for (std::size_t day = 0; day < m_days.size(); ++day) {
            if (column(day).contains(help->pos())) {
                const auto age = static_cast<int>(m_days.size() - 1 - day);
                text = (age == 0   ? qtr("Today: %1")
                        : age == 1 ? qtr("Yesterday: %1")
                                   : qtr("%2 days ago: %1"))
                           .arg(m_days[day]);
                text = text.contains("%2") ? text.arg(age) : text;
            }
        }
        QToolTip::showText(help->globalPos(), text, this);
        return true;
    }
    return QWidget::event(event);
}

} // namespace vantrel
