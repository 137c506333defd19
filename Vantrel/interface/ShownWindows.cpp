#include "Vantrel/interface/ShownWindows.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <utility>

namespace vantrel {

namespace {

bool takesKeyboard(const QWidget& widget) {
    const auto type = widget.windowType();
    return widget.isWindow() && !widget.windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus) &&
           (type == Qt::Window || type == Qt::Dialog || type == Qt::Sheet || type == Qt::Tool);
}

} // namespace

ShownWindows::ShownWindows(Handlers handlers) : m_handlers(std::move(handlers)) {
    qApp->installEventFilter(this);
}

bool ShownWindows::eventFilter(QObject* watched, QEvent* event) {
    const bool isShow = event->type() == QEvent::Show;
    // Minimising a window also hides it, but that comes from the system.
    if ((isShow || event->type() == QEvent::Hide) && !event->spontaneous() && watched->isWidgetType() &&
        takesKeyboard(*static_cast<QWidget*>(watched))) {
        if (!isShow) {
            remove(watched);
        } else if (m_shown.insert(watched).second) {
            connect(watched, &QObject::destroyed, this, [this](const QObject* gone) { remove(gone); });
            m_handlers.shown();
        }
    }
    return QObject::eventFilter(watched, event);
}

void ShownWindows::remove(const QObject* window) {
    if (m_shown.erase(window) != 0 && m_shown.empty()) {
        m_handlers.lastClosed();
    }
}

} // namespace vantrel
