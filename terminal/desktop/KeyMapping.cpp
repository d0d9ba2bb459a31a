#include "terminal/desktop/KeyMapping.h"

#include "terminal/desktop/QtText.h"

namespace quorin {

namespace {

constexpr Char FirstPrintable = u' ';
constexpr Char RubOut = 0x7F; // what Qt has for the key Delete

struct TMappedKey {
    int Key;
    Word Number;
};

constexpr TMappedKey MappedKeys[] = {
    {Qt::Key_Backspace, Key::Back}, {Qt::Key_Return, Key::Return}, {Qt::Key_Enter, Key::Return},
    {Qt::Key_Escape, Key::Escape},  {Qt::Key_End, Key::End},       {Qt::Key_Home, Key::Home},
    {Qt::Key_Left, Key::Left},      {Qt::Key_Up, Key::Up},         {Qt::Key_Right, Key::Right},
    {Qt::Key_Down, Key::Down},      {Qt::Key_Delete, Key::Delete}, {Qt::Key_F4, Key::F4},
    {Qt::Key_Comma, Key::Comma},    {Qt::Key_Minus, Key::Minus},   {Qt::Key_Period, Key::Point},
};

} // namespace

Word KeyOfEvent(const QKeyEvent& event) {
    const int key = event.key();
    const bool isDigit = key >= Qt::Key_0 && key <= Qt::Key_9;
    const bool isLetter = key >= Qt::Key_A && key <= Qt::Key_Z;
    if (isDigit || isLetter) return static_cast<Word>(key); // Qt's are the characters as well
    for (const TMappedKey& mapped : MappedKeys) {
        if (mapped.Key == key) return mapped.Number;
    }
    return TypedText(event).empty() ? Word{0} : Key::Composed;
}

TShiftState ShiftOf(Qt::KeyboardModifiers modifiers) {
    TShiftState shift = TShiftState::None;
    if (modifiers.testFlag(Qt::ShiftModifier)) shift = shift | TShiftState::Shift;
    if (modifiers.testFlag(Qt::AltModifier)) shift = shift | TShiftState::Alt;
    if (modifiers.testFlag(Qt::ControlModifier)) shift = shift | TShiftState::Ctrl;
    return shift;
}

String TypedText(const QKeyEvent& event) {
    // Both together are AltGr on some systems, which types.
    const bool isCtrl = event.modifiers().testFlag(Qt::ControlModifier);
    const bool isAlt = event.modifiers().testFlag(Qt::AltModifier);
    if (isCtrl != isAlt) return {};
    String text = FromQt(event.text());
    if (text.empty() || text.front() < FirstPrintable || text.front() == RubOut) return {};
    return text;
}

} // namespace quorin
