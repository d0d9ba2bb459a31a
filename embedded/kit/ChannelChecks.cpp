#include "embedded/kit/ContractKit.h"
#include "embedded/kit/RegistrationRules.h"

#include "platform/rtl/Numbers.h"
#include "viewdata/services/ChannelMessages.h"

namespace quorin {

namespace {

constexpr StringView Group = u"contract-kit";
constexpr StringView OtherGroup = u"contract-kit 2";
constexpr Integer TestChannel = Channel::CurrentSymbol;
constexpr Integer OtherChannel = Channel::CurrentAccount;

class TChannelChecks {
public:
    TChannelChecks(TChannelDriver& driver, TContractReport& report)
        : FDriver(driver), FService(driver.Service()), FCheck(report, u"GlobalChannelManager") {}

    void CheckAll() {
        Absent();
        Seeds();
        ValuesApart();
        WhoHears();
        StoredBefore();
        Messages();
        for (const bool isGroup : {false, true}) Registrations(isGroup);
        GroupRegistrations();
    }

private:
    void Absent() {
        const StringView rule = u"a group or channel without a value gives empty text";
        FCheck.Reads(rule, {}, FService.GetGroupValue(u"no such group", TestChannel));
        FCheck.Reads(rule, {}, FService.GetGroupValue({}, TestChannel));
        FCheck.Reads(rule, {}, FService.GetChannelValue(-12345));
    }

    void Seeds() {
        TCallRecorder& recorder = FCheck.NewRecorder();
        FService.RegisterChannelCallback(TestChannel, recorder.Event(), recorder.Owner());
        FService.RegisterGroupCallback(Group, recorder.Event(), recorder.Owner());
        const String outside = FService.GetChannelValue(TestChannel);
        FService.SetGroupValue(Group, TestChannel, u"seed");
        FDriver.Deliver();
        FCheck.Reads(u"SetGroupValue stores the group's value", u"seed",
                     FService.GetGroupValue(Group, TestChannel));
        FCheck.Equal(u"SetGroupValue notifies nobody", 0, recorder.Count());
        const StringView alone = u"SetGroupValue leaves every other value";
        FCheck.Reads(alone, outside, FService.GetChannelValue(TestChannel), u"outside any group");
        FCheck.Reads(alone, {}, FService.GetGroupValue(Group, OtherChannel), u"another channel");
        FCheck.Reads(alone, {}, FService.GetGroupValue(OtherGroup, TestChannel), u"another group");
        FService.RemoveGroupCallback(Group, recorder.Owner());
        FService.RemoveChannelCallback(TestChannel, recorder.Owner());
    }

    void ValuesApart() {
        const StringView rule = u"one value per channel and group, and one outside any group";
        FService.PublishValue(TestChannel, u"outside", {}, {});
        FService.PublishValue(TestChannel, u"first", {}, Group);
        FService.PublishValue(TestChannel, u"second", u"first", OtherGroup);
        FService.PublishValue(OtherChannel, u"account", {}, Group);
        FDriver.Deliver();
        FCheck.Reads(rule, u"outside", FService.GetChannelValue(TestChannel), u"no group");
        FCheck.Reads(rule, u"first", FService.GetGroupValue(Group, TestChannel), u"a group");
        FCheck.Reads(rule, u"second", FService.GetGroupValue(OtherGroup, TestChannel),
                     u"another group");
        FCheck.Reads(rule, u"account", FService.GetGroupValue(Group, OtherChannel),
                     u"another channel");
        FService.PublishValue(TestChannel, {}, u"outside", {});
        FCheck.Reads(u"an empty value is published like any other", {},
                     FService.GetChannelValue(TestChannel));
    }

    struct TListener {
        StringView Name;
        TCallRecorder* Recorder;
        Integer WithGroup; // calls for a value published in the group
        Integer Without;
    };

    void WhoHears() {
        TListener listeners[] = {
            {u"the channel", &FCheck.NewRecorder(), 1, 1},
            {u"another channel", &FCheck.NewRecorder(), 0, 0},
            {u"the group", &FCheck.NewRecorder(), 1, 0},
            {u"another group", &FCheck.NewRecorder(), 0, 0},
        };
        const auto event = [&](Integer index) { return listeners[index].Recorder->Event(); };
        const auto owner = [&](Integer index) { return listeners[index].Recorder->Owner(); };
        FService.RegisterChannelCallback(TestChannel, event(0), owner(0));
        FService.RegisterChannelCallback(OtherChannel, event(1), owner(1));
        FService.RegisterGroupCallback(Group, event(2), owner(2));
        FService.RegisterGroupCallback(OtherGroup, event(3), owner(3));
        for (const bool isGroup : {false, true}) {
            for (TListener& listener : listeners) listener.Recorder->Reset();
            FService.PublishValue(TestChannel, u"heard", u"old", isGroup ? Group : StringView());
            for (const TListener& listener : listeners) {
                FCheck.Equal(isGroup ? u"a value in a group reaches its group and the channel"
                                     : u"a value outside any group reaches the channel alone",
                             isGroup ? listener.WithGroup : listener.Without,
                             listener.Recorder->Count(), listener.Name);
            }
        }
        FService.RemoveChannelCallback(TestChannel, owner(0));
        FService.RemoveChannelCallback(OtherChannel, owner(1));
        FService.RemoveGroupCallback(Group, owner(2));
        FService.RemoveGroupCallback(OtherGroup, owner(3));
    }

