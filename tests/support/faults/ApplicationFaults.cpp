#include "tests/support/faults/ApplicationFaults.h"

#include "platform/rtl/Numbers.h"
#include "viewdata/services/ChannelMessages.h"

namespace quorin {

void TFaultyConfigManager::RegisterConfigCallback(const TDataCallbackEvent& Callback,
                                                  TObject* Owner) {
    FCallbacks.Register(Owner, {}, Callback, [&](const auto& event) {
        FInner.RegisterConfigCallback(event, Owner);
    });
    FPlan.InRegistration(FCallbacks);
}

void TFaultyConfigManager::RemoveConfigCallback(TObject* Owner) {
    FCallbacks.Remove(Owner, {});
    FInner.RemoveConfigCallback(Owner);
}

String TFaultyConfigManager::ReadString(StringView Section, StringView Key) const {
    String text = FInner.ReadString(Section, Key);
    FPlan.InLookUp();
    return text;
}

Integer TFaultyConfigManager::ReadInteger(StringView Section, StringView Key) const {
    const Integer number = FInner.ReadInteger(Section, Key);
    FPlan.InLookUp();
    return number;
}

Boolean TFaultyConfigManager::ReadBool(StringView Section, StringView Key) const {
    const Boolean flag = FInner.ReadBool(Section, Key);
    FPlan.InLookUp();
    return flag;
}

void TFaultyLanguageManager::RegisterLanguageCallback(const TDataCallbackEvent& Callback,
                                                      TObject* Owner) {
    FCallbacks.Register(Owner, {}, Callback, [&](const auto& event) {
        FInner.RegisterLanguageCallback(event, Owner);
    });
    FPlan.InRegistration(FCallbacks);
}

void TFaultyLanguageManager::RemoveLanguageCallback(TObject* Owner) {
    FCallbacks.Remove(Owner, {});
    FInner.RemoveLanguageCallback(Owner);
}

TAppLanguage TFaultyLanguageManager::GetCurrentLanguage() const {
    FPlan.InLookUp();
    return FInner.GetCurrentLanguage();
}

String TFaultyLanguageManager::GetResourceString(StringView Tag, StringView Key,
                                                 TAppLanguage Language, Integer Argument,
                                                 Pointer Extra) const {
    String text = FInner.GetResourceString(Tag, Key, Language, Argument, Extra);
    FPlan.InLookUp();
    return text;
}

String TFaultyLanguageManager::GetResourceAttribute(StringView Tag, StringView Key,
                                                    StringView Attribute) const {
    String text = FInner.GetResourceAttribute(Tag, Key, Attribute);
    FPlan.InLookUp();
    return text;
}

TFaultyChannelManager::TFaultyChannelManager(TFaultPlan& plan, TCustomGlobalChannelManager& inner)
    : FPlan(plan), FInner(inner),
      FChannels(plan, [this](TFaultyEntry& entry) { TellForeign(entry); }),
      FGroups(plan, [this](TFaultyEntry& entry) { TellForeign(entry); }) {}

void TFaultyChannelManager::TellForeign(TFaultyEntry& entry) {
    FPlan.Count(TFault::ForeignSender);
    entry.Tell(AsPointer(&FForeign));
}

void TFaultyChannelManager::RegisterChannelCallback(Integer Channel,
                                                    const TDataCallbackEvent& Callback,
                                                    TObject* Owner) {
    FChannels.Register(Owner, IntegerToText(Channel), Callback, [&](const auto& event) {
        FInner.RegisterChannelCallback(Channel, event, Owner);
    });
    FPlan.InRegistration(FChannels);
}

void TFaultyChannelManager::RemoveChannelCallback(Integer Channel, TObject* Owner) {
    FChannels.Remove(Owner, IntegerToText(Channel));
    FInner.RemoveChannelCallback(Channel, Owner);
}

void TFaultyChannelManager::RegisterGroupCallback(StringView GroupID,
                                                  const TDataCallbackEvent& Callback,
                                                  TObject* Owner) {
    FGroups.Register(Owner, GroupID, Callback, [&](const auto& event) {
        FInner.RegisterGroupCallback(GroupID, event, Owner);
    });
    FPlan.InRegistration(FGroups);
}

void TFaultyChannelManager::RemoveGroupCallback(StringView GroupID, TObject* Owner) {
    FGroups.Remove(Owner, GroupID);
    FInner.RemoveGroupCallback(GroupID, Owner);
}

void TFaultyChannelManager::PublishValue(Integer Channel, StringView NewValue, StringView OldValue,
                                         StringView GroupID) {
    FInner.PublishValue(Channel, NewValue, OldValue, GroupID);
}

void TFaultyChannelManager::SendChannelMessage(Integer MessageNumber, Pointer Data) {
    const bool asks = MessageNumber == ChannelMessage::TakeOrderAction ||
                      MessageNumber == ChannelMessage::CloseAllPositions;
    if (asks) FPlan.InQuestion();
    FInner.SendChannelMessage(MessageNumber, Data);
}

String TFaultyChannelManager::GetChannelValue(Integer Channel) const {
    String value = FInner.GetChannelValue(Channel);
    FPlan.InLookUp();
    return value;
}

String TFaultyChannelManager::GetGroupValue(StringView GroupID, Integer Channel) const {
    String value = FInner.GetGroupValue(GroupID, Channel);
    FPlan.InLookUp();
    return value;
}

void TFaultyChannelManager::SetGroupValue(StringView GroupID, Integer Channel, StringView Value) {
    FInner.SetGroupValue(GroupID, Channel, Value);
}

Integer TFaultyChannelManager::GetRunState() const {
    FPlan.InLookUp();
    return FInner.GetRunState();
}

void TFaultyMessageBoxCtrl::ShowMessageText(TObject* Owner, StringView Text, StringView Caption,
                                            Pointer Reserved1, Pointer Reserved2) {
    FInner.ShowMessageText(Owner, Text, Caption, Reserved1, Reserved2);
    FPlan.InQuestion();
}

void TFaultyMessageBoxCtrl::ShowMessageCode(TObject* Owner, const Variant& Code, StringView Caption,
                                            Pointer Reserved1, Pointer Reserved2) {
    FInner.ShowMessageCode(Owner, Code, Caption, Reserved1, Reserved2);
    FPlan.InQuestion();
}

Integer TFaultyMessageBoxCtrl::ShowConfirmText(TObject* Owner, StringView Text, StringView Caption,
                                               Pointer Reserved1, Pointer Reserved2,
                                               Integer Default) {
    FPlan.InQuestion();
    return FInner.ShowConfirmText(Owner, Text, Caption, Reserved1, Reserved2, Default);
}

Boolean TFaultyOrderActionManager::TakeOrderAction(TObject* Owner, TCustomClientOrder* Order,
                                                   Integer Action, Boolean Flag) {
    const Boolean taken = FInner.TakeOrderAction(Owner, Order, Action, Flag);
    FPlan.InOrder();
    return taken;
}

} // namespace quorin
