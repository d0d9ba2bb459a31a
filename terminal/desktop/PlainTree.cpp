#include "terminal/desktop/PlainTree.h"

#include "terminal/desktop/QtText.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

#include <algorithm>

namespace quorin {

namespace {

constexpr int RowHeight = 22;
constexpr int LevelWidth = 18;
constexpr int CellMargin = 6;
constexpr int SmallestColumn = 24;
const QString OpenSign = QStringLiteral("\u25BE");
const QString ClosedSign = QStringLiteral("\u25B8");

// The first column is moved in by its level, behind the sign that opens or closes the row.
class TTreeDelegate : public QStyledItemDelegate {
public:
    TTreeDelegate(TTreeForm& form, QObject* parent) : QStyledItemDelegate(parent), FForm(form) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem cell = option;
        initStyleOption(&cell, index);
        const QString text = cell.text;
        cell.text.clear();
        cell.state &= ~QStyle::State_HasFocus; // the row is what has it
        cell.widget->style()->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
        const bool isSelected = cell.state.testFlag(QStyle::State_Selected);
        painter->setPen(
            cell.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        QRect place = cell.rect.adjusted(CellMargin, 0, -CellMargin, 0);
        if (index.column() == 0) {
            const TcxTreeRow row = FForm.View().Row(index.row());
            const auto* tree = static_cast<const TPlainTree*>(cell.widget);
            if (row.HasChildren) {
                painter->drawText(tree->SignRect(index.row()), Qt::AlignCenter,
                                  row.IsExpanded ? OpenSign : ClosedSign);
            }
            place.setLeft(place.left() + (row.Depth + 1) * LevelWidth);
        }
        painter->drawText(place, static_cast<int>(cell.displayAlignment),
                          cell.fontMetrics.elidedText(text, Qt::ElideRight, place.width()));
    }

private:
    TTreeForm& FForm;
};

} // namespace

TPlainTreeModel::TPlainTreeModel(TTreeForm& form, QObject* parent)
    : QAbstractTableModel(parent), FForm(form) {
    FollowSize();
}

int TPlainTreeModel::ViewColumnCount() const {
    int count = 0;
    for (Integer index = 0; index < FForm.View().GetColumnCount(); ++index) {
        if (FForm.View().GetColumn(index)->GetVisible()) ++count;
    }
    return count;
}

TcxTreeListColumn* TPlainTreeModel::Column(int section) const {
    for (Integer index = 0; section >= 0 && index < FForm.View().GetColumnCount(); ++index) {
        TcxTreeListColumn* column = FForm.View().GetColumn(index);
        if (column->GetVisible() && section-- == 0) return column;
    }
    return nullptr;
}

void TPlainTreeModel::FollowSize() {
    const int rows = FForm.View().RowCount();
    const int columns = ViewColumnCount();
    if (rows == FToldRows && columns == FToldColumns) return;
    beginResetModel();
    FToldRows = rows;
    FToldColumns = columns;
    endResetModel();
}

int TPlainTreeModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : FToldRows;
}

int TPlainTreeModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : FToldColumns;
}

Qt::Alignment TPlainTreeModel::AlignmentOf(const TcxTreeListColumn& column) const {
    return Qt::AlignVCenter | (FForm.IsText(column.Tag()) ? Qt::AlignLeft : Qt::AlignRight);
}

QVariant TPlainTreeModel::data(const QModelIndex& index, int role) const {
    TcxTreeListColumn* column = Column(index.column());
    if (column == nullptr) return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole: return ToQt(FForm.View().CellText(index.row(), *column));
    case Qt::TextAlignmentRole: return QVariant(AlignmentOf(*column));
    default: return {};
    }
}

QVariant TPlainTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const TcxTreeListColumn* column = Column(section);
    if (orientation != Qt::Horizontal || column == nullptr) return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole: return ToQt(column->Caption());
    case Qt::TextAlignmentRole: return QVariant(AlignmentOf(*column));
    default: return {};
    }
}

TPlainTree::TPlainTree(TTreeForm& form, QWidget* parent)
    : QTableView(parent), FForm(form), FModel(form) {
    setModel(&FModel);
    setItemDelegate(new TTreeDelegate(form, this));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(RowHeight);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(SmallestColumn);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int section, int, int width) {
                TcxTreeListColumn* column = FModel.Column(section);
                if (!FIsFollowing && column != nullptr) column->SetWidth(width);
            });
    FollowColumns();
}

void TPlainTree::Follow() {
    if (!FForm.TakeRepaint()) return;
    const QScopedValueRollback following(FIsFollowing, true);
    FModel.FollowSize();
    FollowColumns();
    const Integer focused = FForm.View().FocusedRow();
    if (currentIndex().row() != focused) {
        setCurrentIndex(focused == NoRow ? QModelIndex() : FModel.index(focused, 0));
    }
    viewport()->update();
    horizontalHeader()->viewport()->update();
}

void TPlainTree::FollowColumns() {
    const QScopedValueRollback following(FIsFollowing, true);
    for (int section = 0; section < FModel.columnCount(); ++section) {
        const TcxTreeListColumn& column = *FModel.Column(section);
        if (columnWidth(section) != column.GetWidth()) setColumnWidth(section, column.GetWidth());
    }
}

QRect TPlainTree::SignRect(int row) const {
    const QRect cell = visualRect(FModel.index(row, 0));
    const int left = cell.left() + CellMargin + FForm.View().Row(row).Depth * LevelWidth;
    return {left, cell.top(), LevelWidth, cell.height()};
}

void TPlainTree::SetExpanded(int row, bool expanded) {
    FForm.View().SetExpanded(row, expanded);
    Follow();
}

void TPlainTree::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    const int row = indexAt(at).row();
    if (row >= 0 && FForm.View().Row(row).HasChildren && SignRect(row).contains(at)) {
        SetExpanded(row, !FForm.View().Row(row).IsExpanded);
        return;
    }
    QTableView::mousePressEvent(event);
}

void TPlainTree::keyPressEvent(QKeyEvent* event) {
    const int row = currentIndex().row();
    const bool opens = event->key() == Qt::Key_Right;
    if (row >= 0 && (opens || event->key() == Qt::Key_Left)) {
        SetExpanded(row, opens);
        return;
    }
    QTableView::keyPressEvent(event);
}

void TPlainTree::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (!FIsFollowing) FForm.View().SetFocusedRow(current.isValid() ? current.row() : NoRow);
}

} // namespace quorin
