#include "Vantrel/interface/desk/DeskView.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/desk/DeskAccessible.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace vantrel {

DeskView::DeskView(ApplicationLooks& looks, QWidget* parent) : QWidget(parent), m_looks(looks) {
    DeskAccessible::install();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    m_pictureWatch = m_looks.onPicturesChanged([this] { picturesChanged(); });
}

void DeskView::picturesChanged() {
    if (std::ranges::any_of(m_picture.windows, [](const auto& window) { return window.live.has_value(); })) {
        m_cache = {};
        update();
    }
}

void DeskView::show(const DeskPicture& picture) {
    if (picture == m_picture) {
        return;
    }
    const bool hasOtherDisplays = picture.displays != m_picture.displays;
    const bool hasOtherWindows = picture.windows.size() != m_picture.windows.size();
    m_picture = picture;
    m_order = DeskSpeech::order(m_picture);
    m_painter.reset();
    m_cache = {};
    if (hasOtherWindows) {
        m_emphasis = {};
    }
    // Setting the same name again would be read out again.
    if (const auto name = QString::fromStdString(DeskSpeech::desk(m_picture)); name != accessibleName()) {
        setAccessibleName(name);
    }
    if (hasOtherDisplays) {
        updateGeometry();
    }
    update();
}

void DeskView::setHighest(int height) {
    m_highest = height;
    updateGeometry();
}

int DeskView::heightForWidth(int width) const {
    return static_cast<int>(DeskPainter::heightFor(m_picture.displays, width, m_highest, font()));
}

QSize DeskView::sizeHint() const {
    constexpr int usualWidth = 348;
    return {usualWidth, heightForWidth(usualWidth)};
}

QSize DeskView::minimumSizeHint() const {
    return {120, 60};
}

DeskPainter& DeskView::painter() {
    if (!m_painter) {
        m_painter.emplace(m_picture, QSizeF(size()),
                          DeskPainter::Style{.palette = palette(),
                                             .font = font(),
                                             .isRightToLeft = layoutDirection() == Qt::RightToLeft},
                          m_looks);
    }
    return *m_painter;
}

AccessibleDrawing::Item DeskView::item(std::size_t place) {
    const std::size_t window = m_order[place];
    return {.name = qt(DeskSpeech::window(m_picture.windows[window], m_picture.displays)),
            .frame = frameOf(window),
            .isSelected = selectedWindow() == window};
}

QRect DeskView::frameOf(std::size_t window) {
    return painter().frameOf(window).toAlignedRect();
}

void DeskView::paintEvent(QPaintEvent* /*event*/) {
    const double ratio = devicePixelRatioF();
    if (m_cache.isNull() || m_cache.devicePixelRatio() != ratio) {
        m_cache = QPixmap(size() * ratio);
        m_cache.setDevicePixelRatio(ratio);
        m_cache.fill(Qt::transparent);
        QPainter canvas(&m_cache);
        painter().paint(canvas, m_emphasis);
    }
    QPainter(this).drawPixmap(0, 0, m_cache);
}

void DeskView::resizeEvent(QResizeEvent* /*event*/) {
    m_painter.reset();
    m_cache = {};
}

void DeskView::changeEvent(QEvent* event) {
    m_painter.reset();
    m_cache = {};
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        m_looks.forget();
        updateGeometry();
    }
    update();
    QWidget::changeEvent(event);
}

void DeskView::emphasise(const DeskPainter::Emphasis& emphasis) {
    if (m_emphasis != emphasis) {
        m_emphasis = emphasis;
        m_cache = {};
        update();
    }
}

void DeskView::select(std::optional<std::size_t> window) {
    emphasise({.lifted = m_emphasis.lifted, .selected = window});
    if (const auto at = std::ranges::find(m_order, window); window && at != m_order.end()) {
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(static_cast<int>(at - m_order.begin()));
        QAccessible::updateAccessibility(&event);
    }
}

void DeskView::lift(std::optional<std::size_t> window) {
    emphasise({.lifted = window, .selected = m_emphasis.selected});
}

void DeskView::walk(int step) {
    if (m_order.empty()) {
        return;
    }
    const auto last = static_cast<int>(m_order.size()) - 1;
    const auto at = std::ranges::find(m_order, m_emphasis.selected);
    const int next = at == m_order.end() ? 0 : static_cast<int>(at - m_order.begin()) + step;
    lift(std::nullopt);
    select(m_order[static_cast<std::size_t>(std::clamp(next, 0, last))]);
}

void DeskView::keyPressEvent(QKeyEvent* event) {
    const int forward = layoutDirection() == Qt::RightToLeft ? -1 : 1;
    const auto count = static_cast<int>(m_order.size());
    switch (event->key()) {
    case Qt::Key_Right:
        walk(forward);
        break;
    case Qt::Key_Left:
        walk(-forward);
        break;
    case Qt::Key_Down:
        walk(1);
        break;
    case Qt::Key_Up:
        walk(-1);
        break;
    case Qt::Key_Home:
        walk(-count);
        break;
    case Qt::Key_End:
        walk(count);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void DeskView::focusInEvent(QFocusEvent* event) {
    // A click does not begin a walk.
    if (event->reason() != Qt::MouseFocusReason && !m_emphasis.selected) {
        walk(0);
    }
    update();
}

void DeskView::focusOutEvent(QFocusEvent* /*event*/) {
    emphasise({.lifted = m_emphasis.lifted, .selected = std::nullopt});
}

void DeskView::mouseMoveEvent(QMouseEvent* event) {
    lift(painter().windowAt(event->position()));
}

void DeskView::leaveEvent(QEvent* /*event*/) {
    lift(std::nullopt);
}

QString DeskView::toolTipAt(QPointF point) {
    const auto line = [this](std::size_t window) {
        const auto& shown = m_picture.windows[window];
        return QString::fromStdString(shown.title.empty() ? shown.appName
                                                          : shown.appName + ": " + shown.title);
    };
    if (const auto window = painter().windowAt(point)) {
        return line(*window);
    }
    QStringList lines;
    if (const auto display = painter().hiddenListAt(point)) {
        for (const std::size_t window : painter().hiddenOn(*display)) {
            lines.append(line(window));
        }
    }
    return lines.join('\n');
}

bool DeskView::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), toolTipAt(help->pos()), this);
        return true;
    }
    return QWidget::event(event);
}

} // namespace vantrel
