#pragma once

#include "viewdata/services/DialogRecords.h"

#include <QDialog>

class QComboBox;
class QLineEdit;
class QListWidget;

namespace quorin {

// The column chooser: columns to tick and to drag into their order; reserved ones stay ticked.
// Tells of each change at once.
class TColumnChooser : public QDialog {
    Q_OBJECT

public:
    explicit TColumnChooser(const TCustomColumnRecord& asked, QWidget* parent = nullptr);

    QListWidget& List() { return *FList; }
    // What stands in the list.
    TCustomColumnRecord Choice() const;

signals:
    void Changed();

private:
    void TellChange();

    QListWidget* FList;
    int FColumns;
};

// The filter of one column: an operator and a text.
class TFilterDialog : public QDialog {
    Q_OBJECT

public:
    explicit TFilterDialog(const TCustomFilterRecord& asked, QWidget* parent = nullptr);

    QComboBox& Operators() { return *FOperators; }
    QLineEdit& Text() { return *FText; }
    void ReadInto(TCustomFilterRecord& filter) const;

private:
    QComboBox* FOperators;
    QLineEdit* FText;
};

} // namespace quorin
