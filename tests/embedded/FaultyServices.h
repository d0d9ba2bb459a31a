#pragma once

#include "embedded/EmbeddedServices.h"
#include "platform/rtl/ScopedValue.h"
#include "platform/rtl/Text.h"
#include "platform/rtl/Utf.h"

#include <deque>

namespace quorin {

// Embedded services with one fault each, to see that the contract kit finds it.

enum class TSubscribeFault {
    None,
    GivesNil,
    GivesAnother,
    CallsInside,
    CallsPerItem,
    AnswersInside,
    NeverEnds,
    OtherKey,
};

class TFaultySubscribe : public TCustomSubscribeAdapter {
public:
    TFaultySubscribe(TEmbeddedSubscribeAdapter& real, TSubscribeFault fault)
        : FReal(real), FFault(fault) {}

    void Subscribe(TCustomSubItem* Item, const TDataCallbackEvent& Event, TObject* Owner) override {
        if (FFault == TSubscribeFault::CallsInside) Event(nullptr, nullptr);
        if (FFault == TSubscribeFault::CallsPerItem) {
            FReal.Subscribe(Item, FRelays.emplace_back(Event).Relayed(), Owner);
        } else {
            FReal.Subscribe(Item, Event, Owner);
        }
    }
    void Unsubscribe(TCustomSubItem* Item, TObject* Owner) override {
        if (FFault != TSubscribeFault::NeverEnds) FReal.Unsubscribe(Item, Owner);
    }
    TCustomSubItem* GetSubItem(StringView Key, StringView DataType, Boolean Flag) override {
        if (FFault == TSubscribeFault::GivesNil && FReal.FindItem(Key) == nullptr) return nullptr;
        if (FFault == TSubscribeFault::GivesAnother) ++FSerial;
        const String key =
            FFault == TSubscribeFault::OtherKey ? UpperCase(Key) + u' ' : String(Key);
        if (FFault == TSubscribeFault::GivesAnother) {
            return FReal.GetSubItem(key + static_cast<Char>(FSerial), DataType, Flag);
        }
        if (FFault == TSubscribeFault::AnswersInside && Flag && key.starts_with(SpanKeyPrefix)) {
            FReal.Item(key).SetStatus(ItemStatus::NoData);
        }
        return FReal.GetSubItem(key, DataType, Flag);
    }

private:
    class TRelay {
    public:
        explicit TRelay(const TDataCallbackEvent& event) : FEvent(event) {}
        TDataCallbackEvent Relayed() { return MakeEvent<&TRelay::Called>(this); }

    private:
        void Called(Pointer Sender, Pointer Data) { FEvent(Sender, Data); }
        TDataCallbackEvent FEvent;
    };

