#include "terminal/desktop/ViewModel.h"

#include "terminal/desktop/QtText.h"
#include "terminal/desktop/Theme.h"

#include <utility>

namespace quorin {

TViewModel::TViewModel(std::unique_ptr<TViewAccess> view, TShownForm* form, QObject* parent)
    : QAbstractTableModel(parent), FView(std::move(view)), FForm(form) {
    FollowSize();
}

int TViewModel::ViewColumnCount() const {
    int count = 0;
    for (Integer index = 0; index < FView->ColumnCount(); ++index) {
        if (FView->Column(index).GetVisible()) ++count;
    }
    return count;
}

TcxViewColumn* TViewModel::Column(int section) const {
    for (Integer index = 0; section >= 0 && index < FView->ColumnCount(); ++index) {
        TcxViewColumn& column = FView->Column(index);
        if (column.GetVisible() && section-- == 0) return &column;
    }
    return nullptr;
}

bool TViewModel::FollowSize() {
    const int columns = ViewColumnCount();
    const int rows = FView->RowCount();
    if (columns != FToldColumns) {
        beginResetModel();
        FToldColumns = columns;
        FToldRows = rows;
        endResetModel();
        return true;
    }
    if (rows > FToldRows) {
        beginInsertRows({}, FToldRows, rows - 1);
        FToldRows = rows;
        endInsertRows();
        return true;
    }
    if (rows < FToldRows) {
        beginRemoveRows({}, rows, FToldRows - 1);
        FToldRows = rows;
        endRemoveRows();
        return true;
    }
    return false;
}

int TViewModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : FToldRows;
}

int TViewModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : FToldColumns;
}

Qt::Alignment TViewModel::AlignmentOf(const TcxViewColumn& column) const {
    const bool isText = FForm == nullptr || FForm->IsText(column.Tag());
    return Qt::AlignVCenter | (isText ? Qt::AlignLeft : Qt::AlignRight);
}

StringView TViewModel::PartialReason(int row, const TcxViewColumn& column) const {
    return FForm == nullptr ? StringView() : FForm->CellPartialReason(row, column.Tag());
}

// Why the cell is not quite what it should be.
QVariant TViewModel::Description(int row, const TcxViewColumn& column) const {
    QString text = ToQt(PartialReason(row, column));
    if (!text.isEmpty() && !FOldSince.isEmpty()) text += u'\n';
    text += FOldSince;
    return text.isEmpty() ? QVariant() : text;
}

bool TViewModel::HasMarks(const TcxViewColumn& column) const {
    return FForm != nullptr && FForm->HasMarks(column.Tag());
}

QVariant TViewModel::data(const QModelIndex& index, int role) const {
    TcxViewColumn* column = Column(index.column());
    if (column == nullptr) return {};
    switch (role) {
    case Qt::DisplayRole: return ToQt(FView->CellText(index.row(), *column));
    case Qt::TextAlignmentRole: return QVariant(AlignmentOf(*column));
    case HasMarksRole: return HasMarks(*column);
    case MarkRole: {
        const auto mark = HasMarks(*column) ? FForm->Mark(index.row(), column->Tag())
                                            : std::optional<TPriceChangeState>();
        return mark.has_value() ? QVariant(static_cast<Integer>(*mark)) : QVariant();
    }
    case FlashRole:
    case FlashStrengthRole: {
        const auto* flash =
            FFlashes.IsEmpty() ? nullptr : FFlashes.Find(FView->Record(index.row()), column->Tag());
        if (flash == nullptr) return {};
        if (role == FlashRole) return static_cast<Integer>(flash->State);
        return FFlashes.Strength(*flash);
    }
    case OldRole: return !FOldSince.isEmpty();
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole: return Description(index.row(), *column);
    case PartialRole: return !PartialReason(index.row(), *column).empty();
    case Qt::AccessibleTextRole: {
        const QString text = ToQt(FView->CellText(index.row(), *column));
        const QVariant mark = data(index, HasMarks(*column) ? MarkRole : FlashRole);
        if (!mark.isValid()) return text;
        return QString(text + u' ' + MoveWord(static_cast<TPriceChangeState>(mark.toInt())));
    }
    default: return {};
    }
}

QVariant TViewModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const TcxViewColumn* column = Column(section);
    if (orientation != Qt::Horizontal || column == nullptr) return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole: return ToQt(column->Caption());
    case Qt::TextAlignmentRole: return QVariant(AlignmentOf(*column));
    default: return {};
    }
}

} // namespace quorin
