#pragma once

#include <QStyledItemDelegate>

namespace quorin {

// Draws a cell by the roles of TViewModel: its text, its mark in a place of its own behind it, so
// that figures stay in line, a flash below the text with an arrow of its own where there is no
// mark, a sign before totals that leave something out, and old cells in grey.
class TCellPainter : public QStyledItemDelegate {
    Q_OBJECT

public:
    static constexpr int CellMargin = 6; // pixels left and right of a text

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

protected:
    // Draws what stands before the text, in its colour, and answers the place that is left for it.
    virtual QRect DrawBefore(QPainter&, const QRect& place, const QModelIndex&) const {
        return place;
    }
};

} // namespace quorin
