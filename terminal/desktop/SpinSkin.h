#pragma once

#include "platform/widgets/SpinEdit.h"
#include "terminal/desktop/EditSkin.h"

namespace quorin {

// A headless spin edit on the screen. While a button is held, the clock of the host drives it.
class TSpinSkin : public TEditSkin {
    Q_OBJECT

public:
    explicit TSpinSkin(TcxSpinEdit& edit, QWidget* parent = nullptr);

    void Mirror() override;

protected:
    void timerEvent(QTimerEvent* event) override;
    void PaintButton(QPainter& painter, const QRect& place, Integer index) override;

private:
    TcxSpinEdit& FSpin;
    QBasicTimer FHold;
    QElapsedTimer FClock;
};

} // namespace quorin
