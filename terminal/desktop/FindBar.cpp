#include "terminal/desktop/FindBar.h"

#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>

namespace quorin {

TFindBar::TFindBar(QAbstractItemView& view, TShownForm& form, QWidget* parent)
    : QWidget(parent), FView(view), FForm(form), FField(new QLineEdit(this)) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(FField);
    setFocusProxy(FField);
    FField->setClearButtonEnabled(true);
    FField->installEventFilter(this);
    connect(FField, &QLineEdit::textChanged, this, &TFindBar::Look);
    hide();
}

void TFindBar::Open() {
    const String caption(InterfaceText(TerminalKey::Res_FindText));
    FField->setAccessibleName(ToQt(caption));
    FField->setPlaceholderText(ToQt(caption));
    if (FForm.FormView().Grid != nullptr) FForm.FormView().Grid->ActiveView()->FindPanel().Open();
    show();
    FField->setFocus();
    FField->selectAll();
}

void TFindBar::Close() {
    FField->clear();
    if (FForm.FormView().Grid != nullptr) FForm.FormView().Grid->ActiveView()->FindPanel().Close();
    hide();
    FView.setFocus();
}

void TFindBar::Look() {
    if (FForm.FormView().Grid == nullptr) return;
    TcxGridFindPanel& panel = FForm.FormView().Grid->ActiveView()->FindPanel();
    panel.SetText(FromQt(FField->text()));
    panel.PressFind();
}

bool TFindBar::Stands(Integer row, const QString& text) {
    for (Integer index = 0; index < FForm.ColumnCount(); ++index) {
        if (FForm.Column(index).GetVisible() &&
            ToQt(FForm.CellText(row, index)).contains(text, Qt::CaseInsensitive)) {
            return true;
        }
    }
    return false;
}

bool TFindBar::Move(Integer step) {
    const QString text = FField->text();
    const TFormView view = FForm.FormView();
    const Integer rows = FForm.RowCount();
    if (text.isEmpty() || rows == 0) return false;
    Integer row =
        view.Grid != nullptr ? view.Grid->ActiveView()->FocusedRow() : view.Tree->FocusedRow();
    if (row == NoRow && step < 0) row = 0;
    for (Integer looked = 0; looked < rows; ++looked) {
        row = (row + step + rows) % rows;
        if (!Stands(row, text)) continue;
        if (view.Grid != nullptr) {
            view.Grid->ActiveView()->SetFocusedRow(row);
        } else {
            view.Tree->SetFocusedRow(row);
        }
        return true;
    }
    return false;
}

bool TFindBar::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(receiver, event);
    const auto& key = static_cast<QKeyEvent&>(*event);
    if (key.key() == Qt::Key_Escape) {
        Close();
        return true;
    }
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        Move(key.modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
        return true;
    }
    return QWidget::eventFilter(receiver, event);
}

} // namespace quorin
