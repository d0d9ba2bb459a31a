#pragma once

#include "tests/support/ServicesFixture.h"
#include "tests/viewdata/OrderTrace.h"
#include "tests/viewdata/PositionSpies.h"
#include "viewdata/position/PositionAttributes.h"
#include "viewdata/position/PositionDataControl.h"
#include "viewdata/services/ConfigKeys.h"
#include "viewdata/services/FieldNumbers.h"

#include <functional>
#include <memory>
#include <utility>

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
        if (flag) ActedOn += String(key) + u' ';
        return AnswersNil ? nullptr : Inner.GetSubItem(key, dataType, flag);
    }

private:
    TCustomSubscribeAdapter& Inner;
};

// A position list that can be looked into.
class TPositionList : public TCustomPositionDataControl {
    QUORIN_CLASS(TPositionList, TCustomPositionDataControl)

    explicit TPositionList(TComponent* owner = nullptr) : TCustomPositionDataControl(owner) {
        EmptyDisplayText = u"--";
        GroupID = u"GROUP";
    }
    using TCustomPositionDataControl::FDataDictionary;
    using TCustomPositionDataControl::RecordAt;

    // "00700:100 HSIF:5", the symbols with their quantities.
    String Rows() const {
        String text;
        for (const String& symbol : FDataList) {
            TCustomPositionData* const* record = FDataDictionary.Find(symbol);
            text += (text.empty() ? u"" : u" ") + symbol + u':';
            text += record != nullptr ? Variant((*record)->GetQuantity()).ToText() : u"?";
        }
        return text;
    }
    void CheckInvariants() const {
        EXPECT_EQ(FDataList.Count(), FDataDictionary.Count());
        for (const String& symbol : FDataList) {
            TCustomPositionData* const* record = FDataDictionary.Find(symbol);
            ASSERT_NE(record, nullptr) << ToUtf8(symbol) << " has no record";
            ASSERT_NE(*record, nullptr);
            EXPECT_EQ((*record)->GetSymbol(), symbol);
            EXPECT_EQ((*record)->GetAccount(), FAccount);
        }
    }
};

// A position list over the fixture's universe and the gold future. The accounts A1 and A2 are
// known and hold nothing.
struct TPositionTest : TServicesFixture {
    using TServicesFixture::Services;
    using TServicesFixture::SetConfig;
    static constexpr Integer OwnRegistrations = 4; // settings, prices, tick tables, ratios

    TPositionTest() {
        ServiceRegistry::Install(&Positions);
        ServiceRegistry::Install(&Items);
        AddGoldFuture(Services().Market());
        for (const StringView account : {u"A1", u"A2"}) Services().Accounts().FeedAccount(account);
        Services().Deliver();
        MakeList();
    }
    ~TPositionTest() override {
        List.reset();
        ServiceRegistry::Install(RealFormatter);
        ServiceRegistry::Install(RealItems);
        ServiceRegistry::Install(RealPositions);
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
    // Cells then show what the formatter was asked for.
    void SpyOnFormatter() { ServiceRegistry::Install(&Spy); }
    // The account's rows as they are now, sorted.
    void Show(StringView account) {
        List->SetAccount({});
        List->SetAccount(account);
        Signals = 0;
    }

    TEmbeddedSubItem& Item(StringView symbol) { return Services().Items().Item(symbol); }
    // Counts at once; what follows Deliver is told. No ticker unless the figures name one.
    TEmbeddedPositionData& Hold(StringView account, StringView symbol,
                                const TPositionFigures& figures) {
        return Services().Positions().FeedPosition(account, symbol, figures);
    }
    TEmbeddedPositionData& Hold(StringView account, StringView symbol, Double quantity) {
        return Hold(account, symbol, TPositionFigures{.Quantity = quantity});
    }
    void Deliver() { Services().Deliver(); }
    String Cell(Integer row, Integer attribute) {
        return CellOf(*List, row, attribute, List->RecordAt(row));
    }

    void Signalled(TObject* sender) {
        ++Signals;
        EXPECT_EQ(sender, List.get());
        List->CheckInvariants();
        RowsAtSignal = List->Rows();
        if (OnSignal) OnSignal();
    }
    // The signals since the last time; services that misbehave may cause more of them.
    void ExpectSignals(Integer expected, const char* name) {
        const Integer came = std::exchange(Signals, 0);
        EXPECT_GE(came, expected) << name;
        if (!FaultsOn()) {
            EXPECT_EQ(came, expected) << name;
        }
        List->CheckInvariants();
    }

    TCustomFormatter* RealFormatter = TCustomFormatter::GetInstance();
    TCustomPositionAdapter* RealPositions = TCustomPositionAdapter::GetInstance();
    TCustomSubscribeAdapter* RealItems = TCustomSubscribeAdapter::GetInstance();
    TRelayedPositions Positions{*RealPositions};
    TRelayedItems Items{*RealItems};
    TSpyFormatter Spy;
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
    void ShowOne(const TPositionFigures& figures) {
        Hold(u"A1", u"00700", figures);
        Show(u"A1");
    }
};

} // namespace quorin
