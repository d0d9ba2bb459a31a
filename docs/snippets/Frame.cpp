#include "docs/snippets/Snippet.h"
#include "platform/widgets/GridTableView.h"
#include "viewdata/frame/GridDataSource.h"

namespace quorin {

// [control]
// A list of one's own: the exchanges and whether they trade.
class TExchangeControl : public TCustomDataControl {
    QUORIN_CLASS(TExchangeControl, TCustomDataControl)

    static constexpr Integer Code = 1; // attribute numbers, the tags of the columns
    static constexpr Integer IsOpen = 2;

    explicit TExchangeControl(TComponent* AOwner = nullptr) : TCustomDataControl(AOwner) {
        EmptyDisplayText = u"-";
        TCustomMarketAdapter::GetInstance()->AddExchangeListener(
            MakeEvent<&TExchangeControl::ExchangeChanged>(this), this);
    }
    ~TExchangeControl() override {
        TCustomMarketAdapter::GetInstance()->RemoveExchangeListener(this);
    }

    Integer GetCount() override { return TCustomMarketAdapter::GetInstance()->GetExchangeCount(); }
    Variant GetValue(Integer RecordIndex, Integer Attribute) override {
        const TCustomMarketAdapter& market = *TCustomMarketAdapter::GetInstance();
        const String& code = market.GetExchangeCode(RecordIndex);
        switch (Attribute) {
        case Code: return code;
        case IsOpen: return market.GetMarketStatus(code) == MarketOpen ? 1 : 0;
        default: return Variant::EmptyText();
        }
    }
    String GetDisplayValue(Integer RecordIndex, Integer Attribute) override {
        const Variant value = GetValue(RecordIndex, Attribute);
        if (Attribute == IsOpen) return value == Variant(1) ? u"open" : EmptyDisplayText;
        return value.ToText();
    }

private:
    void ExchangeChanged(Pointer, Pointer) { Changed(); }
};
// [/control]

TEST_F(TSnippet, Frame) {
    // [bind]
    TCustomGridDataSource source(TComponentClass::Of<TExchangeControl>()); // makes and owns it
    const auto view = CreateComponent<TcxGridTableView>();
    view->AddColumn(TExchangeControl::Code, u"Exchange");
    view->SetCustomDataSource(&source);
    view->TakeRepaint(); // a skin draws, and asks once per frame whether it must again

    Services.Market().SetMarketState(u"SEHK", u"CL", 0); // a change
    Services.Deliver();                                  // and word of it
    const bool mustRepaint = view->TakeRepaint();
    const String cell = view->CellText(0, *view->GetColumn(0));
    // [/bind]
    EXPECT_TRUE(mustRepaint);
    EXPECT_EQ(cell, u"SEHK");
    EXPECT_EQ(source.DataControl()->GetDisplayValue(0, TExchangeControl::IsOpen), u"-");
}

} // namespace quorin
