// What the pointer does on the canvas.
#include "Vantrel/interface/editor/EditorCanvas.h"

#include "Vantrel/interface/lists/ListRowsModel.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QMouseEvent>

#include <algorithm>
#include <limits>
#include <ranges>
#include <utility>

namespace vantrel {

namespace {

using Edges = SnapEngine::ResizeEdges;

constexpr double handleSide = 8;
constexpr double handleReach = 6;
// How far a pressed button must move for a drag, so that a click moves nothing.
constexpr double dragStart = 3;
// Identities of boxes that are dragged in; the draft counts its own up from 1.
constexpr EditorCanvas::BoxID firstIncoming = std::numeric_limits<EditorCanvas::BoxID>::max() / 2;

Point plain(QPointF point) {
    return {point.x(), point.y()};
}

Qt::CursorShape cursorOf(Edges edges) {
    const bool isAcross = edges.contains(Edges::left) || edges.contains(Edges::right);
    const bool isDown = edges.contains(Edges::top) || edges.contains(Edges::bottom);
    if (isAcross && isDown) {
        const bool isFalling = edges == (Edges::left | Edges::top) || edges == (Edges::right | Edges::bottom);
        return isFalling ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
    }
    return isAcross ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

} // namespace

std::vector<EditorCanvas::Handle> EditorCanvas::handles() {
    if (m_selection.size() != 1 || m_isReadOnly) {
        return {};
    }
    const QRectF frame = shownFrame(*m_selection.begin());
    const double side = length(handleSide);
    const auto at = [&](Edges edges, double x, double y) {
        return Handle{edges, QRectF(x - side / 2, y - side / 2, side, side)};
    };
    const QPointF centre = frame.center();
    return {at(Edges::left | Edges::top, frame.left(), frame.top()),
            at(Edges::right | Edges::top, frame.right(), frame.top()),
            at(Edges::left | Edges::bottom, frame.left(), frame.bottom()),
            at(Edges::right | Edges::bottom, frame.right(), frame.bottom()),
            at(Edges::top, centre.x(), frame.top()),
            at(Edges::bottom, centre.x(), frame.bottom()),
            at(Edges::left, frame.left(), centre.y()),
            at(Edges::right, frame.right(), centre.y())};
}

std::optional<Edges> EditorCanvas::edgesAt(QPointF point) {
    for (const Handle& handle : handles()) {
        const double more = length(handleReach) - handle.frame.width() / 2;
        if (handle.frame.adjusted(-more, -more, more, more).contains(point)) {
            return handle.edges;
        }
    }
    return std::nullopt;
}

EditorDrag::Scenery EditorCanvas::scenery() {
    m_others.clear();
    for (const auto& box : m_draft->boxes()) {
        if (!m_drag->before.contains(box.id)) {
            m_others.push_back(box.record.frame);
        }
    }
    return {painter().geometry(), m_draft->displays(), m_others};
}

void EditorCanvas::begin(QPointF from, BoxID held, const std::set<BoxID>& boxes, Edges edges) {
    EditorDrag drag{.start = plain(from), .before = {}, .held = held, .edges = edges};
    for (const BoxID id : boxes) {
        drag.before[id] = record(id).frame;
    }
    if (m_draft->box(held) != nullptr) {
        drag.limits = m_draft->limits(held);
    }
    m_drag = std::move(drag);
    m_step = {m_drag->before};
    m_ground = {};
}

void EditorCanvas::begin(const Press& press) {
    if (!press.copies) {
        const bool isResize = press.edges.rawValue != 0;
        begin(press.point, press.box, isResize ? std::set{press.box} : m_selection, press.edges);
        return;
    }
    // The copies exist only once they are dropped.
    std::set<BoxID> copies;
    BoxID held = 0;
    for (const BoxID id : m_draft->stack() | std::views::reverse) {
        if (m_selection.contains(id)) {
            const BoxID copy = firstIncoming + copies.size();
            m_incoming[copy] = record(id);
            copies.insert(copy);
            held = id == press.box ? copy : held;
        }
    }
    begin(press.point, held, copies, {});
}

void EditorCanvas::drag(QPointF point, Qt::KeyboardModifiers keys) {
    m_pointer = point;
    m_step = m_drag->at(plain(point), scenery(), keys.testFlag(Qt::AltModifier));
    update();
    onDragged();
}

void EditorCanvas::endDrag(bool isDropped) {
    const auto frames = m_step.dropped();
    const bool hasMoved = isDropped && frames != m_drag->before;
    const auto incoming = std::exchange(m_incoming, {});
    m_drag.reset();
    m_press.reset();
    m_step = {};
    m_ground = {};
    if (isDropped && !incoming.empty()) {
        SceneDraft::Add add;
        for (auto [id, record] : incoming) {
            record.frame = frames.at(id);
            add.records.push_back(std::move(record));
        }
        const auto added = onCommand(add);
        select({added.begin(), added.end()});
    } else if (hasMoved) {
        onCommand(SceneDraft::Place{frames});
    }
    update();
    onDragged();
}

void EditorCanvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || m_draft == nullptr || m_drag) {
        return;
    }
    m_isReachedByKey = false;
    const QPointF point = event->position();
    if (const auto edges = edgesAt(point)) {
        m_press = Press{.point = point, .box = *m_selection.begin(), .edges = *edges};
        return;
    }
    const auto box = boxAt(point);
    const bool adds = event->modifiers().testFlag(Qt::ShiftModifier);
    if (!box) {
        m_band = Band{point, point, adds ? m_selection : std::set<BoxID>()};
        select(m_band->before);
        return;
    }
    if (adds) {
        auto selection = m_selection;
        if (!selection.insert(*box).second) {
            selection.erase(*box);
        }
        select(selection);
        return;
    }
    if (!m_selection.contains(*box)) {
        select({*box});
    }
    if (!m_isReadOnly) {
        m_press = Press{.point = point, .box = *box, .copies = event->modifiers().testFlag(Qt::AltModifier)};
    }
}

