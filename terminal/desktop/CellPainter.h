#pragma once

#include <QStyledItemDelegate>

namespace quorin {

// Draws a cell by the roles of TGridModel: its text, its mark in a place of its own behind it, so
// that figures stay in line, a flash below the text with an arrow of its own where there is no
// mark, and old cells in grey.
class TCellPainter : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

} // namespace quorin
