#include "embedded/kit/ContractKit.h"
#include "embedded/kit/RegistrationRules.h"

namespace quorin {

namespace {

class TPositionChecks {
public:
    TPositionChecks(TPositionDriver& driver, TContractReport& report)
        : FDriver(driver), FService(driver.Service()), FCheck(report, u"PositionAdapter"),
          FAccount(driver.Account()), FOther(driver.OtherAccount()), FSymbol(driver.Symbol()) {}

    void CheckAll() {
        NoPositions();
        OneObject();
        ListAndRecords();
        Ends();
        MovesRegistration();
        MarketValue();
        Registrations();
    }

private:
    void Feed(StringView account, StringView symbol) {
        FQuantity += 1.0;
        FDriver.FeedPosition(account, symbol, FQuantity);
    }

    void NoPositions() {
        const StringView rule = u"GetPosition gives nil for what is not there";
        FCheck.IsNil(rule, FService.GetPosition(FAccount, FSymbol), u"a symbol without position");
        FCheck.IsNil(rule, FService.GetPosition(u"no such account", FSymbol), u"an account");
        FCheck.IsNil(rule, FService.GetPosition({}, {}), u"empty codes");
        TPositionDictionary list;
        FService.GetPositionList(u"no such account", list);
        FService.GetPositionList({}, list);
        FCheck.Equal(u"an unknown account has an empty list", 0, list.Count());
    }

    void OneObject() {
        Feed(FAccount, FSymbol);
        FDriver.Deliver();
        TCustomPositionData* position = FService.GetPosition(FAccount, FSymbol);
        if (!FCheck.IsThere(u"GetPosition gives an open position", position)) return;
        FCheck.Equal(u"a position has the quantity of the feed", FQuantity,
                     position->GetQuantity());
        FCheck.Reads(u"a position tells its account and symbol", FAccount, position->GetAccount());
        FCheck.Reads(u"a position tells its account and symbol", FSymbol, position->GetSymbol());
        Feed(FAccount, FSymbol);
        FDriver.Deliver();
        FCheck.IsSame(u"an open position keeps its object", position,
                      FService.GetPosition(FAccount, FSymbol));
        FCheck.Equal(u"a position is updated in place", FQuantity, position->GetQuantity());
        const auto made = position->CreateBy(u"made", u"by");
        if (!FCheck.IsThere(u"CreateBy makes a record with nothing in it", made.get())) return;
        FCheck.Reads(u"CreateBy takes the symbol and then the account", u"made", made->GetSymbol());
        FCheck.Reads(u"CreateBy takes the symbol and then the account", u"by", made->GetAccount());
        FCheck.Equal(u"CreateBy makes a record with nothing in it", 0.0, made->GetQuantity());
    }

    void ListAndRecords() {
        Feed(FAccount, FSymbol);
        Feed(FAccount, FDriver.OtherSymbol());
        Feed(FOther, FSymbol);
        FDriver.Deliver();
        TPositionDictionary list;
        list.Add(u"of the caller", nullptr);
        FService.GetPositionList(FAccount, list);
        FCheck.True(u"GetPositionList leaves other entries of the caller's list",
                    list.ContainsKey(u"of the caller"));
        list.Remove(u"of the caller");
        FCheck.True(u"GetPositionList gives all positions of the account",
                    list.ContainsKey(FSymbol) && list.ContainsKey(FDriver.OtherSymbol()));
        for (const auto& item : list) {
            FCheck.IsSame(u"the list and GetPosition give the same objects",
                          FService.GetPosition(FAccount, item.Key), item.Value, item.Key);
            if (item.Value == nullptr) continue;
            FCheck.Reads(u"the list holds positions by symbol", item.Key, item.Value->GetSymbol());
            FCheck.Reads(u"the list holds the account's positions alone", FAccount,
                         item.Value->GetAccount());
        }
        FCheck.True(u"two accounts have a record each", FService.GetPosition(FAccount, FSymbol) !=
                                                            FService.GetPosition(FOther, FSymbol));
    }

    // The record can be read inside the callback that tells of its end.
    void Ends() {
        TCallRecorder& recorder = FCheck.NewRecorder();
        Double quantity = -1.0;
        bool isTold = false;
        recorder.OnCall([&](Pointer sender) {
            const TCustomPositionData* ended = Find(sender, FAccount, FSymbol);
            isTold = sender == nullptr || ended != nullptr;
            quantity = ended != nullptr ? ended->GetQuantity() : 0.0;
        });
        FService.ChangePositionAccount(FAccount, recorder.Event(), recorder.Owner(), {});
        FDriver.FeedPosition(FAccount, FSymbol, 0.0);
        FDriver.Deliver();
        FCheck.Equal(u"the end of a position is told of", 1, recorder.Count());
        FCheck.True(u"the end of a position is told of", isTold, u"the record");
        FCheck.Equal(u"an ended position has the quantity 0.0", 0.0, quantity);
        FCheck.IsNil(u"an ended position is listed no more",
                     FService.GetPosition(FAccount, FSymbol), u"GetPosition");
        TPositionDictionary list;
        FService.GetPositionList(FAccount, list);
        FCheck.False(u"an ended position is listed no more", list.ContainsKey(FSymbol),
                     u"GetPositionList");
        recorder.OnCall(nullptr);
        FService.RemovePositionCallback(FAccount, recorder.Owner());
    }

