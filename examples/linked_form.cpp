// Two forms of one's own whose symbol fields are linked: what is entered in one stands in the
// other, and the price field follows the tick table of the symbol.
#include "embedded/EmbeddedServices.h"
#include "embedded/SilentHost.h"
#include "embedded/UniverseFile.h"
#include "embedded/venue/Venue.h"
#include "platform/rtl/Utf.h"
#include "platform/widgets/PopupEdit.h"
#include "platform/widgets/SpinEdit.h"
#include "viewdata/editors/EditorManager.h"

#include <iostream>

using namespace quorin;

namespace {

constexpr StringView Group = u"blue"; // fields that name the same group are linked

class TQuoteForm : public TFrame {
    QUORIN_CLASS(TQuoteForm, TFrame)

    explicit TQuoteForm(TComponent* owner = nullptr) : TFrame(owner) {
        FSymbol.SetParent(this);
        FPrice.SetParent(this);
        TEditorManager& editors = *TEditorManager::GetInstance();
        editors.RegisterPriceEditor(&FPrice, Group);
        editors.RegisterSymbolEditor(&FSymbol, Group, /*Alone=*/false, /*showName=*/false);
    }
    // A field that dies is forgotten anyway; a form that gives its fields back first says so.
    ~TQuoteForm() override {
        BeginDestruction();
        TEditorManager::GetInstance()->RemoveSymbolEditor(&FSymbol);
        TEditorManager::GetInstance()->RemovePriceEditor(&FPrice);
    }

    // What a person would do: enter the field, type, confirm, leave. A skin forwards real events to
    // the same operations.
    void TypeSymbol(StringView symbol) {
        FSymbol.Enter();
        FSymbol.SelectAll();
        FSymbol.Paste(symbol);
        FSymbol.PressKey(Key::Return);
        FSymbol.Leave();
    }
    // The price field takes over the symbol's tick table. The validated code is the symbol field's
    // hint; its text may still be what is being typed.
    void FollowSymbol() { TEditorManager::GetInstance()->SetPriceSymbol(&FPrice, FSymbol.Hint()); }
    void StepUpFrom(Double price) {
        FPrice.SetEditValue(price);
        FPrice.Enter();
        FPrice.PressKey(Key::Up);
        FPrice.Leave();
    }
    void Print(const char* name) const {
        std::cout << name << "  " << ToUtf8(FSymbol.Hint()) << "  " << ToUtf8(FPrice.Text())
                  << '\n';
    }

private:
    TcxPopupEdit FSymbol;
    TcxSpinEdit FPrice;
};

} // namespace

int main() {
    const std::filesystem::path data = QUORIN_DATA_DIR;
    TSilentHost host;
    TEmbeddedServices services({.Host = host, .DataDirectory = data});
    LoadUniverse(data / "universe", services.Market());
    TVenue venue(services.Items(), services.Market(), {}); // quotes what is asked for
    {
        TQuoteForm left;
        TQuoteForm right;
        left.TypeSymbol(u"00005");
        left.FollowSymbol();
        right.FollowSymbol();
        services.Deliver(); // brings what is known of the symbol, the code of its tick table too
        services.Deliver(); // and this the table, which the price fields asked for then
        left.StepUpFrom(100.1);  // steps of 0.1 in this band
        right.StepUpFrom(99.95); // steps of 0.05 below 100
        left.Print("Left");
        right.Print("Right");
    }
    TEditorManager::ReleaseInstance(); // before the services go
}
