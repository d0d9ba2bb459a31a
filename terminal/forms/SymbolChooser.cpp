#include "terminal/forms/SymbolChooser.h"

#include "terminal/forms/FieldListForm.h"
#include "viewdata/editors/EditorManager.h"

namespace quorin {

namespace {

constexpr Boolean ShowsName = true;

} // namespace

TSymbolChooser::TSymbolChooser(TComponent* owner) : TFrame(owner) {
    FEdit.SetParent(this);
    // Set before the field is registered: what trades takes over its events and passes them on.
    FEdit.SetOnKeyDown(MakeEvent<&TSymbolChooser::KeyDown>(this));
    FEdit.SetOnExit(MakeEvent<&TSymbolChooser::Left>(this));
    FEdit.Properties().SetOnChange(MakeEvent<&TSymbolChooser::TextChanged>(this));
    SetGroup({});
}

TSymbolChooser::~TSymbolChooser() {
    BeginDestruction();
    TEditorManager::GetInstance()->RemoveSymbolEditor(&FEdit);
}

void TSymbolChooser::SetGroup(StringView groupID) {
    const Boolean isAlone = groupID.empty();
    TEditorManager::GetInstance()->RegisterSymbolEditor(&FEdit, groupID, isAlone, ShowsName);
}

void TSymbolChooser::Enter(StringView symbol) {
    FEdit.Enter();
    if (!FEdit.Focused()) return;
    FEdit.SelectAll();
    FEdit.Paste(symbol);
    FEdit.PressKey(Key::Return);
    FEdit.Leave();
}

void TSymbolChooser::KeyDown(TObject*, Word& Key, TShiftState) {
    if (Key == Key::Return) ShowWholeList(FEdit);
}

void TSymbolChooser::Left(TObject*) {
    ShowWholeList(FEdit);
}

void TSymbolChooser::TextChanged(TObject*) {
    FilterByTyping(FEdit);
}

} // namespace quorin