    TEmbeddedSubscribeAdapter& FReal;
    const TSubscribeFault FFault;
    std::deque<TRelay> FRelays;
    Integer FSerial = 0x100;
};

enum class TLanguageFault { None, ReadsKey, IgnoresLanguage };

class TFaultyLanguage : public TEmbeddedLanguageManager {
public:
    explicit TFaultyLanguage(TLanguageFault fault) : FFault(fault) {}
    String GetResourceString(StringView Tag, StringView Key, TAppLanguage Language,
                             Integer Argument, Pointer Extra) const override {
        if (FFault == TLanguageFault::IgnoresLanguage) Language = TAppLanguage::None;
        const String text =
            TEmbeddedLanguageManager::GetResourceString(Tag, Key, Language, Argument, Extra);
        return text.empty() && FFault == TLanguageFault::ReadsKey ? String(Key) : text;
    }

private:
    const TLanguageFault FFault;
};

enum class TChannelFault { None, Leaks, DropsNil, StoresLate, TellsOfSeeds };

class TFaultyChannels : public TEmbeddedGlobalChannelManager {
    using TReal = TEmbeddedGlobalChannelManager;

public:
    TFaultyChannels(THost& host, TChannelFault fault) : TReal(host), FFault(fault) {}
    void PublishValue(Integer Channel, StringView NewValue, StringView OldValue,
                      StringView GroupID) override {
        TScopedValue depth(FDepth, FDepth + 1);
        TReal::PublishValue(Channel, NewValue, OldValue, GroupID);
        if (FFault == TChannelFault::Leaks && !GroupID.empty()) {
            TReal::PublishValue(Channel, NewValue, OldValue, {});
        }
    }
    void SendChannelMessage(Integer MessageNumber, Pointer Data) override {
        if (Data == nullptr && FFault == TChannelFault::DropsNil) return;
        TReal::SendChannelMessage(MessageNumber, Data);
    }
    void SetGroupValue(StringView GroupID, Integer Channel, StringView Value) override {
        TReal::SetGroupValue(GroupID, Channel, Value);
        if (FFault == TChannelFault::TellsOfSeeds && FDepth == 0) {
            PublishValue(Channel, Value, {}, GroupID);
        }
    }
    String GetGroupValue(StringView GroupID, Integer Channel) const override {
        const bool isHidden = FFault == TChannelFault::StoresLate && FDepth > 0;
        return isHidden ? String() : TReal::GetGroupValue(GroupID, Channel);
    }

private:
    const TChannelFault FFault;
    Integer FDepth = 0; // of PublishValue
};

enum class TAccountFault { None, EmptyIsFirst, KeepsPrevious, ClearsList, WrapsIndex };

class TFaultyAccounts : public TEmbeddedAccountAdapter {
    using TReal = TEmbeddedAccountAdapter;

public:
    TFaultyAccounts(TEmbeddedCurrencyAdapter& currencies, TAccountFault fault)
        : TReal(currencies), FFault(fault) {}
    TCustomAccount* GetAccount(StringView Account, Boolean Flag) override {
        const bool isFirst = FFault == TAccountFault::EmptyIsFirst && Account.empty();
        return isFirst ? GetAccountByIndex(0) : TReal::GetAccount(Account, Flag);
    }
    void ChangeAccountCallback(StringView Account, const TDataCallbackEvent& Callback,
                               TObject* Owner, StringView PreviousAccount) override {
        if (FFault == TAccountFault::KeepsPrevious) PreviousAccount = {};
        TReal::ChangeAccountCallback(Account, Callback, Owner, PreviousAccount);
    }
    void GetSubAccountList(StringView Account, TAccountDictionary& List) const override {
        if (FFault == TAccountFault::ClearsList) List.Clear();
        TReal::GetSubAccountList(Account, List);
    }
    TCustomAccount* GetAccountByIndex(Integer Index) const override {
        const bool isWrapped = FFault == TAccountFault::WrapsIndex && Index >= GetAccountCount();
        return TReal::GetAccountByIndex(isWrapped ? 0 : Index);
    }

private:
    const TAccountFault FFault;
};

enum class TPositionFault {
    None,
    KeepsPrevious,
    AlwaysMoves,
    ClearsList,
    AlwaysValues,
    CallsInside
};

class TFaultyPositions : public TEmbeddedPositionAdapter {
    using TReal = TEmbeddedPositionAdapter;

public:
    TFaultyPositions(TEmbeddedSubscribeAdapter& items, TPositionFault fault)
        : TReal(items), FFault(fault) {}
    void ChangePositionAccount(StringView Account, const TDataCallbackEvent& Callback,
                               TObject* Owner, StringView PreviousAccount) override {
        if (FFault == TPositionFault::KeepsPrevious) PreviousAccount = {};
        if (FFault == TPositionFault::AlwaysMoves) RemovePositionCallback(FLastAccount, Owner);
        if (FFault == TPositionFault::CallsInside) Callback(nullptr, nullptr);
        FLastAccount = Account;
        TReal::ChangePositionAccount(Account, Callback, Owner, PreviousAccount);
    }
    void GetPositionList(StringView Account, TPositionDictionary& List) const override {
        if (FFault == TPositionFault::ClearsList) List.Clear();
        TReal::GetPositionList(Account, List);
    }
    Boolean GetMarketValue(StringView Symbol, Double NetQuantity, Double& Value) const override {
        return TReal::GetMarketValue(Symbol, NetQuantity, Value) ||
               FFault == TPositionFault::AlwaysValues;
    }

private:
    const TPositionFault FFault;
    String FLastAccount;
};

class TFaultyCurrencies : public TEmbeddedCurrencyAdapter {
public:
    explicit TFaultyCurrencies(bool isFaulty) : FIsFaulty(isFaulty) {}
    Double GetCurrencyRatio(StringView Currency) const override {
        const Double ratio = TEmbeddedCurrencyAdapter::GetCurrencyRatio(Currency);
        return ratio == 0.0 && FIsFaulty ? 1.0 : ratio;
    }

private:
    const bool FIsFaulty;
};

class TFaultyProducts : public TEmbeddedProductAdapter {
public:
    explicit TFaultyProducts(bool isFaulty) : FIsFaulty(isFaulty) {}
    TCustomProductData* GetProductData(StringView Symbol, StringView Account) const override {
        TCustomProductData* known = TEmbeddedProductAdapter::GetProductData(Symbol, Account);
        return known == nullptr && FIsFaulty ? &FNone : known;
    }

private:
    const bool FIsFaulty;
    mutable TEmbeddedProductData FNone;
};

enum class TOrderFault { None, ClearKeepsQuantity, CutsFlags, TakesAll, TakesNone };

class TFaultyOrder : public TEmbeddedClientOrder {
public:
    explicit TFaultyOrder(TOrderFault fault) : FFault(fault) {}
    void Clear() override {
        const Double quantity = GetQuantity();
        TEmbeddedClientOrder::Clear();
        if (FFault == TOrderFault::ClearKeepsQuantity) SetQuantity(quantity);
    }
    Integer GetOrderFlags() const override {
        const Integer flags = TEmbeddedClientOrder::GetOrderFlags();
        return FFault == TOrderFault::CutsFlags ? flags & OrderFlag::Market : flags;
    }

private:
    const TOrderFault FFault;
};

class TFaultyOrders : public TCustomOrderAdapter {
public:
    explicit TFaultyOrders(TOrderFault fault) : FFault(fault) {}
    std::unique_ptr<TCustomClientOrder> CreateClientOrder() override {
        return std::make_unique<TFaultyOrder>(FFault);
    }

private:
    const TOrderFault FFault;
};

class TFaultyActions : public TEmbeddedOrderActionManager {
public:
    TFaultyActions(TOrderDesk& desk, TOrderFault fault)
        : TEmbeddedOrderActionManager(desk), FFault(fault) {}
    Boolean TakeOrderAction(TObject* Owner, TCustomClientOrder* Order, Integer Action,
                            Boolean Flag) override {
        if (FFault == TOrderFault::TakesAll || FFault == TOrderFault::TakesNone) {
            return FFault == TOrderFault::TakesAll;
        }
        return TEmbeddedOrderActionManager::TakeOrderAction(Owner, Order, Action, Flag);
    }

private:
    const TOrderFault FFault;
};

enum class TFormatterFault {
    None,
    DropsSign,
    EmptyForUnknown,
    OtherGroups,
    EmptyForZero,
    CutsIntegers
};

class TFaultyFormatter : public TEmbeddedFormatter {
    using TReal = TEmbeddedFormatter;

public:
    TFaultyFormatter(TCustomConfigManager& config, TFormatterFault fault)
        : TReal(config), FFault(fault) {}
    String FormatInteger(Integer Value) const override {
        return TReal::FormatInteger(FFault == TFormatterFault::CutsIntegers ? Value & 0xFFFF
                                                                            : Value);
    }
    String FormatValue(Double Value, TDisplayDataType DataType, StringView Symbol, Boolean Flag,
                       Pointer Reserved) const override {
        if (FFault == TFormatterFault::EmptyForZero && Value == 0.0) return {};
        if (FFault == TFormatterFault::EmptyForUnknown &&
            TCustomMarketAdapter::GetInstance()->FindMarketData(Symbol) == nullptr) {
            return {};
        }
        const String text = TReal::FormatValue(Value, DataType, Symbol, Flag, Reserved);
        if (FFault == TFormatterFault::DropsSign) return ReplaceAll(text, u"-", {});
        return FFault == TFormatterFault::OtherGroups ? ReplaceAll(text, u",", u"'") : text;
    }

private:
    const TFormatterFault FFault;
};

class TFaultyMarketFormatter : public TEmbeddedMarketDataFormatter {
public:
    explicit TFaultyMarketFormatter(bool isFaulty) : FIsFaulty(isFaulty) {}
    Boolean FormatPrice(StringView Symbol, Integer Attribute, String& Text) const override {
        if (FIsFaulty) Text.clear();
        return TEmbeddedMarketDataFormatter::FormatPrice(Symbol, Attribute, Text);
    }

private:
    const bool FIsFaulty;
};

} // namespace quorin
