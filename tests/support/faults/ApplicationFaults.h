#pragma once

#include "platform/rtl/Numbers.h"
#include "tests/support/faults/FaultyCallbacks.h"
#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/ConfigManager.h"
#include "viewdata/services/GlobalChannelManager.h"
#include "viewdata/services/LanguageManager.h"
#include "viewdata/services/MessageBoxCtrl.h"
#include "viewdata/services/OrderActionManager.h"

namespace quorin {

// Settings, misbehaving. Settings that were not committed yet read as they will be.
class TFaultyConfigManager final : public TCustomConfigManager {
public:
    TFaultyConfigManager(TFaultPlan& plan, TCustomConfigManager& inner)
        : FPlan(plan), FInner(inner), FCallbacks(plan, &TellNothing) {}

    void RegisterConfigCallback(const TDataCallbackEvent& Callback, TObject* Owner) override {
        FCallbacks.Add(FInner, &TCustomConfigManager::RegisterConfigCallback, Callback, Owner);
    }
    void RemoveConfigCallback(TObject* Owner) override {
        FCallbacks.Remove(FInner, &TCustomConfigManager::RemoveConfigCallback, Owner);
    }
    String ReadString(StringView Section, StringView Key) const override {
        return FPlan.LookedUp(FInner.ReadString(Section, Key));
    }
    Integer ReadInteger(StringView Section, StringView Key) const override {
        return FPlan.LookedUp(FInner.ReadInteger(Section, Key));
    }
    Boolean ReadBool(StringView Section, StringView Key) const override {
        return FPlan.LookedUp(FInner.ReadBool(Section, Key));
    }
    const String& GetCurrentSection() const override { return FInner.GetCurrentSection(); }

private:
    TFaultPlan& FPlan;
    TCustomConfigManager& FInner;
    TFaultyCallbacks FCallbacks;
};

// Texts, misbehaving.
class TFaultyLanguageManager final : public TCustomLanguageManager {
public:
    TFaultyLanguageManager(TFaultPlan& plan, TCustomLanguageManager& inner)
        : FPlan(plan), FInner(inner), FCallbacks(plan, &TellNothing) {}

    void RegisterLanguageCallback(const TDataCallbackEvent& Callback, TObject* Owner) override {
        FCallbacks.Add(FInner, &TCustomLanguageManager::RegisterLanguageCallback, Callback, Owner);
    }
    void RemoveLanguageCallback(TObject* Owner) override {
        FCallbacks.Remove(FInner, &TCustomLanguageManager::RemoveLanguageCallback, Owner);
    }
    TAppLanguage GetCurrentLanguage() const override {
        FPlan.InLookUp();
        return FInner.GetCurrentLanguage();
    }
    String GetResourceString(StringView Tag, StringView Key, TAppLanguage Language,
                             Integer Argument, Pointer Extra) const override {
        return FPlan.LookedUp(FInner.GetResourceString(Tag, Key, Language, Argument, Extra));
    }
    String GetResourceAttribute(StringView Tag, StringView Key,
                                StringView Attribute) const override {
        return FPlan.LookedUp(FInner.GetResourceAttribute(Tag, Key, Attribute));
    }

private:
    TFaultPlan& FPlan;
    TCustomLanguageManager& FInner;
    TFaultyCallbacks FCallbacks;
};

// Channels, misbehaving: what is told for nothing is of a class that a receiver ignores, and the
// questions that go to the application run a loop of their own.
class TFaultyChannelManager final : public TCustomGlobalChannelManager {
public:
    TFaultyChannelManager(TFaultPlan& plan, TCustomGlobalChannelManager& inner)
        : FPlan(plan), FInner(inner),
          FChannels(plan, [this](TFaultyEntry& entry) { TellForeign(entry); }),
          FGroups(plan, [this](TFaultyEntry& entry) { TellForeign(entry); }) {}

