#include "terminal/desktop/CloseAllDialog.h"

#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace quorin {

namespace {

constexpr int TickColumn = 0;
constexpr int FrameInterval = 100; // milliseconds
constexpr int DialogWidth = 560;
constexpr int DialogHeight = 360;

} // namespace

TCloseAllModel::TCloseAllModel(TCloseAllForm& form, QObject* parent)
    : TViewModel(std::make_unique<TGridAccess>(form.View()), &form, parent), FForm(form) {}

QVariant TCloseAllModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::CheckStateRole && index.column() == TickColumn) {
        if (!FForm.CanTick(index.row())) return {};
        return FForm.IsTicked(index.row()) ? Qt::Checked : Qt::Unchecked;
    }
    return TViewModel::data(index, role);
}

bool TCloseAllModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || !index.isValid()) return false;
    FForm.SetTicked(index.row(), value.toInt() == Qt::Checked);
    emit dataChanged(index, index);
    emit TicksChanged();
    return true;
}

Qt::ItemFlags TCloseAllModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = TViewModel::flags(index);
    const bool isBox = index.column() == TickColumn && FForm.CanTick(index.row());
    return isBox ? flags | Qt::ItemIsUserCheckable : flags;
}

void TCloseAllModel::Refresh() {
    FollowSize();
    if (rowCount() == 0) return;
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

TCloseAllDialog::TCloseAllDialog(TCloseAllForm& form, const QString& question, QWidget* parent)
    : QDialog(parent), FForm(form), FModel(new TCloseAllModel(form, this)),
      FTable(new QTableView(this)) {
    setWindowTitle(ToQt(InterfaceText(TerminalKey::Res_CloseAll)));
    auto* text = new QLabel(question, this);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    FTable->setModel(FModel);
    FTable->setAccessibleName(windowTitle());
    FTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    FTable->setSelectionMode(QAbstractItemView::SingleSelection);
    FTable->setTabKeyNavigation(false);
    FTable->verticalHeader()->hide();
    FTable->horizontalHeader()->setStretchLastSection(true);
    auto* buttons = new QDialogButtonBox(this);
    FClose = buttons->addButton(ToQt(InterfaceText(TerminalKey::Res_CloseTicked)),
                                QDialogButtonBox::AcceptRole);
    buttons->addButton(ToQt(InterfaceText(ResourceKey::Res_Cancel_Btn)),
                       QDialogButtonBox::RejectRole);
    FClose->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(FTable);
    layout->addWidget(buttons);
    resize(DialogWidth, DialogHeight);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(FModel, &TCloseAllModel::TicksChanged, this, &TCloseAllDialog::FollowTicks);
    connect(&FFrameTimer, &QTimer::timeout, this, &TCloseAllDialog::Follow);
    FFrameTimer.start(FrameInterval);
    Follow();
    FTable->resizeColumnsToContents();
    FTable->setFocus();
}

void TCloseAllDialog::Follow() {
    if (FForm.TakeRepaint()) FModel->Refresh();
    FollowTicks();
}

void TCloseAllDialog::FollowTicks() {
    FClose->setEnabled(FForm.IsAnyTicked());
}

} // namespace quorin
