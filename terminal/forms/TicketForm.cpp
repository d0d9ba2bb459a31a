#include "terminal/forms/TicketForm.h"

#include "terminal/forms/FieldListForm.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/editors/EditorManager.h"
#include "viewdata/editors/SpinField.h"
#include "viewdata/frame/OrderActions.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/ConfigKeys.h"
#include "viewdata/services/ConfigManager.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/LoginCtrl.h"
#include "viewdata/services/OrderAdapter.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <algorithm>
#include <vector>

namespace quorin {

namespace {

constexpr Integer FromNoList = 0; // in place of an OrderSource
constexpr Boolean ShowsName = true;

// The open tickets, the one used last at the end.
std::vector<TTicketForm*> OpenTickets;

} // namespace

TTicketForm::TTicketForm(TComponent* owner) : TFrame(owner) {
    for (const TTicketField field : TicketFields) Edit(field).SetParent(this);
    OpenTickets.push_back(this);
    for (const TTicketField field : TicketFields) {
        Edit(field).SetOnEnter(MakeEvent<&TTicketForm::FieldEntered>(this));
    }
    // Set before the fields are registered: what trades takes over their events and passes them on.
    FAccount.SetOnKeyDown(MakeEvent<&TTicketForm::AccountKeyDown>(this));
    FAccount.SetOnExit(MakeEvent<&TTicketForm::AccountExit>(this));
    FAccount.Properties().SetOnChange(MakeEvent<&TTicketForm::TextChanged>(this));
    FSymbol.SetOnKeyDown(MakeEvent<&TTicketForm::SymbolKeyDown>(this));
    FSymbol.SetOnExit(MakeEvent<&TTicketForm::SymbolExit>(this));
    FSymbol.Properties().SetOnChange(MakeEvent<&TTicketForm::TextChanged>(this));

    // The numbers first: a symbol that is taken over at once needs them.
    SetGroup(TTicketField::Price, {});
    SetGroup(TTicketField::Quantity, {});
    FPrice.SetEditValue(0.0);
    SetGroup(TTicketField::Account, {});
    SetGroup(TTicketField::Symbol, {});
    FollowSymbol();
}

TTicketForm::~TTicketForm() {
    BeginDestruction();
    std::erase(OpenTickets, this);
    TEditorManager& editors = *TEditorManager::GetInstance();
    editors.RemoveSymbolEditor(&FSymbol);
    editors.RemoveAccountEditor(&FAccount);
    editors.RemoveQuantityEditor(&FQuantity);
    editors.RemovePriceEditor(&FPrice);
}

TcxCustomEdit& TTicketForm::Edit(TTicketField field) {
    switch (field) {
    case TTicketField::Account: return FAccount;
    case TTicketField::Symbol: return FSymbol;
    case TTicketField::Price: return FPrice;
    case TTicketField::Quantity: break;
    }
    return FQuantity;
}

String TTicketForm::Caption(TTicketField field) {
    switch (field) {
    case TTicketField::Account: return InterfaceText(ResourceKey::Res_Account);
    case TTicketField::Symbol: return InterfaceText(ResourceKey::Res_Symbol);
    case TTicketField::Price: return InterfaceText(TerminalKey::Res_Price);
    case TTicketField::Quantity: break;
    }
    return InterfaceText(TerminalKey::Res_Qty);
}

void TTicketForm::SetGroup(TTicketField field, StringView groupID, Boolean alone) {
    TEditorManager& editors = *TEditorManager::GetInstance();
    switch (field) {
    case TTicketField::Account:
        editors.RegisterAccountEditor(&FAccount, groupID, alone, ShowsName);
        return;
    case TTicketField::Symbol:
        FSymbolGroup = groupID;
        editors.RegisterSymbolEditor(&FSymbol, groupID, alone, ShowsName);
        return;
    // A number that is registered anew has no product any more.
    case TTicketField::Price:
        editors.RegisterPriceEditor(&FPrice, groupID);
        editors.SetPriceSymbol(&FPrice, FProduct);
        return;
    case TTicketField::Quantity:
        editors.RegisterQuantityEditor(&FQuantity, groupID);
        editors.SetQuantitySymbol(&FQuantity, FProduct);
        return;
    }
}

void TTicketForm::SetLayoutAccount(StringView account) {
    TEditorManager::GetInstance()->SetAccountLayoutAccount(&FAccount, account);
}

void TTicketForm::AccountKeyDown(TObject*, Word& Key, TShiftState) {
    if (Key == Key::Return) ShowWholeList(FAccount);
}

void TTicketForm::AccountExit(TObject*) {
    ShowWholeList(FAccount);
}

void TTicketForm::SymbolKeyDown(TObject*, Word& Key, TShiftState) {
    if (Key != Key::Return) return;
    ShowWholeList(FSymbol);
    FollowSymbol();
}

void TTicketForm::SymbolExit(TObject*) {
    ShowWholeList(FSymbol);
    FollowSymbol();
}

void TTicketForm::TextChanged(TObject* Sender) {
    FilterByTyping(Sender == &FSymbol ? FSymbol : FAccount);
}

void TTicketForm::FollowSymbol() {
    if (FSymbol.Hint() == FProduct) return;
    FProduct = FSymbol.Hint();
    TEditorManager& editors = *TEditorManager::GetInstance();
    editors.SetPriceSymbol(&FPrice, FProduct);
    editors.SetQuantitySymbol(&FQuantity, FProduct);
    // Written when the table is the new one's, which gives the step.
    FPrice.SetEditValue(Variant());
    FQuantity.SetEditValue(Int64{0}); // else the keys that multiply would bring the old one back
    FQuantity.SetEditValue(Variant());
}

Double TTicketForm::Price() const {
    const TCustomSubItem* item =
        TCustomSubscribeAdapter::GetInstance()->GetSubItem(FProduct, LiveDataType, /*Flag=*/false);
    return ValueOf(FPrice) / DisplayRatioOf(*item);
}

Double TTicketForm::Quantity() const {
    return ValueOf(FQuantity);
}

bool TTicketForm::LeaveFields() {
    for (const TTicketField field : TicketFields) {
        if (!Edit(field).Leave()) return false;
    }
    return true;
}

// What is not complete is refused by the market with its reason, and no question asked.
bool TTicketForm::AsksFirst() const {
    if (Account().empty() || Symbol().empty() || !(Quantity() > 0.0)) return false;
    const TCustomConfigManager& config = *TCustomConfigManager::GetInstance();
    return config.ReadBool(config.GetCurrentSection(), ConfigKey::ConfirmationPlaceOrd);
}

Boolean TTicketForm::Send(Integer side, Boolean atMarket) {
    if (FIsSending || !TCustomLoginCtrl::GetInstance()->IsLogin()) return false;
    TCustomOrderAdapter* orders = TCustomOrderAdapter::GetInstance();
    const TWatch watch(FLifeline);
    if (orders == nullptr || !LeaveFields() || !watch.IsAlive()) return false;
    const std::unique_ptr<TCustomClientOrder> order = orders->CreateClientOrder();
    order->SetAccount(Account());
    order->SetSymbol(Symbol());
    order->SetQuantity(Quantity());
    order->SetBuySell(side);
    order->SetPrice(atMarket ? 0.0 : Price());
    if (atMarket) SetMarketFlag(*order);
    FIsSending = true;
    const Boolean isTaken = AsksFirst() ? ConfirmOrder(*order, FromNoList, {}) : TakeOrder(*order);
    if (watch.IsAlive()) FIsSending = false; // the question may have outlived the ticket
    return isTaken;
}

void TTicketForm::FieldEntered(TObject*) {
    std::erase(OpenTickets, this);
    OpenTickets.push_back(this);
}

TTicketForm* TTicketForm::ForCopies(StringView groupID) {
    if (OpenTickets.empty()) return nullptr;
    if (!groupID.empty()) {
        const auto linked = std::find_if(
            OpenTickets.rbegin(), OpenTickets.rend(),
            [groupID](const TTicketForm* ticket) { return ticket->FSymbolGroup == groupID; });
        if (linked != OpenTickets.rend()) return *linked;
    }
    return OpenTickets.back();
}

bool TTicketForm::EnterText(TcxCustomEdit& edit, StringView text) {
    const TWatch watch(FLifeline);
    edit.Enter();
    if (!watch.IsAlive() || !edit.Focused()) return false;
    edit.SelectAll();
    edit.Paste(text);
    if (watch.IsAlive()) edit.PressKey(Key::Return);
    return watch.IsAlive() && edit.Leave() && watch.IsAlive();
}

bool TTicketForm::TakeSymbol(StringView symbol) {
    return EnterText(FSymbol, symbol) && FSymbol.Hint() == symbol;
}

void TTicketForm::TakeCopy(const TOrderValues& copied) {
    const TOrderValues order = copied; // the list may use its own for the next
    if (!order.Account.empty() && order.Account != Account() &&
        !EnterText(FAccount, order.Account)) {
        return;
    }
    if (order.Symbol != Symbol() && !TakeSymbol(order.Symbol)) return;
    const TCustomSubItem* item =
        TCustomSubscribeAdapter::GetInstance()->GetSubItem(FProduct, LiveDataType, /*Flag=*/false);
    if (order.Price != 0.0) FPrice.SetEditValue(order.Price * DisplayRatioOf(*item)); // 0.0: none
    if (order.Quantity > 0.0) FQuantity.SetEditValue(order.Quantity);
}

void TTicketForm::Tick(Integer milliseconds) {
    FPrice.Tick(milliseconds);
    FQuantity.Tick(milliseconds);
}

} // namespace quorin
