#include "tests/support/FaultInjection.h"
#include "platform/rtl/Numbers.h"
#include "tests/support/ServicesFixture.h"
#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/FieldNumbers.h"

#include <algorithm>
#include <iostream>
#include <vector>

namespace quorin {
namespace {

using TFaultRunTest = TServicesFixture;

TEST_F(TFaultRunTest, FaultsAreThereExactlyWhereTheyAreAskedFor) {
    EXPECT_EQ(FaultsOn(), TCustomPositionAdapter::GetInstance() != &Services().Positions());
    EXPECT_EQ(FaultsOn(), Faults() != nullptr);
    if (!FaultsOn()) return;
    TCountingReceiver receiver;
    for (Integer round = 0; round < 20; ++round) {
        TCustomConfigManager::GetInstance()->RegisterConfigCallback(receiver.Event(), &receiver);
        TCustomConfigManager::GetInstance()->RemoveConfigCallback(&receiver);
    }
    EXPECT_EQ(receiver.Count(), 0); // faults are not counted
    if (Faults()->Plan().HappenedInAll() > 0) std::cout << "services misbehave\n";
}

// Hears of everything and notes whether it was told while it was registered.
class TListener : public TObject {
public:
    TDataCallbackEvent Event() { return MakeEvent<&TListener::Called>(this); }
    TDataCallbackEvent PositionEvent() { return MakeEvent<&TListener::PositionCalled>(this); }

    bool IsRegistered = true;
    Integer Calls = 0;
    std::vector<Double> Quantities; // of 00700 in A1, as told

private:
    void Called(Pointer, Pointer) {
        EXPECT_TRUE(IsRegistered);
        ++Calls;
    }
    void PositionCalled(Pointer sender, Pointer data) {
        Called(sender, data);
        if (sender == nullptr) return;
        const auto* positions = static_cast<TAccountPositionDictionary*>(sender)->Find(u"A1");
        if (positions == nullptr) return;
        if (const auto* record = (*positions)->Find(u"00700")) {
            Quantities.push_back((*record)->GetQuantity());
        }
    }
};

// The services of this fixture misbehave in every run.
struct TFaultInjectionTest : TServicesFixture {
    TFaultInjectionTest() {
        if (!FaultsOn()) Own = std::make_unique<TFaultInjection>(Services(), /*seed=*/1);
        TEmbeddedAccountAdapter& accounts = Services().Accounts();
        accounts.FeedAccount(u"M", {.Type = AccountType::Master});
        for (const StringView account : {u"A1", u"A2"}) {
            accounts.FeedAccount(account, {.MasterAccount = u"M"});
        }
        Services().Positions().FeedPosition(u"A1", u"00700", {.Quantity = 300.0});
        Services().Deliver();
    }
    TFaultPlan& Plan() { return (Own != nullptr ? *Own : *Faults()).Plan(); }

