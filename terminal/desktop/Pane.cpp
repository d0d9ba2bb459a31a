#include "terminal/desktop/Pane.h"

#include "terminal/desktop/QtText.h"
#include "viewdata/services/GlobalChannelManager.h"

#include <QScopedValueRollback>

namespace quorin {

StringView GroupID(Integer group) {
    static constexpr StringView IDs[] = {u"", u"A", u"B"};
    return group >= NoGroup && group <= GroupCount ? IDs[group] : IDs[NoGroup];
}

TPane::TPane(TPaneKind kind, QWidget* parent) : QWidget(parent), FKind(kind) {}

TPane::~TPane() {
    TCustomGlobalChannelManager::GetInstance()->RemoveGroupCallback(GroupID(FGroup), &FOwner);
}

void TPane::SetGroup(Integer group) {
    if (group == FGroup || group < NoGroup || group > GroupCount) return;
    TCustomGlobalChannelManager::GetInstance()->RemoveGroupCallback(GroupID(FGroup), &FOwner);
    FGroup = group;
    JoinGroup(GroupID(FGroup));
    emit GroupChanged();
}

void TPane::JoinGroup(StringView groupID) {
    if (groupID.empty()) return;
    auto& channels = *TCustomGlobalChannelManager::GetInstance();
    channels.RegisterGroupCallback(groupID, MakeEvent<&TPane::GroupData>(this), &FOwner);
    const String account = channels.GetGroupValue(groupID, Channel::CurrentAccount);
    const String symbol = channels.GetGroupValue(groupID, Channel::CurrentSymbol);
    if (!account.empty()) TakeAccount(account);
    if (!symbol.empty()) TakeSymbol(symbol);
}

void TPane::ShareSymbol(StringView symbol) {
    Share(Channel::CurrentSymbol, symbol);
}

void TPane::ShareAccount(StringView account) {
    Share(Channel::CurrentAccount, account);
}

void TPane::ChooseSymbol(StringView symbol) {
    ShareSymbol(symbol);
    emit SymbolChosen(ToQt(symbol));
}

void TPane::ChooseAccount(StringView account) {
    ShareAccount(account);
    emit AccountChosen(ToQt(account));
}

void TPane::Share(Integer channel, StringView value) {
    if (FGroup == NoGroup || value.empty()) return;
    const QScopedValueRollback telling(FIsTelling, true);
    auto& channels = *TCustomGlobalChannelManager::GetInstance();
    const String before = channels.GetGroupValue(GroupID(FGroup), channel);
    if (before != value) channels.PublishValue(channel, value, before, GroupID(FGroup));
}

void TPane::GroupData(Pointer Sender, Pointer) {
    const auto* change = ObjectAs<TCustomGroupData>(Sender);
    if (change == nullptr || FIsTelling) return;
    const String value = change->GetChannelValue(change->GetChannel());
    if (value.empty()) return;
    if (change->GetChannel() == Channel::CurrentSymbol) TakeSymbol(value);
    if (change->GetChannel() == Channel::CurrentAccount) TakeAccount(value);
}

} // namespace quorin
