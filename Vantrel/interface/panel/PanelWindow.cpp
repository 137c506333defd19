#include "Vantrel/interface/panel/PanelWindow.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/desk/DeskColors.h"

#include <QApplication>
#include <QBitmap>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace vantrel {

namespace {

constexpr double radius = 12;
// Between the popover and the icon or the edge of the screen.
constexpr int distance = 6;

Qt::WindowFlags flagsFor(PanelWindow::Kind kind) {
    return kind == PanelWindow::Kind::popover
               ? Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::NoDropShadowWindowHint
               : Qt::Window | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::WindowMinimizeButtonHint;
}

} // namespace

PanelWindow::PanelWindow(ApplicationLooks& looks, PanelActions actions, Kind kind)
    : QWidget(nullptr, flagsFor(kind)), m_kind(kind), m_view(new PanelView(looks, std::move(actions), this)) {
    setWindowTitle("Vantrel");
    if (kind == Kind::popover) {
        setAttribute(Qt::WA_TranslucentBackground);
    }
    auto* const layout = new QVBoxLayout(this);
    const int edge = kind == Kind::popover ? 1 : 0;
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->addWidget(m_view);
    m_view->onHeightChanged = [this] {
        if (isVisible()) {
            fit();
        }
    };
}

void PanelWindow::open(const QRect& anchor) {
    m_anchor = anchor;
    fit();
    m_view->focusMainButton();
    show();
    raise();
    activateWindow();
}

void PanelWindow::fit() {
    const QScreen* screen = QApplication::screenAt(m_anchor.center());
    screen = screen != nullptr ? screen : QApplication::primaryScreen();
    const QRect area = screen->availableGeometry().adjusted(distance, distance, -distance, -distance);
    const int edge = m_kind == Kind::popover ? 2 : 0;
    const int full = m_view->fullHeight() + edge;
    const int height = std::min(full, area.height());
    m_view->setScrolling(full > height);
    if (const QSize wanted(m_view->QWidget::width() + edge, height); wanted != size()) {
        setFixedSize(wanted);
    }
    if (m_kind == Kind::popover) {
        move(cornerFor(m_anchor, area));
    }
}

// Below the icon of a panel at the top, above that of one at the bottom, beside that of one at a side.
QPoint PanelWindow::cornerFor(const QRect& anchor, const QRect& area) const {
    QPoint corner(anchor.center().x() - QWidget::width() / 2, anchor.bottom() + distance);
    if (anchor.center().y() > area.center().y()) {
        corner.setY(anchor.top() - distance - height());
    }
    return {std::clamp(corner.x(), area.left(), std::max(area.left(), area.right() + 1 - QWidget::width())),
            std::clamp(corner.y(), area.top(), std::max(area.top(), area.bottom() + 1 - height()))};
}

bool PanelWindow::event(QEvent* event) {
    // A click elsewhere or another window; our own menus do not count.
    if (event->type() == QEvent::WindowDeactivate && m_kind == Kind::popover && isVisible() &&
        QApplication::activePopupWidget() == nullptr && QApplication::activeModalWidget() == nullptr) {
        close();
    }
    return QWidget::event(event);
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void PanelWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    // Saves what is being edited.
    if (QWidget* const focus = focusWidget()) {
        focus->clearFocus();
    }
    std::exchange(onClosed, [] {})();
}

void PanelWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    shape();
}

// Without a compositor, transparent pixels would be black, so a mask removes them.
void PanelWindow::shape() {
    if (m_kind != Kind::popover) {
        return;
    }
    QBitmap mask(size());
    mask.clear();
    QPainter painter(&mask);
    painter.setPen(Qt::color1);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(rect().adjusted(0, 0, -1, -1), radius, radius);
    painter.end();
    setMask(mask);
}

void PanelWindow::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    if (m_kind == Kind::window) {
        painter.fillRect(rect(), colors.window);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(DeskColors::mix(colors.window, colors.text, colors.isDark ? 0.2 : 0.22), 1));
    painter.setBrush(colors.window);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

} // namespace vantrel
