// The canvas of the scene editor: the scene's boxes on its displays, to be moved, resized and arranged with
// pointer or keyboard.
#pragma once

#include "Vantrel/interface/desk/AccessibleDrawing.h"
#include "Vantrel/interface/desk/DeskPainter.h"
#include "VantrelCore/studio/EditorDrag.h"
#include "VantrelCore/studio/SceneDraft.h"

#include <QPixmap>
#include <QPointF>
#include <QWidget>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vantrel {

class EditorCanvas final : public QWidget, public AccessibleDrawing {
public:
    using BoxID = SceneDraft::BoxID;

    // `looks` outlives the canvas.
    explicit EditorCanvas(ApplicationLooks& looks, QWidget* parent = nullptr);

    // Shows the draft, which must outlive the canvas or the next call. A read-only one can be selected from.
    void show(SceneDraft& draft, bool isReadOnly);
    using QWidget::show;
    // Shows what has changed in the draft.
    void refresh();

    [[nodiscard]] const std::set<BoxID>& selection() const { return m_selection; }
    void select(std::set<BoxID> boxes);
    // The frame that is shown, which differs from the draft's while a box is dragged; on this widget.
    [[nodiscard]] QRectF shownFrame(BoxID box);
    [[nodiscard]] const DisplayInfo* displayAt(QPointF point);
    [[nodiscard]] bool isDragging() const { return m_drag.has_value(); }
    // What a drop does now, or what the keys do, in one sentence.
    [[nodiscard]] QString hint() const;

    // Called when the selection or the draft has changed.
    std::function<void()> onChanged = [] {};
    // Called with every step of a drag, and when it has ended.
    std::function<void()> onDragged = [] {};
    // The frame of the selected box under the pointer, on the screen of the scene; none while it is not
    // dragged.
    [[nodiscard]] std::optional<Rect> draggedFrame() const;
    // Called with every command of the user's, instead of applying it.
    std::function<std::vector<BoxID>(const SceneDraft::Command&)> onCommand = [](const auto&) {
        return std::vector<BoxID>();
    };
    std::function<void()> onUndo = [] {};
    std::function<void()> onRedo = [] {};
    // A slot for an application that is dragged in from a list of rows; one with an empty frame for a row
    // that is no application.
    std::function<WindowRecord(const std::string& bundleID)> newSlot = [](const auto&) {
        return WindowRecord();
    };

    // The windows, then the displays.
    [[nodiscard]] std::size_t itemCount() override;
    [[nodiscard]] Item item(std::size_t place) override;

    [[nodiscard]] QSize sizeHint() const override { return {520, 340}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {160, 120}; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    struct Handle {
        SnapEngine::ResizeEdges edges;
        QRectF frame;
    };

    // A button that is down on a box or a handle, and has not moved far enough for a drag.
    struct Press {
        QPointF point;
        BoxID box = 0;
        SnapEngine::ResizeEdges edges{};
        bool copies = false;
    };

    // A frame drawn around boxes to select them, beside those that were selected before.
    struct Band {
        QPointF from;
        QPointF to;
        std::set<BoxID> before;

        [[nodiscard]] QRectF frame() const { return QRectF(from, to).normalized(); }
    };

    // What is drawn below everything that moves.
    [[nodiscard]] DeskPicture picture(bool withDragged) const;
    [[nodiscard]] DeskPicture::Window window(const WindowRecord& record, const Rect& frame) const;
    [[nodiscard]] DeskPainter painterOf(DeskPicture picture) const;
    // Of all boxes as they are in the draft, front to back as in the stack.
    [[nodiscard]] DeskPainter& painter();
    [[nodiscard]] std::optional<BoxID> boxAt(QPointF point);
    // Of a box of the draft, or of one that is being dragged in.
    [[nodiscard]] const WindowRecord& record(BoxID box) const;
    [[nodiscard]] std::vector<Handle> handles();
    [[nodiscard]] std::optional<SnapEngine::ResizeEdges> edgesAt(QPointF point);
    void point(QPointF point);

    void begin(const Press& press);
    void begin(QPointF from, BoxID held, const std::set<BoxID>& boxes, SnapEngine::ResizeEdges edges);
    void drag(QPointF point, Qt::KeyboardModifiers keys);
    void endDrag(bool isDropped);
    void drawBand(QPointF to);
    [[nodiscard]] EditorDrag::Scenery scenery();

    bool command(const QKeyEvent& event);
    void nudge(Point by, bool resizes);
    void walk(int step);
    void selectAll();

    void paintGround();
    void paintDragged(QPainter& painter);
    void paintSelection(QPainter& painter, const DeskColors& colors);
    void paintGuides(QPainter& painter, const DeskColors& colors);
    void paintDistances(QPainter& painter, const DeskColors& colors);
    void paintZone(QPainter& painter, const DeskColors& colors);
    void paintChip(QPainter& painter, QPointF centre, const QString& text) const;

    void announce();
    void forget();
    [[nodiscard]] double length(double points) const;

    ApplicationLooks& m_looks;
    SceneDraft* m_draft = nullptr;
    bool m_isReadOnly = false;
    std::set<BoxID> m_selection;
    // Made when needed.
    std::optional<DeskPainter> m_painter;
    // Front-most first, as in the painter.
    std::vector<BoxID> m_stack;
    // Of the painter's windows.
    std::vector<std::size_t> m_readingOrder;
    // Everything but what is dragged; null when it is no longer true.
    QPixmap m_ground;
    std::optional<Press> m_press;
    std::optional<EditorDrag> m_drag;
    EditorDrag::Step m_step;
    // Where the pointer was last during a drag.
    QPointF m_pointer;
    // Dragged boxes that are not in the draft yet, back to front: copies, and slots from the list of
    // applications.
    std::map<BoxID, WindowRecord> m_incoming;
    std::vector<Rect> m_others;
    std::optional<Band> m_band;
    // The canvas was reached by keyboard, and shows that when no box is selected.
    bool m_isReachedByKey = false;
};

} // namespace vantrel
