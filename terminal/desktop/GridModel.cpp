#include "terminal/desktop/GridModel.h"

#include "terminal/desktop/QtText.h"
#include "terminal/desktop/Theme.h"

namespace quorin {

TGridModel::TGridModel(TcxGridTableView& view, TListForm* form, QObject* parent)
    : QAbstractTableModel(parent), FView(view), FForm(form) {
    FollowSize();
}

int TGridModel::ViewColumnCount() const {
    int count = 0;
    for (Integer index = 0; index < FView.GetColumnCount(); ++index) {
        if (FView.GetColumn(index)->GetVisible()) ++count;
    }
    return count;
}

TcxGridColumn* TGridModel::Column(int section) const {
    for (Integer index = 0; index < FView.GetColumnCount(); ++index) {
        TcxGridColumn* column = FView.GetColumn(index);
        if (column->GetVisible() && section-- == 0) return column;
    }
    return nullptr;
}

bool TGridModel::FollowSize() {
    const int columns = ViewColumnCount();
    const int rows = FView.RowCount();
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

int TGridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : FToldRows;
}

int TGridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : FToldColumns;
}

Qt::Alignment TGridModel::AlignmentOf(const TcxGridColumn& column) const {
    const bool isText = FForm == nullptr || FForm->IsText(column.GetTag());
    return Qt::AlignVCenter | (isText ? Qt::AlignLeft : Qt::AlignRight);
}

QVariant TGridModel::data(const QModelIndex& index, int role) const {
    TcxGridColumn* column = Column(index.column());
    if (column == nullptr) return {};
    switch (role) {
    case Qt::DisplayRole: return ToQt(FView.CellText(index.row(), *column));
    case Qt::TextAlignmentRole: return QVariant(AlignmentOf(*column));
    case HasMarksRole: return FForm != nullptr && FForm->HasMarks(column->GetTag());
    case MarkRole: {
        const bool hasMarks = FForm != nullptr && FForm->HasMarks(column->GetTag());
        const auto mark = hasMarks ? FForm->Mark(index.row(), column->GetTag())
                                   : std::optional<TPriceChangeState>();
        return mark.has_value() ? QVariant(static_cast<Integer>(*mark)) : QVariant();
    }
    case FlashRole:
    case FlashStrengthRole: {
        const auto* flash = FFlashes.IsEmpty()
                                ? nullptr
                                : FFlashes.Find(FView.RecordIndex(index.row()), column->GetTag());
        if (flash == nullptr) return {};
        if (role == FlashRole) return static_cast<Integer>(flash->State);
        return FFlashes.Strength(*flash);
    }
    case OldRole: return !FOldSince.isEmpty();
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole: return FOldSince.isEmpty() ? QVariant() : FOldSince;
    case Qt::AccessibleTextRole: {
        const QString text = ToQt(FView.CellText(index.row(), *column));
        const QVariant mark = data(index, MarkRole);
        if (!mark.isValid()) return text;
        return QString(text + u' ' + MoveWord(static_cast<TPriceChangeState>(mark.toInt())));
    }
    default: return {};
    }
}

QVariant TGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const TcxGridColumn* column = Column(section);
    if (orientation != Qt::Horizontal || column == nullptr) return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole: return ToQt(column->Caption());
    case Qt::TextAlignmentRole: return QVariant(AlignmentOf(*column));
    default: return {};
    }
}

} // namespace quorin