    void Register() {
        Listener.IsRegistered = true;
        TCustomPositionAdapter& positions = *TCustomPositionAdapter::GetInstance();
        positions.ChangePositionAccount(u"A1", Listener.PositionEvent(), &Listener, u"");
        positions.AddPositionMarketDataCallback(Listener.Event(), &Listener);
        positions.AddAggregatePositionCallback(u"M", Listener.PositionEvent(), &Listener, nullptr);
        TCustomAccountAdapter::GetInstance()->AddSubAccountCallback(u"M", Listener.Event(),
                                                                    &Listener, nullptr);
        TCustomGlobalChannelManager::GetInstance()->RegisterChannelCallback(
            Channel::CurrentSymbol, Listener.Event(), &Listener);
        TCustomConfigManager::GetInstance()->RegisterConfigCallback(Listener.Event(), &Listener);
        TCustomSubscribeAdapter& feed = *TCustomSubscribeAdapter::GetInstance();
        feed.Subscribe(feed.GetSubItem(u"00700", LiveDataType, true), Listener.Event(), &Listener);
    }
    void Remove() {
        TCustomPositionAdapter& positions = *TCustomPositionAdapter::GetInstance();
        positions.RemovePositionCallback(u"A1", &Listener);
        positions.RemovePositionMarketDataCallback(&Listener);
        positions.RemoveAggregatePositionCallback(u"M", &Listener);
        TCustomAccountAdapter::GetInstance()->RemoveSubAccountCallback(u"M", &Listener);
        TCustomGlobalChannelManager::GetInstance()->RemoveChannelCallback(Channel::CurrentSymbol,
                                                                          &Listener);
        TCustomConfigManager::GetInstance()->RemoveConfigCallback(&Listener);
        TCustomSubscribeAdapter& feed = *TCustomSubscribeAdapter::GetInstance();
        feed.Unsubscribe(&Services().Items().Item(u"00700"), &Listener);
        Listener.IsRegistered = false;
    }
    // What a session does, over and over.
    void Work() {
        Services().Positions().FeedPosition(u"A1", u"00700", {.Quantity = 300.0});
        SetConfig(u"Any", IntegerToText(++Rounds));
        SetField(u"00700", Field::LastPrice, 350.0 + Rounds);
        Services().Deliver();
        TCustomPositionData* record =
            TCustomPositionAdapter::GetInstance()->GetPosition(u"A1", u"00700");
        ASSERT_NE(record, nullptr);
        EXPECT_EQ(record->GetQuantity(), 300.0);
        TCustomOrderActionManager::GetInstance()->TakeOrderAction(nullptr, nullptr,
                                                                  OrderAction::Place, true);
        TCustomMessageBoxCtrl& box = *TCustomMessageBoxCtrl::GetInstance();
        Host().ExpectQuestion(u"Go on?", ConfirmYes);
        EXPECT_EQ(box.ShowConfirmText(nullptr, u"Go on?", {}, nullptr, nullptr, 0), ConfirmYes);
    }

    std::unique_ptr<TFaultInjection> Own;
    TListener Listener;
    Integer Rounds = 0;
};

TEST_F(TFaultInjectionTest, EachFaultHappens) {
    const struct {
        const char* Name;
        TFault Fault;
    } cases[] = {
        {"a call inside a registration", TFault::CallInRegistration},
        {"a call inside a look-up", TFault::CallInLookUp},
        {"told twice", TFault::Twice},
        {"nothing named", TFault::NilSender},
        {"more named", TFault::NamesMore},
        {"reported again", TFault::ReportedAgain},
        {"an object of another class", TFault::ForeignSender},
        {"a position goes and comes back", TFault::DropAndReAdd},
        {"a delivery inside an order", TFault::FillInOrder},
        {"a loop inside a question", TFault::NestedLoop},
    };
    static_assert(std::size(cases) == FaultCount);
    for (Integer round = 0; round < 30; ++round) {
        Register();
        Work();
        Remove();
    }
    for (const auto& row : cases) EXPECT_GT(Plan().Happened(row.Fault), 0) << row.Name;
    EXPECT_EQ(std::count(Listener.Quantities.begin(), Listener.Quantities.end(), 0.0),
              Plan().Happened(TFault::DropAndReAdd));
    EXPECT_EQ(Listener.Quantities.back(), 300.0);
    const Integer calls = Listener.Calls;
    Work(); // nobody is registered
    EXPECT_EQ(Listener.Calls, calls);
}

TEST_F(TFaultInjectionTest, SwitchedOffNothingHappens) {
    Plan().SetOn(false);
    const Integer before = Plan().HappenedInAll();
    Register();
    Listener.Calls = 0;
    Services().Deliver();
    EXPECT_EQ(Listener.Calls, 0);
    Work();
    Remove();
    EXPECT_EQ(Plan().HappenedInAll(), before);
}

TEST_F(TFaultInjectionTest, AReceiverMayLeaveInsideAFault) {
    struct TLeaver : TObject {
        void Called(Pointer, Pointer) {
            ++Calls;
            TCustomPositionAdapter::GetInstance()->RemovePositionCallback(u"A1", this);
        }
        Integer Calls = 0;
    };
    for (Integer round = 0; round < 20; ++round) {
        TLeaver leaver;
        TCustomPositionAdapter::GetInstance()->ChangePositionAccount(
            u"A1", MakeEvent<&TLeaver::Called>(&leaver), &leaver, u"");
        Services().Positions().FeedPosition(u"A1", u"00700", {.Quantity = 300.0});
        Services().Deliver();
        EXPECT_EQ(leaver.Calls, 1);
    }
}

} // namespace
} // namespace quorin