    // Inside the notification the new value can be read, and when the call returns all have heard.
    void StoredBefore() {
        TCallRecorder& recorder = FCheck.NewRecorder();
        String outside;
        String inGroup;
        recorder.OnCall([&](Pointer) {
            outside = FService.GetChannelValue(TestChannel);
            inGroup = FService.GetGroupValue(Group, TestChannel);
        });
        FService.RegisterChannelCallback(TestChannel, recorder.Event(), recorder.Owner());
        const StringView stored = u"a value is stored before it is told of";
        FService.PublishValue(TestChannel, u"stored 1", {}, {});
        FCheck.Reads(stored, u"stored 1", outside, u"no group");
        FService.PublishValue(TestChannel, u"stored 2", {}, Group);
        FCheck.Reads(stored, u"stored 2", inGroup, u"a group");
        FCheck.Equal(u"PublishValue has notified when it returns", 2, recorder.Count());
        recorder.OnCall(nullptr);
        FService.RemoveChannelCallback(TestChannel, recorder.Owner());
    }

    void Messages() {
        Integer number = 0;
        Pointer data = this;
        Integer calls = 0;
        FDriver.SetReceiver([&](Integer message, Pointer record) {
            ++calls;
            number = message;
            data = record;
            if (message == ChannelMessage::CreateSymbolListView && record != nullptr) {
                static_cast<TListViewRequestRecord*>(record)->Callback =
                    FCheck.NewRecorder().Event();
            }
        });
        FService.SendChannelMessage(ChannelMessage::AddFavoritePrice, nullptr);
        const StringView nil = u"a message without a record reaches the application";
        FCheck.Equal(nil, ChannelMessage::AddFavoritePrice, number);
        FCheck.IsNil(nil, data);
        TListViewRequestRecord record;
        FService.SendChannelMessage(ChannelMessage::CreateSymbolListView, &record);
        const StringView answered = u"a message is answered in its record when the call returns";
        FCheck.Equal(answered, ChannelMessage::CreateSymbolListView, number);
        FCheck.IsSame(answered, &record, data);
        FCheck.True(answered, static_cast<bool>(record.Callback));
        FCheck.Equal(u"a message is sent once", 2, calls);
        FDriver.SetReceiver(nullptr);
    }

    void Publish(StringView group) {
        FPublished = IntegerToText(++FSerial);
        FService.PublishValue(TestChannel, FPublished, {}, group);
    }
    String InspectGroup(Pointer sender) {
        const auto* change = ObjectAs<TCustomGroupData>(sender);
        if (change == nullptr) return u"no TCustomGroupData";
        if (change->GetGroupID() != Group) return u"the group " + ShowValue(change->GetGroupID());
        if (change->GetChannel() != TestChannel) {
            return u"the channel " + ShowValue(change->GetChannel());
        }
        const String value = change->GetChannelValue(TestChannel);
        if (value != FPublished) return u"the value " + ShowValue(value);
        if (!change->GetChannelValue(-12345).empty()) return u"a value of a channel without one";
        return {};
    }
    // A value that was published inside another's notification leaves that notification alone.
    String InspectValue(Pointer sender) {
        const auto* change = ObjectAs<TCustomListObject>(sender);
        if (change == nullptr) return u"no TCustomListObject";
        if (change->GetText().empty()) return u"an empty value";
        return change->IsEmpty() ? String(u"a value that says it is none") : String();
    }

    void Registrations(bool isGroup) {
        CheckRegistrationRules(
            FCheck, FDriver,
            {.Name = isGroup ? u"RegisterChannelCallback, values in a group"
                             : u"RegisterChannelCallback, values outside",
             .Register =
                 [&](TCallRecorder& receiver, TObject* owner) {
                     FService.RegisterChannelCallback(TestChannel, receiver.Event(), owner);
                 },
             .Remove = [&](TObject* owner) { FService.RemoveChannelCallback(TestChannel, owner); },
             .Change = [&] { Publish(isGroup ? Group : StringView()); },
             .Inspect =
                 [&, isGroup](Pointer sender) {
                     return isGroup ? InspectGroup(sender) : InspectValue(sender);
                 }});
    }

    void GroupRegistrations() {
        CheckRegistrationRules(
            FCheck, FDriver,
            {.Name = u"RegisterGroupCallback",
             .Register =
                 [&](TCallRecorder& receiver, TObject* owner) {
                     FService.RegisterGroupCallback(Group, receiver.Event(), owner);
                 },
             .Remove = [&](TObject* owner) { FService.RemoveGroupCallback(Group, owner); },
             .Change = [&] { Publish(Group); },
             .Inspect = [&](Pointer sender) { return InspectGroup(sender); }});
    }

    TChannelDriver& FDriver;
    TCustomGlobalChannelManager& FService;
    TChecker FCheck;
    String FPublished;
    Integer FSerial = 0;
};

} // namespace

void CheckChannelManager(TChannelDriver& driver, TContractReport& report) {
    TChannelChecks(driver, report).CheckAll();
}

} // namespace quorin
