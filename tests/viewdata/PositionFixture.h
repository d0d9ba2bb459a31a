#pragma once

#include "tests/support/faults/FaultPlan.h"
#include "tests/viewdata/OrderTrace.h"
#include "tests/viewdata/PositionViewFixture.h"

namespace quorin {

// The live items of the embedded service, or none at all.
class TRelayedItems : public TCustomSubscribeAdapter {
public:
    explicit TRelayedItems(TCustomSubscribeAdapter& inner) : Inner(inner) {}

    bool AnswersNil = false;
    String ActedOn; // the keys of items that were asked for with the flag

    void Subscribe(TCustomSubItem* item, const TDataCallbackEvent& event, TObject* owner) override {
        Inner.Subscribe(item, event, owner);
    }
    void Unsubscribe(TCustomSubItem* item, TObject* owner) override {
        Inner.Unsubscribe(item, owner);
    }
    TCustomSubItem* GetSubItem(StringView key, StringView dataType, Boolean flag) override {
        EXPECT_EQ(dataType, u"PRCDDS");
        if (flag && !TFaultPlan::IsInFault()) ActedOn += String(key) + u' ';
        return AnswersNil ? nullptr : Inner.GetSubItem(key, dataType, flag);
    }

private:
    TCustomSubscribeAdapter& Inner;
};

// Calls back inside a move to another account.
class TMovingPositions : public TRelayedPositions {
public:
    using TRelayedPositions::TRelayedPositions;
    std::function<void()> InChangeAccount;

    void ChangePositionAccount(StringView account, const TDataCallbackEvent& event, TObject* owner,
                               StringView previous) override {
        if (InChangeAccount) InChangeAccount();
        TRelayedPositions::ChangePositionAccount(account, event, owner, previous);
    }
};

// A position list that can be looked into.
class TPositionList : public TOpenRows<TCustomPositionDataControl> {
    QUORIN_CLASS(TPositionList, TOpenRows<TCustomPositionDataControl>)

    using Inherited::Inherited;
    using TCustomPositionDataControl::FDataDictionary;
    using TCustomPositionDataControl::RecordAt;
};

// A position list. The accounts A1 and A2 are known and hold nothing.
struct TPositionTest : TPositionWorld<TMovingPositions> {
    static constexpr Integer OwnRegistrations = 4; // settings, prices, tick tables, ratios

    TPositionTest() {
        ServiceRegistry::Install(&Items);
        for (const StringView account : {u"A1", u"A2"}) Services().Accounts().FeedAccount(account);
        Services().Deliver();
        MakeList();
    }
    ~TPositionTest() override {
        List.reset();
        ServiceRegistry::Install(RealItems);
    }

    template <class T = TPositionList>
    T& MakeList() {
        List.reset();
        auto list = CreateComponent<T>();
        T& made = *list;
        List = std::move(list);
        List->SetOnDataChanged(MakeEvent<&TPositionTest::Signalled>(this));
        Signals = 0;
        return made;
    }
    // The account's rows as they are now, sorted.
    void Show(StringView account) {
        List->SetAccount({});
        List->SetAccount(account);
        Signals = 0;
    }

    // Counts at once; what follows Deliver is told.
    TEmbeddedPositionData& Hold(StringView account, StringView symbol, TPositionFigures figures,
                                TCustomSubItem* ticker = nullptr) {
        figures.Ticker = ticker;
        return Services().Positions().FeedPosition(account, symbol, figures);
    }
    TEmbeddedPositionData& Hold(StringView account, StringView symbol, Double quantity) {
        return Hold(account, symbol, TPositionFigures{.Quantity = quantity});
    }
    TEmbeddedPositionData& Hold(StringView account, StringView symbol, StringView figures,
                                TCustomSubItem* ticker = nullptr) {
        return Hold(account, symbol, Figures(figures), ticker);
    }
    String Cell(Integer row, Integer attribute) {
        return CellOf(*List, row, attribute, List->RecordAt(row));
    }

    void Signalled(TObject* sender) {
        EXPECT_EQ(sender, List.get());
        List->CheckInvariants();
        if (IsInFault()) return;
        ++Signals;
        RowsAtSignal = List->Rows();
        if (OnSignal) OnSignal();
    }
    void ExpectSignals(Integer expected, const char* name) {
        EXPECT_EQ(std::exchange(Signals, 0), expected) << name;
        List->CheckInvariants();
    }

    TCustomSubscribeAdapter* RealItems = TCustomSubscribeAdapter::GetInstance();
    TRelayedItems Items{*RealItems};
    std::unique_ptr<TPositionList> List;
    std::function<void()> OnSignal;
    String RowsAtSignal;
    Integer Signals = 0;
};

// The same with the orders that leave it.
struct TPositionOrderTest : TPositionTest, TOrderTrace {
    TPositionOrderTest() : TOrderTrace(Host()) {
        SetField(u"00700", Field::BestBid, 9.0);
        SetField(u"00700", Field::BestAsk, 11.0);
        SetField(u"00700", Field::LastPrice, 10.0);
        MakeList();
    }
    ~TPositionOrderTest() override { List.reset(); }

    void Confirm(bool on) { SetConfig(ConfigKey::ConfirmationClosePosition, on ? u"1" : u"0"); }
    // 00700 is the account's one row.
    void ShowOne(StringView figures, TCustomSubItem* ticker = nullptr) {
        Hold(u"A1", u"00700", figures, ticker);
        Show(u"A1");
    }
};

} // namespace quorin
