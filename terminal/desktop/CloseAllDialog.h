#pragma once

#include "terminal/desktop/ViewModel.h"
#include "terminal/forms/CloseAllForm.h"

#include <QDialog>
#include <QTimer>

class QPushButton;
class QTableView;

namespace quorin {

// The positions of a close-all list as a table whose rows are ticked in their first column.
class TCloseAllModel : public TViewModel {
    Q_OBJECT

public:
    TCloseAllModel(TCloseAllForm& form, QObject* parent);

    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // Tells Qt that every cell may be another.
    void Refresh();

signals:
    void TicksChanged();

private:
    TCloseAllForm& FForm;
};

// Asks which positions to close; accepted for those that are ticked. Follows the list while it is
// open.
class TCloseAllDialog : public QDialog {
    Q_OBJECT

public:
    // `form` must live longer.
    TCloseAllDialog(TCloseAllForm& form, const QString& question, QWidget* parent);

    QTableView& Table() { return *FTable; }

private:
    void Follow();
    void FollowTicks();

    TCloseAllForm& FForm;
    TCloseAllModel* FModel;
    QTableView* FTable;
    QPushButton* FClose;
    QTimer FFrameTimer;
};

} // namespace quorin
