#include "terminal/desktop/EditSkin.h"

#include "terminal/desktop/KeyMapping.h"
#include "terminal/desktop/QtText.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QPainter>
#include <QPointer>
#include <QStyle>

namespace quorin {

namespace {

constexpr int FieldHeight = 26;
constexpr int TextGap = 2; // between the text and the buttons

TPoint PointOf(const QMouseEvent& event) {
    return {event.position().toPoint().x(), event.position().toPoint().y()};
}

QRect RectOf(const TRect& rect) {
    return {rect.Left, rect.Top, rect.Right - rect.Left, rect.Bottom - rect.Top};
}

// The field that has refused to be left and is about to get Qt's focus back: the one that Qt has
// given it to meanwhile does not ask again.
QPointer<TEditSkin> Refusing;

// Somebody else's window or a menu has the keys for a while; the person is still in the field.
bool IsAway(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

} // namespace

TEditSkin::TEditSkin(TcxCustomEdit& edit, QWidget* parent) : QLineEdit(parent), FEdit(edit) {
    setContextMenuPolicy(Qt::NoContextMenu);
    setDragEnabled(false);
    setAcceptDrops(false);
    setTextMargins(0, 0, TcxCustomEdit::ButtonWidth + TextGap, 0);
    setFixedHeight(FieldHeight);
    setAttribute(Qt::WA_InputMethodEnabled);
}

QSize TEditSkin::sizeHint() const {
    return {2 * TcxCustomEdit::DefaultWidth, FieldHeight};
}

void TEditSkin::Mirror() {
    const QString text = ToQt(FEdit.Text());
    if (this->text() != text) {
        if (!FShownComposition.isEmpty()) ShowComposition();
        setText(text);
    }
    ShowComposition();
    ShowCaret();
    if (isEnabled() != FEdit.Enabled()) setEnabled(FEdit.Enabled());
    const QString error = ToQt(FEdit.ErrorText());
    if (toolTip() != error) setToolTip(error);
    update();
}

// The line edit would take a selection out when a composition begins; the field keeps it until
// something is committed.
void TEditSkin::ShowComposition() {
    const QString composition = ToQt(FEdit.CompositionText());
    if (composition == FShownComposition) return;
    FShownComposition = composition;
    setCursorPosition(FEdit.CaretPosition());
    QInputMethodEvent event(composition, {});
    QLineEdit::inputMethodEvent(&event);
}

void TEditSkin::ShowCaret() {
    if (!FShownComposition.isEmpty()) return;
    const int start = FEdit.SelStart();
    const int length = FEdit.SelLength();
    const bool isCaretLeft = length > 0 && FEdit.CaretPosition() == start;
    if (length == 0) {
        if (hasSelectedText() || cursorPosition() != start) {
            deselect();
            setCursorPosition(start);
        }
    } else if (selectionStart() != start || selectionLength() != length ||
               cursorPosition() != FEdit.CaretPosition()) {
        setSelection(isCaretLeft ? start + length : start, isCaretLeft ? -length : length);
    }
}

// Keys that type or edit here never become shortcuts of the window.
bool TEditSkin::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const Word number = KeyOfEvent(key);
        const bool isCommand = key.modifiers().testFlag(Qt::ControlModifier) ||
                               key.modifiers().testFlag(Qt::AltModifier);
        const bool isForClipboard =
            key.matches(QKeySequence::Copy) || key.matches(QKeySequence::Cut) ||
            key.matches(QKeySequence::Paste) || key.matches(QKeySequence::SelectAll);
        if ((number != 0 && !isCommand) || isForClipboard || !TypedText(key).empty()) {
            event->accept();
            return true;
        }
        return QWidget::event(event);
    }
    return QLineEdit::event(event);
}

bool TEditSkin::TakeClipboardKey(const QKeyEvent& event) {
    QClipboard& clipboard = *QApplication::clipboard();
    if (event.matches(QKeySequence::Paste)) {
        FEdit.Paste(FromQt(clipboard.text()));
    } else if (event.matches(QKeySequence::Cut)) {
        const String cut = FEdit.Cut();
        if (!cut.empty()) clipboard.setText(ToQt(cut));
    } else if (event.matches(QKeySequence::Copy)) {
        if (FEdit.SelLength() > 0) clipboard.setText(ToQt(FEdit.SelText()));
    } else {
        return false;
    }
    return true;
}