void EditorCanvas::mouseMoveEvent(QMouseEvent* event) {
    if (m_press && !m_drag && (event->position() - m_press->point).manhattanLength() >= length(dragStart)) {
        begin(*m_press);
    }
    if (m_drag) {
        drag(event->position(), event->modifiers());
    } else if (m_band) {
        drawBand(event->position());
    } else if (m_draft != nullptr && !m_press) {
        point(event->position());
    }
}

void EditorCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    m_press.reset();
    if (m_drag) {
        endDrag(true);
    }
    if (m_band) {
        m_band.reset();
        update();
    }
}

void EditorCanvas::drawBand(QPointF to) {
    m_band->to = to;
    auto inside = m_band->before;
    for (const auto& box : m_draft->boxes()) {
        if (m_band->frame().intersects(shownFrame(box.id))) {
            inside.insert(box.id);
        }
    }
    select(std::move(inside));
    update();
}

void EditorCanvas::point(QPointF point) {
    const auto edges = edgesAt(point);
    setCursor(edges ? cursorOf(*edges) : !m_isReadOnly && boxAt(point) ? Qt::SizeAllCursor : Qt::ArrowCursor);
}

void EditorCanvas::dragEnterEvent(QDragEnterEvent* event) {
    if (m_isReadOnly || m_draft == nullptr || m_drag ||
        !event->mimeData()->hasFormat(ListRowsModel::rowFormat)) {
        return;
    }
    const WindowRecord slot = newSlot(event->mimeData()->data(ListRowsModel::rowFormat).toStdString());
    if (slot.frame.isEmpty()) {
        return;
    }
    event->acceptProposedAction();
    m_incoming = {{firstIncoming, slot}};
    // Held in its middle.
    const Point middle = painter().geometry().toCanvas(slot.frame).center();
    begin({middle.x, middle.y}, firstIncoming, {firstIncoming}, {});
    drag(event->position(), event->modifiers());
}

void EditorCanvas::dragMoveEvent(QDragMoveEvent* event) {
    if (m_drag) {
        event->acceptProposedAction();
        drag(event->position(), event->modifiers());
    }
}

void EditorCanvas::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
    if (m_drag) {
        endDrag(false);
    }
}

void EditorCanvas::dropEvent(QDropEvent* event) {
    if (m_drag) {
        event->acceptProposedAction();
        endDrag(true);
        setFocus(Qt::MouseFocusReason);
    }
}

} // namespace vantrel
