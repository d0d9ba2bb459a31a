#include "terminal/desktop/SpinSkin.h"

#include "terminal/desktop/ButtonSigns.h"

#include <QPointer>
#include <QTimerEvent>

namespace quorin {

namespace {

constexpr int HoldInterval = 20; // milliseconds; well below the time between two repeats

} // namespace

TSpinSkin::TSpinSkin(TcxSpinEdit& edit, QWidget* parent) : TEditSkin(edit, parent), FSpin(edit) {
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setInputMethodHints(Qt::ImhPreferNumbers);
    Mirror();
}

void TSpinSkin::Mirror() {
    TEditSkin::Mirror();
    const bool isHeld = FSpin.PressedButton() != TcxCustomEdit::NoButton;
    if (isHeld && !FHold.isActive()) {
        FClock.start();
        FHold.start(HoldInterval, Qt::PreciseTimer, this);
    } else if (!isHeld) {
        FHold.stop();
    }
}

void TSpinSkin::timerEvent(QTimerEvent* event) {
    if (event->timerId() != FHold.timerId()) return TEditSkin::timerEvent(event);
    const QPointer<TSpinSkin> alive(this);
    FSpin.Tick(static_cast<Integer>(FClock.restart()));
    if (alive) Mirror();
}

void TSpinSkin::PaintButton(QPainter& painter, const QRect& place, Integer index) {
    const bool isUp = index == TcxSpinEdit::UpButton;
    DrawTriangle(painter, place, isUp ? TTriangle::Up : TTriangle::Down);
}

} // namespace quorin
