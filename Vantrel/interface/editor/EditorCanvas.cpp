#include "Vantrel/interface/editor/EditorCanvas.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskAccessible.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/studio/SizeLimit.h"

#include <QAccessible>

#include <algorithm>

namespace vantrel {

EditorCanvas::EditorCanvas(ApplicationLooks& looks, QWidget* parent) : QWidget(parent), m_looks(looks) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAcceptDrops(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
    DeskAccessible::install();
}

void EditorCanvas::show(SceneDraft& draft, bool isReadOnly) {
    m_draft = &draft;
    m_isReadOnly = isReadOnly;
    m_selection.clear();
    m_press.reset();
    m_drag.reset();
    m_incoming.clear();
    refresh();
}

void EditorCanvas::refresh() {
    std::erase_if(m_selection, [this](BoxID id) { return m_draft->box(id) == nullptr; });
    forget();
    setAccessibleName(qt(DeskSpeech::desk(picture(true))));
    announce();
    update();
    onChanged();
}

void EditorCanvas::forget() {
    m_painter.reset();
    m_ground = {};
}

double EditorCanvas::length(double points) const {
    return points * Metrics::points(*this, 100) / 100.0;
}

const WindowRecord& EditorCanvas::record(BoxID box) const {
    const auto incoming = m_incoming.find(box);
    return incoming != m_incoming.end() ? incoming->second : m_draft->box(box)->record;
}

DeskPicture::Window EditorCanvas::window(const WindowRecord& record, const Rect& frame) const {
    using State = DeskPicture::Window::State;
    return {.bundleID = record.bundleID,
            .appName = record.appName,
            .title = record.title,
            .frame = frame,
            .state = record.isGhost.value_or(false) ? State::notRunning : State::remembered};
}

DeskPicture EditorCanvas::picture(bool withDragged) const {
    DeskPicture picture{.displays = DisplayLabels::labelled(m_draft->displays()), .windows = {}};
    for (const BoxID id : m_draft->stack()) {
        if (withDragged || !m_drag || !m_drag->before.contains(id)) {
            const WindowRecord& record = m_draft->box(id)->record;
            picture.windows.push_back(window(record, record.frame));
        }
    }
    return picture;
}

DeskPainter EditorCanvas::painterOf(DeskPicture picture) const {
    return {std::move(picture), QSizeF(size()),
            DeskPainter::Style{
                .palette = palette(), .font = font(), .isRightToLeft = layoutDirection() == Qt::RightToLeft},
            m_looks};
}

DeskPainter& EditorCanvas::painter() {
    if (!m_painter) {
        m_painter.emplace(painterOf(picture(true)));
        m_stack = m_draft->stack();
        m_readingOrder = DeskSpeech::order(m_painter->picture());
    }
    return *m_painter;
}

std::size_t EditorCanvas::itemCount() {
    return m_draft == nullptr ? 0 : m_draft->boxes().size() + m_draft->displays().size();
}

AccessibleDrawing::Item EditorCanvas::item(std::size_t place) {
    const DeskPainter& shown = painter();
    if (place < m_readingOrder.size()) {
        const std::size_t window = m_readingOrder[place];
        const BoxID id = m_stack[window];
        return {.name = qt(DeskSpeech::window(shown.picture().windows[window], shown.picture().displays)),
                .frame = shownFrame(id).toAlignedRect(),
                .isSelected = m_selection.contains(id)};
    }
    const std::size_t display = place - m_readingOrder.size();
    const Rect frame = shown.geometry().regions()[display].usable;
    return {.name = qt(shown.picture().displays[display].name),
            .frame = QRectF(frame.minX(), frame.minY(), frame.width(), frame.height()).toAlignedRect(),
            .isWindow = false};
}

std::optional<EditorCanvas::BoxID> EditorCanvas::boxAt(QPointF point) {
    const auto found = painter().windowAt(point);
    return found ? std::optional(m_stack[*found]) : std::nullopt;
}

const DisplayInfo* EditorCanvas::displayAt(QPointF point) {
    const auto region = painter().geometry().regionAtCanvas({point.x(), point.y()});
    return region ? &m_draft->displays()[*region] : nullptr;
}

QRectF EditorCanvas::shownFrame(BoxID box) {
    Rect frame;
    if (const auto dragged = m_step.frames.find(box); m_drag && dragged != m_step.frames.end()) {
        frame = dragged->second;
    } else if (const auto* const found = m_draft->box(box)) {
        frame = found->record.frame;
    }
    const Rect shown = painter().geometry().toCanvas(frame);
    return {shown.minX(), shown.minY(), shown.width(), shown.height()};
}

std::optional<Rect> EditorCanvas::draggedFrame() const {
    return m_drag && m_selection.contains(m_drag->held) ? std::optional(m_step.dropped().at(m_drag->held))
                                                        : std::nullopt;
}

void EditorCanvas::select(std::set<BoxID> boxes) {
    if (boxes != m_selection) {
        m_selection = std::move(boxes);
        // One that cannot be seen is shown in front while it is selected.
        m_ground = {};
        announce();
        update();
        onChanged();
    }
}

void EditorCanvas::selectAll() {
    std::set<BoxID> all;
    std::ranges::transform(m_draft->boxes(), std::inserter(all, all.end()), &SceneDraft::Box::id);
    select(std::move(all));
}

// Like DeskView, the canvas describes the selected box as a whole.
void EditorCanvas::announce() {
    QString text;
    if (m_selection.size() == 1) {
        const WindowRecord& selected = record(*m_selection.begin());
        text = qt(DeskSpeech::window(window(selected, selected.frame),
                                     DisplayLabels::labelled(m_draft->displays())));
    } else if (!m_selection.empty()) {
        text = qt(trn("{} window selected", "{} windows selected", std::ssize(m_selection)));
    }
    if (text != accessibleDescription()) {
        setAccessibleDescription(text);
        QAccessibleEvent changed(this, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&changed);
    }
}

QString EditorCanvas::hint() const {
    if (m_drag) {
        const WindowRecord& held = record(m_drag->held);
        if (m_step.refused) {
            return qt(SizeLimit::problem(held.appName, m_drag->limits, *m_step.refused));
        }
        return m_step.zone
                   ? qt(trf("Release to fill {}. Hold Alt to place freely.", Zones::phrase(*m_step.zone)))
                   : qtr("Hold Alt to place freely. Esc leaves everything as it was.");
    }
    if (m_isReadOnly || m_draft == nullptr) {
        return {};
    }
    if (m_draft->boxes().empty()) {
        return qtr("Drag apps onto the displays, or take the windows from the desk.");
    }
    if (m_selection.empty()) {
        return qtr("Drag a window to move it. Tab walks the windows.");
    }
    return m_selection.size() == 1
               ? qtr("Arrows move by 1 point, with Shift by 10; with Ctrl they resize.")
               : qt(trn("{} window selected. Arrows move it by 1 point, with Shift by 10.",
                        "{} windows selected. Arrows move them by 1 point, with Shift by 10.",
                        std::ssize(m_selection)));
}

} // namespace vantrel
