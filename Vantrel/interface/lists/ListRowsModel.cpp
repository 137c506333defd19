#include "Vantrel/interface/lists/ListRowsModel.h"

#include "Vantrel/interface/Text.h"

#include <QMimeData>

#include <algorithm>
#include <set>

namespace vantrel {

void ListRowsModel::show(const std::vector<ListRow>& rows) {
    removeAllBut(rows);
    for (int position = 0; position < static_cast<int>(rows.size()); ++position) {
        const ListRow& row = rows[static_cast<std::size_t>(position)];
        bring(row, position);
        ListRow& shown = m_rows[static_cast<std::size_t>(position)];
        if (shown != row) {
            shown = row;
            Q_EMIT dataChanged(index(position), index(position));
        }
    }
}

void ListRowsModel::removeAllBut(const std::vector<ListRow>& rows) {
    std::set<std::string_view> kept;
    for (const ListRow& row : rows) {
        kept.insert(row.id);
    }
    for (int last = static_cast<int>(m_rows.size()) - 1; last >= 0; --last) {
        if (!kept.contains(m_rows[static_cast<std::size_t>(last)].id)) {
            beginRemoveRows({}, last, last);
            m_rows.erase(m_rows.begin() + last);
            endRemoveRows();
        }
    }
}

void ListRowsModel::bring(const ListRow& row, int position) {
    const auto at = m_rows.begin() + position;
    const auto found = std::find_if(at, m_rows.end(), [&](const ListRow& each) { return each.id == row.id; });
    if (found == m_rows.end()) {
        beginInsertRows({}, position, position);
        m_rows.insert(at, row);
        endInsertRows();
    } else if (found != at) {
        const auto from = static_cast<int>(found - m_rows.begin());
        beginMoveRows({}, from, from, {}, position);
        std::rotate(at, found, found + 1);
        endMoveRows();
    }
}

QModelIndex ListRowsModel::indexOf(const std::string& id) const {
    const auto found = std::ranges::find(m_rows, id, &ListRow::id);
    return found == m_rows.end() ? QModelIndex() : index(static_cast<int>(found - m_rows.begin()));
}

int ListRowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant ListRowsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const ListRow& shown = row(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return qt(shown.title);
    case Qt::AccessibleDescriptionRole: {
        QStringList parts;
        for (const std::string& part : {shown.detail, shown.note}) {
            if (!part.empty()) {
                parts.append(qt(part));
            }
        }
        if (shown.isPinned) {
            parts.append(qtr("Pinned"));
        }
        return parts.join(", ");
    }
    default:
        return {};
    }
}

Qt::ItemFlags ListRowsModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return onDropped ? Qt::ItemIsDropEnabled : Qt::NoItemFlags;
    }
    if (row(index).kind == ListRow::Kind::heading) {
        return Qt::NoItemFlags;
    }
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren |
           (onDropped || m_isSource ? Qt::ItemIsDragEnabled : Qt::NoItemFlags);
}

QStringList ListRowsModel::mimeTypes() const {
    return {rowFormat};
}

QMimeData* ListRowsModel::mimeData(const QModelIndexList& indexes) const {
    auto* const data = new QMimeData;
    data->setData(rowFormat, QByteArray::fromStdString(indexes.empty() ? "" : row(indexes.front()).id));
    return data;
}

bool ListRowsModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int /*column*/,
                                 const QModelIndex& parent) {
    if (!onDropped || action != Qt::MoveAction || parent.isValid() || !data->hasFormat(rowFormat)) {
        return false;
    }
    const bool isAtEnd = row < 0 || row >= rowCount();
    // A copy, as the drop changes the rows.
    const std::string before = isAtEnd ? "" : m_rows[static_cast<std::size_t>(row)].id;
    onDropped(data->data(rowFormat).toStdString(), before);
    return true;
}

} // namespace vantrel
