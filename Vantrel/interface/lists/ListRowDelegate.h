// Paints the rows of a list: symbol or icon, title, second line, and what stands at the end.
#pragma once

#include "Vantrel/interface/desk/ApplicationLooks.h"
#include "Vantrel/interface/lists/ListRow.h"

#include <QFont>
#include <QStyledItemDelegate>

#include <cstdint>

namespace vantrel {

class ListRowDelegate final : public QStyledItemDelegate {
public:
    // Only for views of a ListRowsModel. `looks` outlives it; null for lists without applications.
    explicit ListRowDelegate(ApplicationLooks* looks, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    // A table has the title, the detail and the note in columns of one line.
    enum class Form : std::uint8_t { list, table };

    void setForm(Form form) { m_form = form; }

    // Whether the selected row is drawn like a tab or by its background alone.
    void setHasStrongSelection(bool isStrong) { m_hasStrongSelection = isStrong; }

private:
    struct Places {
        QRect ground;
        QRect symbol;
        QRect title;
        QRect detail;
        QRect note;
        QRect noteSymbol;
        QRect pin;
    };

    [[nodiscard]] Places places(const QStyleOptionViewItem& option, const ListRow& row) const;
    void paintHeading(QPainter& painter, const QStyleOptionViewItem& option, const ListRow& row) const;

    void placeTexts(Places& places, const QStyleOptionViewItem& option, const ListRow& row, int left) const;
    void placeColumns(Places& places, const QStyleOptionViewItem& option, const ListRow& row, int left) const;

    ApplicationLooks* m_looks;
    Form m_form = Form::list;
    bool m_hasStrongSelection = false;
};

} // namespace vantrel
