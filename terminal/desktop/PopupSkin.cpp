#include "terminal/desktop/PopupSkin.h"

#include "terminal/desktop/ButtonSigns.h"

#include <QKeyEvent>
#include <QPointer>
#include <QVBoxLayout>

namespace quorin {

TPopupSkin::TPopupSkin(TcxPopupEdit& edit, QWidget* parent)
    : TEditSkin(edit, parent), FPopup(edit) {
    Mirror();
}

TPopupSkin::~TPopupSkin() = default;

TGridSkin* TPopupSkin::OpenList() {
    return FWindow != nullptr && FWindow->isVisible() ? FList : nullptr;
}

void TPopupSkin::Mirror() {
    TEditSkin::Mirror();
    if (FPopup.DroppedDown()) {
        ShowList();
    } else {
        HideList();
    }
}

void TPopupSkin::ShowList() {
    TFieldListForm* form = FieldListOf(FPopup);
    if (form == nullptr) return;
    if (FWindow == nullptr) {
        // A window like a tool tip's never takes the keys away from the field.
        FWindow = std::make_unique<QFrame>(this, Qt::ToolTip | Qt::FramelessWindowHint);
        FWindow->setAttribute(Qt::WA_ShowWithoutActivating);
        FWindow->setFrameShape(QFrame::Box);
        FList = new TGridSkin(form->View(), nullptr, FWindow.get());
        FList->setFocusPolicy(Qt::NoFocus);
        FList->setFrameShape(QFrame::NoFrame);
        connect(FList, &QAbstractItemView::clicked, this,
                [this](const QModelIndex& index) { Choose(index.row()); });
        auto* layout = new QVBoxLayout(FWindow.get());
        layout->setContentsMargins(1, 1, 1, 1);
        layout->addWidget(FList);
    }
    const TcxPopupWindow& window = FPopup.PopupWindow();
    FWindow->setGeometry(
        QRect(mapToGlobal(QPoint(0, height())), QSize(window.Width(), window.Height())));
    FWindow->show();
    FList->Follow();
}

void TPopupSkin::HideList() {
    FList = nullptr;
    if (FWindow == nullptr) return;
    // The list may be what is being clicked into.
    FWindow->hide();
    FWindow.release()->deleteLater();
}

void TPopupSkin::Choose(int row) {
    TFieldListForm* form = FieldListOf(FPopup);
    if (form == nullptr) return;
    const QPointer<TPopupSkin> alive(this);
    form->Choose(row);
    if (alive) Mirror();
}

bool TPopupSkin::TakeListKey(int key) {
    TFieldListForm* form = FieldListOf(FPopup);
    if (form == nullptr || !FPopup.DroppedDown()) return false;
    TcxGridTableView& view = form->View();
    const Integer focused = view.FocusedRow();
    switch (key) {
    case Qt::Key_Down: view.SetFocusedRow(std::min(focused + 1, view.RowCount() - 1)); return true;
    case Qt::Key_Up: view.SetFocusedRow(std::max(focused - 1, 0)); return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (focused == NoRow) return false;
        Choose(focused);
        return true;
    default: return false;
    }
}

void TPopupSkin::keyPressEvent(QKeyEvent* event) {
    if (event->modifiers() == Qt::NoModifier && TakeListKey(event->key())) {
        event->accept();
        if (FList != nullptr) FList->Follow();
        return;
    }
    TEditSkin::keyPressEvent(event);
}

void TPopupSkin::PaintButton(QPainter& painter, const QRect& place, Integer) {
    DrawTriangle(painter, place, TTriangle::Down);
}

} // namespace quorin
