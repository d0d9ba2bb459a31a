#include "platform/widgets/CustomEdit.h"

#include "platform/rtl/CaseMapping.h"

namespace quorin {

namespace {

constexpr Char FirstPrintable = u' ';
constexpr Word PasteKey = u'V';
constexpr Word CutKey = u'X';
constexpr Word SelectAllKey = u'A';

// The key that types a character on a keyboard of digits and letters.
Word KeyOf(StringView character) {
    const Char unit = UpperCase(character.front());
    if (character.size() > 1) return Key::Composed;
    if ((unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z')) return unit;
    switch (unit) {
    case u',': return Key::Comma;
    case u'-': return Key::Minus;
    case u'.': return Key::Point;
    case KeyChar::Return: return Key::Return;
    default: return Key::Composed;
    }
}

StringView FirstLine(StringView text) {
    return text.substr(0, text.find_first_of(u"\r\n"));
}

} // namespace

void TcxCustomEdit::PressKey(Word key, TShiftState shift, StringView text) {
    if (!TakesKeys()) return;
    const Word pressed = key;
    const TWatch watch(FLifeline);
    if (!Raise(FOnKeyDown, key, shift) || key == 0 || !TakesKeys()) return;
    if (HandleKey(key, shift) || !watch.IsAlive()) return;
    switch (key) {
    case Key::Back: return TypeCharacter(u"\b");
    case Key::Return: return TypeCharacter(u"\r");
    case Key::Escape: return TypeCharacter(u"\x1b");
    case Key::Delete: {
        const Char control = KeyPressed(KeyChar::Deletion);
        if (control == KeyChar::Deletion) return EraseEdited(/*toRight=*/true);
        return ActOnControl(control);
    }
    default: break;
    }
    if (key != pressed) return; // another key types another text, which nobody knows
    while (!text.empty() && watch.IsAlive() && TakesKeys()) {
        const StringView character = FirstCharacter(text);
        TypeCharacter(character);
        text.remove_prefix(character.size());
    }
}

void TcxCustomEdit::ReleaseKey(Word key, TShiftState shift) {
    if (TakesKeys()) Raise(FOnKeyUp, key, shift);
}

bool TcxCustomEdit::HandleKey(Word key, TShiftState shift) {
    const bool extend = Has(shift, TShiftState::Shift);
    switch (key) {
    case Key::Left: FText.StepCaret(/*toRight=*/false, extend); return true;
    case Key::Right: FText.StepCaret(/*toRight=*/true, extend); return true;
    case Key::Home: FText.MoveCaret(0, extend); return true;
    case Key::End: FText.MoveCaret(FText.Length(), extend); return true;
    case SelectAllKey:
        if (!Has(shift, TShiftState::Ctrl)) return false;
        SelectAll();
        return true;
    default: return false;
    }
}

void TcxCustomEdit::TypeText(StringView text) {
    TypeUnder(0, text);
}

void TcxCustomEdit::TypeUnder(Word fixedKey, StringView text) {
    const TWatch watch(FLifeline);
    while (!text.empty() && watch.IsAlive() && TakesKeys()) {
        const StringView character = FirstCharacter(text);
        const Word key = fixedKey == 0 ? KeyOf(character) : fixedKey;
        PressKey(key, TShiftState::None, character);
        if (watch.IsAlive()) ReleaseKey(key);
        text.remove_prefix(character.size());
    }
}

// The character that the handlers leave; None also when the widget is gone or takes no more keys.
Char TcxCustomEdit::KeyPressed(Char key) {
    if (!Raise(FOnKeyPress, key) || !TakesKeys()) return KeyChar::None;
    return key;
}

void TcxCustomEdit::TypeCharacter(StringView character) {
    Char units[2] = {};
    std::size_t count = 0;
    for (const Char unit : character) {
        units[count] = KeyPressed(Folded(unit));
        if (units[count] == KeyChar::None) return;
        ++count;
    }
    if (units[0] < FirstPrintable) return ActOnControl(units[0]);
    for (std::size_t index = 0; index < count; ++index) {
        if (!Accepts(units[index])) return;
    }
    InsertEdited(StringView(units, count));
}

void TcxCustomEdit::ActOnControl(Char control) {
    if (control == KeyChar::Deletion) EraseEdited(/*toRight=*/false);
    if (control == KeyChar::Return) AcceptEdit();
    if (control == KeyChar::Escape) CancelEdit();
}

void TcxCustomEdit::InsertEdited(StringView text) {
    const bool changes = text != SelText();
    if (changes) BeginEdit();
    FText.Insert(text);
    if (changes) TextEdited();
}

void TcxCustomEdit::EraseEdited(bool toRight) {
    if (SelLength() == 0 && (toRight ? CaretPosition() == FText.Length() : CaretPosition() == 0)) {
        return;
    }
    BeginEdit(); // before the text is another one
    FText.Erase(toRight);
    TextEdited();
}

void TcxCustomEdit::Paste(StringView text) {
    if (!TakesKeys()) return;
    String pasted(FirstLine(text));
    for (Char& unit : pasted) unit = Folded(unit);
    const TWatch watch(FLifeline);
    if (CommandPressed(PasteKey, KeyChar::Paste)) {
        if (const StringView taken = PasteOf(pasted); !taken.empty()) InsertEdited(taken);
    }
    if (watch.IsAlive()) ReleaseKey(PasteKey, TShiftState::Ctrl);
}

String TcxCustomEdit::Cut() {
    if (!TakesKeys() || SelLength() == 0) return {};
    String taken;
    const TWatch watch(FLifeline);
    if (CommandPressed(CutKey, KeyChar::Cut)) {
        taken = SelText();
        if (!taken.empty()) EraseEdited(/*toRight=*/true);
    }
    if (watch.IsAlive()) ReleaseKey(CutKey, TShiftState::Ctrl);
    return taken;
}

// A letter with Ctrl. False when a handler has used it up or the widget takes no more keys.
bool TcxCustomEdit::CommandPressed(Word key, Char control) {
    if (!Raise(FOnKeyDown, key, TShiftState::Ctrl) || key == 0 || !TakesKeys()) return false;
    return KeyPressed(control) == control;
}

void TcxCustomEdit::Compose(StringView text) {
    if (TakesKeys()) FComposition = text;
}

void TcxCustomEdit::CommitComposition(StringView text) {
    FComposition.clear();
    TypeUnder(Key::Composed, text);
}

} // namespace quorin
