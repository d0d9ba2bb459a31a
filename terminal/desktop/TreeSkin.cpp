#include "terminal/desktop/TreeSkin.h"

#include "terminal/desktop/CellPainter.h"

#include <QKeyEvent>
#include <QPainter>

namespace quorin {

namespace {

constexpr int LevelWidth = 18;
const QString OpenSign = QStringLiteral("\u25BE");
const QString ClosedSign = QStringLiteral("\u25B8");

// The first column is moved in by its level, behind the sign that opens or closes the row.
class TTreePainter : public TCellPainter {
public:
    explicit TTreePainter(TTreeSkin& tree) : TCellPainter(&tree), FTree(tree) {}

protected:
    QRect DrawBefore(QPainter& painter, const QRect& place,
                     const QModelIndex& index) const override {
        if (index.column() != 0) return place;
        const TcxTreeRow row = FTree.Form().View().Row(index.row());
        if (row.HasChildren) {
            painter.drawText(FTree.SignRect(index.row()), Qt::AlignCenter,
                             row.IsExpanded ? OpenSign : ClosedSign);
        }
        return place.adjusted((row.Depth + 1) * LevelWidth, 0, 0, 0);
    }

private:
    TTreeSkin& FTree;
};

} // namespace

TTreeSkin::TTreeSkin(TTreeForm& form, QWidget* parent)
    : TViewSkin(std::make_unique<TTreeAccess>(form.View()), &form, parent), FForm(form) {
    setItemDelegate(new TTreePainter(*this));
}

QRect TTreeSkin::SignRect(int row) const {
    const QRect cell = visualRect(model()->index(row, 0));
    const int left =
        cell.left() + TCellPainter::CellMargin + FForm.View().Row(row).Depth * LevelWidth;
    return {left, cell.top(), LevelWidth, cell.height()};
}

void TTreeSkin::SetExpanded(int row, bool expanded) {
    FForm.View().SetExpanded(row, expanded);
    Follow();
}

void TTreeSkin::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    const int row = indexAt(at).row();
    if (row >= 0 && FForm.View().Row(row).HasChildren && SignRect(row).contains(at)) {
        SetExpanded(row, !FForm.View().Row(row).IsExpanded);
        return;
    }
    TViewSkin::mousePressEvent(event);
}

void TTreeSkin::keyPressEvent(QKeyEvent* event) {
    const int row = currentIndex().row();
    const bool opens = event->key() == Qt::Key_Right;
    if (row >= 0 && (opens || event->key() == Qt::Key_Left)) {
        SetExpanded(row, opens);
        return;
    }
    TViewSkin::keyPressEvent(event);
}

} // namespace quorin
