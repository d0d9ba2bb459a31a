#pragma once

#include "tests/support/faults/FaultyCallbacks.h"
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

    void RegisterConfigCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveConfigCallback(TObject* Owner) override;
    String ReadString(StringView Section, StringView Key) const override;
    Integer ReadInteger(StringView Section, StringView Key) const override;
    Boolean ReadBool(StringView Section, StringView Key) const override;
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

    void RegisterLanguageCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveLanguageCallback(TObject* Owner) override;
    TAppLanguage GetCurrentLanguage() const override;
    String GetResourceString(StringView Tag, StringView Key, TAppLanguage Language,
                             Integer Argument, Pointer Extra) const override;
    String GetResourceAttribute(StringView Tag, StringView Key,
                                StringView Attribute) const override;

private:
    TFaultPlan& FPlan;
    TCustomLanguageManager& FInner;
    TFaultyCallbacks FCallbacks;
};

// Channels, misbehaving: what is told for nothing is of a class that a receiver ignores, and the
// questions that go to the application run a loop of their own.
class TFaultyChannelManager final : public TCustomGlobalChannelManager {
public:
    TFaultyChannelManager(TFaultPlan& plan, TCustomGlobalChannelManager& inner);

    void RegisterChannelCallback(Integer Channel, const TDataCallbackEvent& Callback,
                                 TObject* Owner) override;
    void RemoveChannelCallback(Integer Channel, TObject* Owner) override;
    void RegisterGroupCallback(StringView GroupID, const TDataCallbackEvent& Callback,
                               TObject* Owner) override;
    void RemoveGroupCallback(StringView GroupID, TObject* Owner) override;
    void PublishValue(Integer Channel, StringView NewValue, StringView OldValue,
                      StringView GroupID) override;
    void SendChannelMessage(Integer MessageNumber, Pointer Data) override;
    String GetChannelValue(Integer Channel) const override;
    String GetGroupValue(StringView GroupID, Integer Channel) const override;
    void SetGroupValue(StringView GroupID, Integer Channel, StringView Value) override;
    Integer GetRunState() const override;

private:
    void TellForeign(TFaultyEntry& entry);

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
                         Pointer Reserved2) override;
    void ShowMessageCode(TObject* Owner, const Variant& Code, StringView Caption,
                         Pointer Reserved1, Pointer Reserved2) override;
    Integer ShowConfirmText(TObject* Owner, StringView Text, StringView Caption, Pointer Reserved1,
                            Pointer Reserved2, Integer Default) override;

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
                            Boolean Flag) override;

private:
    TFaultPlan& FPlan;
    TCustomOrderActionManager& FInner;
};

} // namespace quorin
