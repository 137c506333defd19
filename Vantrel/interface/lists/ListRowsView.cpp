#include "Vantrel/interface/lists/ListRowsView.h"

#include <QContextMenuEvent>
#include <QDrag>
#include <QKeyEvent>

namespace vantrel {

ListRowsView::ListRowsView(ApplicationLooks* looks, QWidget* parent)
    : QListView(parent), m_looks(looks), m_delegate(looks) {
    setModel(&m_model);
    setItemDelegate(&m_delegate);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setResizeMode(QListView::Adjust);
    setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_Hover);
    // The background is the window's.
    viewport()->setAutoFillBackground(false);
    // Not `activated`, which on some desktops is a single click.
    connect(this, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& index) { onActivated(m_model.row(index).id); });
}

void ListRowsView::show(const std::vector<ListRow>& rows) {
    m_isChoosing = true;
    const std::string before = chosen();
    m_model.show(rows);
    // Qt would select a neighbour of a removed row; that choice belongs to the caller.
    if (const auto now = chosen(); now != before) {
        setCurrentIndex(m_model.indexOf(before));
    }
    m_isChoosing = false;
    fitHeight();
}

void ListRowsView::setShowsAll() {
    m_showsAll = true;
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    fitHeight();
}

void ListRowsView::fitHeight() {
    if (m_showsAll) {
        int height = 0;
        for (int row = 0; row < m_model.rowCount(); ++row) {
            height += sizeHintForRow(row);
        }
        setFixedHeight(height);
    }
}

std::string ListRowsView::chosen() const {
    return currentIndex().isValid() ? m_model.row(currentIndex()).id : "";
}

void ListRowsView::choose(const std::string& id) {
    if (id == chosen()) {
        return;
    }
    m_isChoosing = true;
    setCurrentIndex(m_model.indexOf(id));
    m_isChoosing = false;
}

void ListRowsView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    if (!m_isChoosing && current.isValid()) {
        onChosen(m_model.row(current).id);
    }
}

void ListRowsView::setMovable(std::function<void(const std::string& id, const std::string& before)> move) {
    m_model.onDropped = std::move(move);
    setDragDropMode(QAbstractItemView::InternalMove);
    setDropIndicatorShown(true);
    setDragDropOverwriteMode(false);
}

void ListRowsView::setSource() {
    m_model.setSource();
    setDragDropMode(QAbstractItemView::DragOnly);
}

// An application leaves the list as its icon, not as the whole row, which would cover the place it is for.
void ListRowsView::startDrag(Qt::DropActions actions) {
    const bool isApplication =
        m_looks != nullptr && currentIndex().isValid() && !m_model.row(currentIndex()).bundleID.empty();
    if (!isApplication || dragDropMode() != QAbstractItemView::DragOnly) {
        QListView::startDrag(actions);
        return;
    }
    constexpr int side = 24;
    const ListRow& row = m_model.row(currentIndex());
    auto* const drag = new QDrag(this);
    drag->setMimeData(m_model.mimeData({currentIndex()}));
    drag->setPixmap(m_looks->of(row.bundleID, row.title).icon.pixmap(side, side));
    drag->exec(actions, Qt::CopyAction);
}

void ListRowsView::moveChosen(int step) {
    const int at = currentIndex().row();
    const int other = at + step;
    const auto isItem = [this](int row) {
        return row >= 0 && row < m_model.rowCount() &&
               m_model.row(m_model.index(row)).kind == ListRow::Kind::item;
    };
    if (!isItem(at) || !isItem(other)) {
        return;
    }
    // In front of the row above, or of what follows the row below.
    const int before = step < 0 ? other : other + 1;
    const std::string id = chosen();
    m_model.onDropped(id, before < m_model.rowCount() ? m_model.row(m_model.index(before)).id : "");
}

void ListRowsView::keyPressEvent(QKeyEvent* event) {
    const bool isUp = event->key() == Qt::Key_Up;
    if (m_model.onDropped && (isUp || event->key() == Qt::Key_Down) &&
        event->modifiers().testFlag(Qt::AltModifier)) {
        moveChosen(isUp ? -1 : 1);
        return;
    }
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentIndex().isValid()) {
        onActivated(chosen());
        return;
    }
    QListView::keyPressEvent(event);
}

void ListRowsView::contextMenuEvent(QContextMenuEvent* event) {
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = isByKey ? currentIndex() : indexAt(event->pos());
    if (index.isValid() && m_model.row(index).kind == ListRow::Kind::item) {
        const QPoint place =
            isByKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos();
        onMenu(m_model.row(index).id, place);
    }
}

void ListRowsView::changeEvent(QEvent* event) {
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        scheduleDelayedItemsLayout();
        fitHeight();
    }
}

} // namespace vantrel
