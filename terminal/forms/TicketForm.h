#pragma once

#include "embedded/OrderService.h"
#include "platform/widgets/PopupEdit.h"
#include "platform/widgets/SpinEdit.h"

namespace quorin {

enum class TTicketField : Byte { Account, Symbol, Price, Quantity };
inline constexpr TTicketField TicketFields[] = {TTicketField::Account, TTicketField::Symbol,
                                                TTicketField::Price, TTicketField::Quantity};

// An order ticket without its pixels: account, symbol, price and quantity as fields with trading
// behaviour, and the order that they make. Another symbol empties price and quantity, which step by
// its tick table and lot. A skin forwards what the user does to the fields and draws what they say.
// Must be gone before the editor manager is released, and that before the services.
class TTicketForm : public TFrame {
    QUORIN_CLASS(TTicketForm, TFrame)

    explicit TTicketForm(TComponent* owner = nullptr);
    ~TTicketForm() override;

    TcxPopupEdit& AccountEdit() { return FAccount; }
    TcxPopupEdit& SymbolEdit() { return FSymbol; }
    TcxSpinEdit& PriceEdit() { return FPrice; }
    TcxSpinEdit& QuantityEdit() { return FQuantity; }
    TcxCustomEdit& Edit(TTicketField field);
    // What stands beside the field, in the language in force.
    static String Caption(TTicketField field);

    // The validated codes; empty for none.
    const String& Account() const { return FAccount.Hint(); }
    const String& Symbol() const { return FSymbol.Hint(); }
    // As an order takes it: what is shown, divided by the product's display ratio.
    Double Price() const;
    Double Quantity() const;

    // Links the field with those of the group, which may be empty for none; an alone field follows
    // no others. A new ticket is in no group.
    void SetGroup(TTicketField field, StringView groupID, Boolean alone = false);
    // Shows a stored account, as soon as the accounts are ready.
    void SetLayoutAccount(StringView account);

    // User action: the order goes out. Leaves the field with the focus first, as a press of a
    // button does. With "ConfirmationPlaceOrd" the application asks the user about an order that is
    // complete. `Side` is one of OrderSide. False when it was not taken: a field refuses to be
    // left, nobody is logged in, the user said no, the market refused, or another is still being
    // asked about.
    Boolean Send(Integer side, Boolean atMarket);

    // An order is on its way, or being asked about.
    Boolean IsSending() const { return FIsSending; }

    // Enters what is there of account, symbol, price and quantity as a person would, field by
    // field; what the order leaves out stays as it is. A field that does not take its text, or
    // another one that refuses to be left, ends it.
    void TakeCopy(const TOrderValues& order);
    // Enters the symbol as a person would; False when the field did not take it.
    bool TakeSymbol(StringView symbol);
    // The ticket that lists copy into: of those whose symbol is linked in the group, or else of all
    // that are open, the one used last; nil when none is open.
    static TTicketForm* ForCopies(StringView groupID);

    // To be called as time goes on, for a spin button that is held.
    void Tick(Integer milliseconds);

private:
    void FieldEntered(TObject* Sender);
    bool EnterText(TcxCustomEdit& edit, StringView text);
    void AccountKeyDown(TObject* Sender, Word& Key, TShiftState Shift);
    void AccountExit(TObject* Sender);
    void SymbolKeyDown(TObject* Sender, Word& Key, TShiftState Shift);
    void SymbolExit(TObject* Sender);
    void TextChanged(TObject* Sender);
    void FollowSymbol();
    bool LeaveFields();
    bool AsksFirst() const;

    TcxPopupEdit FAccount;
    TcxPopupEdit FSymbol;
    TcxSpinEdit FPrice;
    TcxSpinEdit FQuantity;
    String FSymbolGroup;
    String FProduct; // whose table and lot the numbers have
    Boolean FIsSending = false;
};

} // namespace quorin
