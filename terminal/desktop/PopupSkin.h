#pragma once

#include "platform/widgets/PopupEdit.h"
#include "terminal/desktop/EditSkin.h"
#include "terminal/desktop/GridSkin.h"
#include "terminal/forms/FieldListForm.h"

#include <QFrame>

namespace quorin {

// A headless popup edit on the screen, with its list in a window below it that leaves the field the
// keys. Up and Down go through the open list, Return takes its row.
class TPopupSkin : public TEditSkin {
    Q_OBJECT

public:
    explicit TPopupSkin(TcxPopupEdit& edit, QWidget* parent = nullptr);
    ~TPopupSkin() override;

    void Mirror() override;
    // The list on the screen; nil while it is not open.
    TGridSkin* OpenList();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void PaintButton(QPainter& painter, const QRect& place, Integer index) override;

private:
    void ShowList();
    void HideList();
    void Choose(int row);
    bool TakeListKey(int key);

    TcxPopupEdit& FPopup;
    std::unique_ptr<QFrame> FWindow;
    TGridSkin* FList = nullptr; // the window's
};

} // namespace quorin