    void MovesRegistration() {
        TCallRecorder& recorder = FCheck.NewRecorder();
        const auto counts = [&](StringView rule, Integer ofFirst, Integer ofSecond) {
            recorder.Reset();
            Feed(FAccount, FSymbol);
            FDriver.Deliver();
            FCheck.Equal(rule, ofFirst, recorder.Count(), u"the first account");
            recorder.Reset();
            Feed(FOther, FSymbol);
            FDriver.Deliver();
            FCheck.Equal(rule, ofSecond, recorder.Count(), u"the second account");
        };
        const auto change = [&](StringView account, StringView previous) {
            FService.ChangePositionAccount(account, recorder.Event(), recorder.Owner(), previous);
        };
        FDriver.Deliver();
        change(FAccount, {});
        counts(u"only positions of the account are told of", 1, 0);
        Feed(FAccount, FSymbol);
        Feed(FOther, FSymbol);
        recorder.Reset();
        change(FOther, FAccount);
        FCheck.Equal(u"ChangePositionAccount calls nobody inside", 0, recorder.Count());
        FDriver.Deliver();
        counts(u"ChangePositionAccount moves the registration", 0, 1);
        change(FAccount, {});
        counts(u"an empty previous account only adds", 1, 1);
        change({}, FAccount);
        counts(u"an empty account only ends", 0, 1);
        FService.RemovePositionCallback(FOther, recorder.Owner());
        counts(u"RemovePositionCallback ends the registration", 0, 0);
    }

    void MarketValue() {
        Double value = 0.0;
        FCheck.False(u"GetMarketValue is false without a price",
                     FService.GetMarketValue(FDriver.SymbolWithoutPrice(), 1.0, value));
        FCheck.False(u"GetMarketValue is false without a symbol",
                     FService.GetMarketValue({}, 1.0, value));
        FDriver.MovePrice(FSymbol);
        FDriver.Deliver();
        Double one = 0.0;
        Double many = 0.0;
        const StringView rule = u"GetMarketValue of a quantity is that many times the value of one";
        if (!FCheck.True(rule, FService.GetMarketValue(FSymbol, 1.0, one))) return;
        FCheck.True(rule, one != 0.0, u"the value of one");
        for (const Double quantity : {400.0, -3.0, 0.0}) {
            FCheck.True(rule, FService.GetMarketValue(FSymbol, quantity, many));
            FCheck.Near(rule, one * quantity, many, ShowValue(quantity));
        }
    }

    static const TCustomPositionData* Find(Pointer sender, StringView account, StringView symbol) {
        if (sender == nullptr) return nullptr;
        const auto* positions = static_cast<TAccountPositionDictionary*>(sender)->Find(account);
        if (positions == nullptr || *positions == nullptr) return nullptr;
        const auto* position = (*positions)->Find(symbol);
        return position != nullptr ? *position : nullptr;
    }

    String Inspect(Pointer sender, const String& wanted) {
        if (sender == nullptr) return {};
        for (const auto& account : *static_cast<const TAccountPositionDictionary*>(sender)) {
            if (account.Value == nullptr) return u"nil under " + ShowValue(account.Key);
            for (const auto& item : *account.Value) {
                const TCustomPositionData* position = item.Value;
                if (position == nullptr) return u"a nil record under " + ShowValue(item.Key);
                if (position->GetSymbol() != item.Key || position->GetAccount() != account.Key) {
                    return position->GetAccount() + u" " + position->GetSymbol() + u" under " +
                           account.Key + u" " + item.Key;
                }
            }
        }
        const TCustomPositionData* position = Find(sender, wanted, FSymbol);
        if (position == nullptr) return u"nothing under " + wanted + u" " + FSymbol;
        const bool isSame = position == FService.GetPosition(wanted, FSymbol);
        return isSame ? String() : String(u"another object than GetPosition gives");
    }

    void Registrations() {
        CheckRegistrationRules(
            FCheck, FDriver,
            {.Name = u"ChangePositionAccount",
             .Register =
                 [&](TCallRecorder& receiver, TObject* owner) {
                     FService.ChangePositionAccount(FAccount, receiver.Event(), owner, {});
                 },
             .Remove = [&](TObject* owner) { FService.RemovePositionCallback(FAccount, owner); },
             .Change = [&] { Feed(FAccount, FSymbol); },
             .Inspect = [&](Pointer sender) { return Inspect(sender, FAccount); }});
        CheckRegistrationRules(
            FCheck, FDriver,
            {.Name = u"AddPositionMarketDataCallback",
             .Register =
                 [&](TCallRecorder& receiver, TObject* owner) {
                     FService.AddPositionMarketDataCallback(receiver.Event(), owner);
                 },
             .Remove = [&](TObject* owner) { FService.RemovePositionMarketDataCallback(owner); },
             .Change = [&] { FDriver.MovePrice(FSymbol); },
             .Inspect = [&](Pointer sender) { return Inspect(sender, FAccount); }});
        const String master = FDriver.Master();
        const String sub = FDriver.SubAccount();
        CheckRegistrationRules(
            FCheck, FDriver,
            {.Name = u"AddAggregatePositionCallback",
             .Register =
                 [&](TCallRecorder& receiver, TObject* owner) {
                     FService.AddAggregatePositionCallback(master, receiver.Event(), owner,
                                                           nullptr);
                 },
             .Remove =
                 [&](TObject* owner) { FService.RemoveAggregatePositionCallback(master, owner); },
             .Change = [&] { Feed(sub, FSymbol); },
             .Inspect = [&](Pointer sender) { return Inspect(sender, sub); }});
    }

    TPositionDriver& FDriver;
    TCustomPositionAdapter& FService;
    TChecker FCheck;
    const String FAccount;
    const String FOther;
    const String FSymbol;
    Double FQuantity = 0.0;
};

} // namespace

void CheckPositionAdapter(TPositionDriver& driver, TContractReport& report) {
    TPositionChecks(driver, report).CheckAll();
}

} // namespace quorin
