#include "terminal/desktop/CellPainter.h"

#include "terminal/desktop/Theme.h"
#include "terminal/desktop/ViewModel.h"

#include <QPainter>

namespace quorin {

namespace {

constexpr int MarkWidth = 16;

} // namespace

void TCellPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QString text = cell.text;
    cell.text.clear();
    cell.state &= ~QStyle::State_HasFocus; // the row is what has it
    cell.widget->style()->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);

    QRect place = cell.rect.adjusted(CellMargin, 0, -CellMargin, 0);
    const bool isSelected = cell.state.testFlag(QStyle::State_Selected);
    const bool isOld = index.data(TViewModel::OldRole).toBool();
    const bool hasMarks = index.data(TViewModel::HasMarksRole).toBool();
    QColor color = cell.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    if (isOld && !isSelected) color = QuietTextColor();
    painter->setPen(color);
    place = DrawBefore(*painter, place, index);
    if (index.data(TViewModel::PartialRole).toBool()) {
        painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter, PartialMark());
        place.setLeft(place.left() + MarkWidth);
    }

    const QVariant flash = isOld ? QVariant() : index.data(TViewModel::FlashRole);
    if (flash.isValid()) {
        const auto state = static_cast<TPriceChangeState>(flash.toInt());
        const Double strength = index.data(TViewModel::FlashStrengthRole).toDouble();
        painter->fillRect(cell.rect, FlashColor(state, strength));
        if (strength > 0.0) {
            painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter, MoveMark(state));
        }
    }
    if (hasMarks) {
        const QRect markPlace(place.right() - MarkWidth + 1, place.top(), MarkWidth,
                              place.height());
        place.setRight(markPlace.left() - 1);
        const QVariant mark = index.data(TViewModel::MarkRole);
        if (mark.isValid()) {
            const auto state = static_cast<TPriceChangeState>(mark.toInt());
            // Its colour can be read on a row that neither flashes nor is chosen.
            const bool isPlain = !isSelected && !flash.isValid();
            const bool hasMoved = MoveColor(state).isValid();
            if (isPlain && !isOld && hasMoved) color = MoveColor(state);
            painter->setPen(isPlain && !hasMoved ? QuietTextColor() : color);
            painter->drawText(markPlace, Qt::AlignRight | Qt::AlignVCenter, MoveMark(state));
        }
    }
    painter->setPen(color);
    painter->drawText(place, static_cast<int>(cell.displayAlignment),
                      cell.fontMetrics.elidedText(text, Qt::ElideRight, place.width()));
}

} // namespace quorin