    void RegisterChannelCallback(Integer Channel, const TDataCallbackEvent& Callback,
                                 TObject* Owner) override {
        FChannels.RegisterAndCall(Owner, IntegerToText(Channel), Callback, [&](const auto& event) {
            FInner.RegisterChannelCallback(Channel, event, Owner);
        });
    }
    void RemoveChannelCallback(Integer Channel, TObject* Owner) override {
        FChannels.Remove(Owner, IntegerToText(Channel));
        FInner.RemoveChannelCallback(Channel, Owner);
    }
    void RegisterGroupCallback(StringView GroupID, const TDataCallbackEvent& Callback,
                               TObject* Owner) override {
        FGroups.RegisterAndCall(Owner, GroupID, Callback, [&](const auto& event) {
            FInner.RegisterGroupCallback(GroupID, event, Owner);
        });
    }
    void RemoveGroupCallback(StringView GroupID, TObject* Owner) override {
        FGroups.Remove(Owner, GroupID);
        FInner.RemoveGroupCallback(GroupID, Owner);
    }
    void PublishValue(Integer Channel, StringView NewValue, StringView OldValue,
                      StringView GroupID) override {
        FInner.PublishValue(Channel, NewValue, OldValue, GroupID);
    }
    void SendChannelMessage(Integer MessageNumber, Pointer Data) override {
        const bool asks = MessageNumber == ChannelMessage::TakeOrderAction ||
                          MessageNumber == ChannelMessage::CloseAllPositions;
        if (asks) FPlan.InQuestion();
        FInner.SendChannelMessage(MessageNumber, Data);
    }
    String GetChannelValue(Integer Channel) const override {
        return FPlan.LookedUp(FInner.GetChannelValue(Channel));
    }
    String GetGroupValue(StringView GroupID, Integer Channel) const override {
        return FPlan.LookedUp(FInner.GetGroupValue(GroupID, Channel));
    }
    void SetGroupValue(StringView GroupID, Integer Channel, StringView Value) override {
        FInner.SetGroupValue(GroupID, Channel, Value);
    }
    Integer GetRunState() const override {
        FPlan.InLookUp();
        return FInner.GetRunState();
    }

private:
    void TellForeign(TFaultyEntry& entry) {
        FPlan.Count(TFault::ForeignSender);
        entry.Tell(AsPointer(&FForeign));
    }

    TFaultPlan& FPlan;
    TCustomGlobalChannelManager& FInner;
    TObject FForeign;
    TFaultyCallbacks FChannels; // by number
    TFaultyCallbacks FGroups;
};

// Message boxes whose loop lets everything else go on.
class TFaultyMessageBoxCtrl final : public TCustomMessageBoxCtrl {
public:
    TFaultyMessageBoxCtrl(TFaultPlan& plan, TCustomMessageBoxCtrl& inner)
        : FPlan(plan), FInner(inner) {}

    void ShowMessageText(TObject* Owner, StringView Text, StringView Caption, Pointer Reserved1,
                         Pointer Reserved2) override {
        FInner.ShowMessageText(Owner, Text, Caption, Reserved1, Reserved2);
        FPlan.InQuestion();
    }
    void ShowMessageCode(TObject* Owner, const Variant& Code, StringView Caption, Pointer Reserved1,
                         Pointer Reserved2) override {
        FInner.ShowMessageCode(Owner, Code, Caption, Reserved1, Reserved2);
        FPlan.InQuestion();
    }
    Integer ShowConfirmText(TObject* Owner, StringView Text, StringView Caption, Pointer Reserved1,
                            Pointer Reserved2, Integer Default) override {
        FPlan.InQuestion();
        return FInner.ShowConfirmText(Owner, Text, Caption, Reserved1, Reserved2, Default);
    }

private:
    TFaultPlan& FPlan;
    TCustomMessageBoxCtrl& FInner;
};

// Orders whose fills come before the answer.
class TFaultyOrderActionManager final : public TCustomOrderActionManager {
public:
    TFaultyOrderActionManager(TFaultPlan& plan, TCustomOrderActionManager& inner)
        : FPlan(plan), FInner(inner) {}

    Boolean TakeOrderAction(TObject* Owner, TCustomClientOrder* Order, Integer Action,
                            Boolean Flag) override {
        const Boolean taken = FInner.TakeOrderAction(Owner, Order, Action, Flag);
        FPlan.InOrder();
        return taken;
    }

private:
    TFaultPlan& FPlan;
    TCustomOrderActionManager& FInner;
};

} // namespace quorin
