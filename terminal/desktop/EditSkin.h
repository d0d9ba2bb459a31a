#pragma once

#include "platform/widgets/CustomEdit.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QLineEdit>

namespace quorin {

// A headless field on the screen: every event goes to it, and text, caret, selection and buttons
// are drawn as it says. The line edit beneath never edits by itself.
class TEditSkin : public QLineEdit {
    Q_OBJECT

public:
    // `edit` must live longer.
    explicit TEditSkin(TcxCustomEdit& edit, QWidget* parent = nullptr);

    TcxCustomEdit& Edit() { return FEdit; }
    // Takes over what the headless field shows now; to be called once per frame as well, since the
    // field may change without an event of its own.
    virtual void Mirror();
    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    // Draws the sign on a button.
    virtual void PaintButton(QPainter& painter, const QRect& place, Integer index) = 0;

private:
    void Press(const QMouseEvent& event);
    bool TakeClipboardKey(const QKeyEvent& event);
    void ShowComposition();
    void ShowCaret();

    TcxCustomEdit& FEdit;
    QString FShownComposition; // that the line edit was told of
};

} // namespace quorin
