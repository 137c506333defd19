// What the keyboard does on the canvas.
#include "Vantrel/interface/editor/EditorCanvas.h"

#include "VantrelCore/displays/DisplayLabels.h"

#include <QKeyEvent>

#include <algorithm>

namespace vantrel {

namespace {

// Where an arrow key leads; none for other keys.
std::optional<Point> direction(int key) {
    switch (key) {
    case Qt::Key_Left:
        return Point{-1, 0};
    case Qt::Key_Right:
        return Point{1, 0};
    case Qt::Key_Up:
        return Point{0, -1};
    case Qt::Key_Down:
        return Point{0, 1};
    default:
        return std::nullopt;
    }
}

} // namespace

void EditorCanvas::nudge(Point by, bool resizes) {
    std::map<BoxID, Rect> frames;
    for (const BoxID id : m_selection) {
        Rect frame = record(id).frame;
        if (resizes) {
            frame.size.width = std::max(SnapEngine::minBoxSize, frame.width() + by.x);
            frame.size.height = std::max(SnapEngine::minBoxSize, frame.height() + by.y);
        } else {
            frame.origin.x += by.x;
            frame.origin.y += by.y;
        }
        frames[id] = frame;
    }
    if (!frames.empty()) {
        onCommand(SceneDraft::Place{frames});
    }
}

void EditorCanvas::walk(int step) {
    const auto order = DeskSpeech::order(picture(true));
    const auto stack = m_draft->stack();
    if (order.empty()) {
        return;
    }
    std::ptrdiff_t at = step > 0 ? -1 : std::ssize(order);
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (m_selection.contains(stack[order[i]])) {
            at = static_cast<std::ptrdiff_t>(i);
        }
    }
    const auto next = std::clamp<std::ptrdiff_t>(at + step, 0, std::ssize(order) - 1);
    select({stack[order[static_cast<std::size_t>(next)]]});
}

bool EditorCanvas::event(QEvent* event) {
    // Tab walks the boxes, and leaves the canvas after the last one.
    if (event->type() == QEvent::KeyPress && m_draft != nullptr) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
            const auto before = m_selection;
            walk(key == Qt::Key_Tab ? 1 : -1);
            if (m_selection != before) {
                return true;
            }
        }
    }
    return QWidget::event(event);
}

void EditorCanvas::keyPressEvent(QKeyEvent* event) {
    if (m_draft == nullptr) {
        return;
    }
    const bool hasControl = event->modifiers().testFlag(Qt::ControlModifier);
    if (m_drag && event->key() == Qt::Key_Alt) {
        drag(m_pointer, Qt::AltModifier);
    } else if (event->key() == Qt::Key_Escape && (m_drag || !m_selection.empty())) {
        m_isReachedByKey = true;
        m_drag ? endDrag(false) : select({});
    } else if (hasControl && event->key() == Qt::Key_A) {
        selectAll();
    } else if (m_drag || m_isReadOnly || !command(*event)) {
        QWidget::keyPressEvent(event);
    }
}

void EditorCanvas::keyReleaseEvent(QKeyEvent* event) {
    if (m_drag && event->key() == Qt::Key_Alt) {
        drag(m_pointer, {});
    } else {
        QWidget::keyReleaseEvent(event);
    }
}

bool EditorCanvas::command(const QKeyEvent& event) {
    using Step = SceneDraft::Order::Step;
    const bool hasControl = event.modifiers().testFlag(Qt::ControlModifier);
    const bool hasShift = event.modifiers().testFlag(Qt::ShiftModifier);
    if (const auto towards = direction(event.key())) {
        const double by = hasShift ? 10 : 1;
        nudge({towards->x * by, towards->y * by}, hasControl);
        return true;
    }
    switch (event.key()) {
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: {
        const bool isUp = event.key() == Qt::Key_PageUp;
        if (m_selection.size() == 1) {
            const auto step =
                hasControl ? (isUp ? Step::toFront : Step::toBack) : (isUp ? Step::forward : Step::backward);
            onCommand(SceneDraft::Order{*m_selection.begin(), step});
        }
        return true;
    }
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (!m_selection.empty()) {
            onCommand(SceneDraft::Remove{m_selection});
        }
        return true;
    case Qt::Key_D:
        if (hasControl && !m_selection.empty()) {
            const auto copies = onCommand(SceneDraft::Duplicate{m_selection});
            select({copies.begin(), copies.end()});
        }
        return hasControl;
    case Qt::Key_Z:
        if (hasControl) {
            hasShift ? onRedo() : onUndo();
        }
        return hasControl;
    default:
        return false;
    }
}

void EditorCanvas::focusInEvent(QFocusEvent* event) {
    const bool isByTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    m_isReachedByKey = isByTab;
    if (isByTab && m_draft != nullptr && m_selection.empty()) {
        walk(event->reason() == Qt::BacktabFocusReason ? -1 : 1);
    }
    update();
    QWidget::focusInEvent(event);
}

void EditorCanvas::focusOutEvent(QFocusEvent* event) {
    update();
    QWidget::focusOutEvent(event);
}

} // namespace vantrel
