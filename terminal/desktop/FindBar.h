#pragma once

#include "terminal/forms/ShownForm.h"

#include <QWidget>

class QAbstractItemView;
class QLineEdit;

namespace quorin {

// The strip in which the user looks for a text in a list or a tree. In a list only the rows in
// which it stands are left on show; Return and Shift+Return go from one to the next, Escape closes.
class TFindBar : public QWidget {
    Q_OBJECT

public:
    // Both must live longer. Hidden to begin with.
    TFindBar(QAbstractItemView& view, TShownForm& form, QWidget* parent = nullptr);

    QLineEdit& Field() { return *FField; }
    void Open();
    void Close();
    // Puts the focus on the next row with the text, over the end to the other one; `step` is 1 or
    // -1. False where there is none.
    bool Move(Integer step);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    bool Stands(Integer row, const QString& text);
    void Look();

    QAbstractItemView& FView;
    TShownForm& FForm;
    QLineEdit* FField;
};

} // namespace quorin
