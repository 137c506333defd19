// The rows of a list as a Qt model. Emits exact signals for inserted, removed, moved and changed rows.
#pragma once

#include "Vantrel/interface/lists/ListRow.h"

#include <QAbstractListModel>

#include <functional>
#include <string>
#include <vector>

namespace vantrel {

class ListRowsModel final : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    void show(const std::vector<ListRow>& rows);
    [[nodiscard]] const std::vector<ListRow>& rows() const { return m_rows; }
    [[nodiscard]] const ListRow& row(const QModelIndex& index) const {
        return m_rows[static_cast<std::size_t>(index.row())];
    }
    // Invalid when there is no such row.
    [[nodiscard]] QModelIndex indexOf(const std::string& id) const;

    // Called when the user has dropped a row in front of another one; an empty id stands for the end. While
    // null, rows cannot be dragged.
    std::function<void(const std::string& id, const std::string& before)> onDropped{};

    // Rows can be dragged to another widget, which gets the row's id in this format.
    void setSource() { m_isSource = true; }
    static constexpr const char* rowFormat = "application/x-vantrel-row";

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    [[nodiscard]] Qt::DropActions supportedDragActions() const override {
        return m_isSource ? Qt::CopyAction : Qt::MoveAction;
    }
    [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;
    [[nodiscard]] QStringList mimeTypes() const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

private:
    void removeAllBut(const std::vector<ListRow>& rows);
    // Moves the row with this identity up to `position`; it must be there or further down.
    void bring(const ListRow& row, int position);

    std::vector<ListRow> m_rows;
    bool m_isSource = false;
};

} // namespace vantrel