void TEditSkin::keyPressEvent(QKeyEvent* event) {
    const QPointer<TEditSkin> alive(this);
    if (!TakeClipboardKey(*event)) {
        const Word key = KeyOfEvent(*event);
        if (key == 0) return event->ignore();
        FEdit.PressKey(key, ShiftOf(event->modifiers()), TypedText(*event));
    }
    event->accept();
    if (alive) Mirror();
}

// A key that is held comes as pairs of release and press; the field knows the presses only.
void TEditSkin::keyReleaseEvent(QKeyEvent* event) {
    const Word key = KeyOfEvent(*event);
    if (event->isAutoRepeat() || key == 0) return event->ignore();
    const QPointer<TEditSkin> alive(this);
    FEdit.ReleaseKey(key, ShiftOf(event->modifiers()));
    if (alive) Mirror();
}

void TEditSkin::Press(const QMouseEvent& event) {
    FEdit.PressMouse(PointOf(event), cursorPositionAt(event.position().toPoint()),
                     ShiftOf(event.modifiers()));
}

void TEditSkin::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    const QPointer<TEditSkin> alive(this);
    Press(*event);
    if (alive) Mirror();
}

void TEditSkin::mouseMoveEvent(QMouseEvent* event) {
    const bool isOnButton = FEdit.ButtonVisibleIndexAt(PointOf(*event)) != TcxCustomEdit::NoButton;
    setCursor(isOnButton ? Qt::ArrowCursor : Qt::IBeamCursor);
    if (!event->buttons().testFlag(Qt::LeftButton)) return;
    FEdit.DragMouse(cursorPositionAt(event->position().toPoint()));
    Mirror();
}

void TEditSkin::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    const QPointer<TEditSkin> alive(this);
    FEdit.ReleaseMouse();
    if (alive) Mirror();
}

// Qt sends this in place of every second press of a quick series: a button counts each of them.
void TEditSkin::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    const QPointer<TEditSkin> alive(this);
    Press(*event);
    if (!alive) return;
    if (FEdit.Focused() && FEdit.PressedButton() == TcxCustomEdit::NoButton) FEdit.SelectAll();
    Mirror();
}

void TEditSkin::wheelEvent(QWheelEvent* event) {
    const QPoint turned = event->angleDelta();
    const int delta = turned.y() != 0 ? turned.y() : turned.x(); // Alt turns it sideways
    const QPoint at = event->position().toPoint();
    const QPointer<TEditSkin> alive(this);
    const bool isUsed = FEdit.Wheel(delta, ShiftOf(event->modifiers()), {at.x(), at.y()});
    event->setAccepted(isUsed);
    if (alive) Mirror();
}

void TEditSkin::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (Refusing == this) Refusing.clear();
    const QPointer<TEditSkin> alive(this);
    if (Refusing.isNull()) FEdit.Enter();
    if (alive) Mirror();
}

void TEditSkin::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (IsAway(event->reason())) return;
    const QPointer<TEditSkin> alive(this);
    const bool isLeft = FEdit.Leave();
    if (!alive) return;
    if (!isLeft) {
        Refusing = this;
        QMetaObject::invokeMethod(
            this, [this] { setFocus(); }, Qt::QueuedConnection);
    }
    Mirror();
}

void TEditSkin::inputMethodEvent(QInputMethodEvent* event) {
    const QPointer<TEditSkin> alive(this);
    if (event->replacementLength() > 0) {
        FEdit.SetSelStart(FEdit.CaretPosition() + event->replacementStart());
        FEdit.SetSelLength(event->replacementLength());
    }
    if (!event->commitString().isEmpty()) FEdit.CommitComposition(FromQt(event->commitString()));
    if (!alive) return;
    FEdit.Compose(FromQt(event->preeditString()));
    event->accept();
    Mirror();
}

void TEditSkin::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    FEdit.SetBounds(x(), y(), width(), height());
}

void TEditSkin::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    for (Integer index = 0; index < FEdit.ButtonCount(); ++index) {
        const QRect place = RectOf(FEdit.ButtonRect(index)).adjusted(1, 1, -2, -1);
        const bool isPressed = FEdit.PressedButton() == index;
        painter.fillRect(place, palette().color(isPressed ? QPalette::Mid : QPalette::Button));
        PaintButton(painter, place, index);
    }
    if (FEdit.ErrorText().empty()) return;
    painter.setPen(Qt::red);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace quorin
