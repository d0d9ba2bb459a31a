#pragma once

#include "terminal/desktop/ViewSkin.h"
#include "terminal/forms/TreeForm.h"

namespace quorin {

// A headless tree list on the screen. A click on the sign before a row, or Left and Right, close
// and open it.
class TTreeSkin : public TViewSkin {
    Q_OBJECT

public:
    // `form` must live longer.
    explicit TTreeSkin(TTreeForm& form, QWidget* parent = nullptr);

    TTreeForm& Form() const { return FForm; }
    // The place of the sign that opens or closes the row.
    QRect SignRect(int row) const;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void SetExpanded(int row, bool expanded);

    TTreeForm& FForm;
};

} // namespace quorin
