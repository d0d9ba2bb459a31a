#include "tests/viewdata/EditorFixture.h"

namespace quorin {
namespace {

struct TSymbolEditorTest
    : TPopupFixture<&TEditorManager::RegisterSymbolEditor, &TEditorManager::RemoveSymbolEditor,
                    Channel::CurrentSymbol, ChannelMessage::CreateSymbolListView> {
    Pointer Chosen(StringView code) override {
        return AsPointer(TCustomMarketAdapter::GetInstance()->FindMarketData(code));
    }
    bool DoWord(StringView name, StringView argument) override {
        if (name == u"exchange") {
            Services().Market().SetMarketState(u"SEHK", argument, MarketOpen);
            return Services().Deliver(), true;
        }
        if (name == u"language") {
            Services().Language().SetLanguage(TAppLanguage::TraditionalChinese);
            return Services().Language().SetLanguage(TAppLanguage::English), true;
        }
        return TPopupFixture::DoWord(name, argument);
    }
};

TEST_F(TSymbolEditorTest, MakesACodeOfWhatIsEntered) {
    ExpectStates({
        {"padded", u"register:- type:7 return", "|00007, HKD, CK [00007] heard 00007"},
        {"left", u"register:- type:7 leave", "|00007, HKD, CK [00007] heard 00007"},
        {"five digits", u"register:- type:12345 return", "12345| [12345] heard 12345"},
        {"six digits", u"register:- type:123456 return", "123456| [123456] heard 123456"},
        {"zero", u"register:- type:0 return", "00000| [00000] heard 00000"},
        {"no number", u"register:- type:7A return", "7A| [7A] heard 7A"},
        {"capitals", u"bare:- type:hsif leave", "|HSIF [HSIF] heard HSIF"},
        {"blanks", u"register:- typed:__7_ leave", "|00007, HKD, CK [00007] heard 00007"},
        {"unknown, left", u"register:- type:abc leave", "|ABC [ABC] heard ABC"},
        {"display", u"register:- typed:7,_USD,_X return", "|00007, HKD, CK [00007] heard 00007"},
        {"comma alone", u"register:- type:, return", "| [] heard -"},
        {"confirmed twice", u"register:- type:7 return return leave",
         "|00007, HKD, CK [00007] heard 00007"},
        {"other case", u"register:- type:abc return all type:abc leave",
         "|ABC [ABC] heard ABC ABC"},
        {"cleared", u"register:- type:7 return all back leave", "| [] heard 00007 -"},
        {"not yet confirmed", u"register:- type:7", "7| []"},
        {"without names", u"bare:- type:7 return", "00007| [00007] heard 00007"},
        {"names off", u"set:DisplaySymbolName=no register:- type:7 return",
         "00007| [00007] heard 00007"},
        {"off afterwards", u"register:- set:DisplaySymbolName=N type:7 return",
         "|00007, HKD, CK [00007] heard 00007"},
        {"bound again", u"register:- type:7 return set:DisplaySymbolName=N register:-",
         "00007| [00007] heard 00007"},
        {"picked", u"register:- f4 pick:00005", "|00005, HKD, HSBC [00005] heard 00005"},
        {"picked twice", u"register:- pick:00005 pick:00005",
         "|00005, HKD, HSBC [00005] heard 00005"},
        {"nothing picked", u"register:- type:7 return f4 pick:-",
         "|00007, HKD, CK [00007] heard 00007"},
        {"pasted", u"register:- paste:_7_ return", "|00007, HKD, CK [00007] heard 00007"},
    });
}

TEST_F(TSymbolEditorTest, LinkedFieldsFollowAndNeverEcho) {
    ExpectStates({
        {"group", u"register:G on:2 register:G type:7 return",
         "both |00007, HKD, CK [00007] heard 00007@G"},
        {"and back", u"register:G on:2 register:G type:7 on:1 all type:5 leave",
         "both |00005, HKD, HSBC [00005] heard 00007@G 00005@G"},
        {"other group", u"register:H on:2 register:G type:7 return",
         "both |00007, HKD, CK [00007] heard 00007@G"},
        {"other group, mode", u"mode:0 register:H on:2 register:G type:7 return",
         "| [] / |00007, HKD, CK [00007] heard 00007@G"},
        {"own group, mode", u"mode:0 register:G on:2 register:G type:7 return",
         "both |00007, HKD, CK [00007] heard 00007@G"},
        {"no group", u"register:- on:2 register:G type:7 return",
         "both |00007, HKD, CK [00007] heard 00007@G"},
        {"no group, mode 0", u"mode:0 register:- offer:00007", "| [] heard 00007"},
        {"no group, mode 1", u"mode:1 register:- offer:00007",
         "|00007, HKD, CK [00007] heard 00007"},
        {"no group, mode 2", u"mode:2 register:- offer:00007", "| [] heard 00007"},
        {"mode in words", u"mode:one register:- offer:00007",
         "|00007, HKD, CK [00007] heard 00007"},
        {"group and an offer, mode 1", u"mode:1 register:G offer:00007", "| [] heard 00007"},
        {"group and an offer, no mode", u"register:G offer:00007",
         "|00007, HKD, CK [00007] heard 00007"},
        {"alone", u"alone:G on:2 register:G type:7 return",
         "| [] / |00007, HKD, CK [00007] heard 00007@G"},
        {"alone publishes", u"register:G on:2 alone:G type:7 return",
         "both |00007, HKD, CK [00007] heard 00007@G"},
        {"alone takes over", u"group:00005@G alone:G", "|00005, HKD, HSBC [00005]"},
        {"disabled", u"register:G disable offer:00007@G enable", "| [] heard 00007@G"},
        {"nothing offered", u"register:G type:7 return offer:-@G",
         "|00007, HKD, CK [00007] heard 00007@G -@G"},
        {"unknown offered", u"register:G offer:XYZ@G", "|XYZ [XYZ] heard XYZ@G"},
        {"moved to another group", u"mode:0 register:G register:H offer:00007@G",
         "| [] heard 00007@G"},
        {"removed", u"register:G remove offer:00007@G", "| [] heard 00007@G"},
    });
}

// What a form does inside the exit of a field that follows another is no change of its own.
TEST_F(TSymbolEditorTest, StaysSilentWhileItFollows) {
    WithoutFaults("an offer that is told twice is followed twice");
    Do(u"register:-");
    Current().Trace->ActsOn = "exit";
    Current().Trace->Act = [this] { Do(u"offer:HSIF pick:00005"); };
    Do(u"offer:00007");
    EXPECT_EQ(State(), "|00005, HKD, HSBC [00005] heard 00007 HSIF");
}

TEST_F(TSymbolEditorTest, LeavesOnce) {
    Do(u"register:- type:7");
    Current().Trace->Take();
    Current().Trace->ActsOn = "exit";
    Current().Trace->Act = [this] { Do(u"pick:00005"); };
    Do(u"leave");
    EXPECT_EQ(State(), "|00005, HKD, HSBC [00005] heard 00007 00005");
    EXPECT_EQ(Current().Trace->Take(),
              "validate'7' change:00007, HKD, CK exit change:00005 change:00005, HKD, HSBC");
}

TEST_F(TSymbolEditorTest, TakesOverWhatIsShared) {
    ExpectStates({
        {"channel", u"offer:00007 register:-", "|00007, HKD, CK [00007] heard 00007"},
        {"group", u"group:00005@G register:G", "|00005, HKD, HSBC [00005]"},
        {"group, not the channel", u"offer:00007 register:G", "| [] heard 00007"},
        {"gives its own", u"hint:00007 register:G on:2 register:G", "both |00007, HKD, CK [00007]"},
        {"group before its own", u"group:00005@G hint:00007 register:G",
         "|00005, HKD, HSBC [00005]"},
        {"no group, own", u"offer:00005 hint:00007 bare:-", "00007| [00007] heard 00005"},
    });
}

TEST_F(TSymbolEditorTest, RebuildsTheDisplay) {
    ExpectStates({
        {"half typed, exchange", u"register:- type:7 return type:x exchange:A",
         "|00007, HKD, CK [00007] heard 00007"},
        {"half typed, language", u"register:- type:7 return all type:5 language",
         "|00007, HKD, CK [00007] heard 00007"},
        {"nothing confirmed", u"register:- type:5 exchange:B language", "5| []"},
        {"bare code", u"bare:- type:7 return exchange:C", "00007| [00007] heard 00007"},
    });
}

TEST_F(TSymbolEditorTest, FillsInNamesThatArriveLate) {
    const auto count = [this] { return Services().RegistrationCount(); };
    Do(u"register:G");
    const Integer before = count();
    Do(u"type:NEWS return");
    EXPECT_EQ(count(), before + 1);
    EXPECT_EQ(State(), "NEWS| [NEWS] heard NEWS@G");
    SetField(u"NEWS", Field::Currency, StringView(u"USD"));
    Services().Deliver();
    EXPECT_EQ(State(), "|NEWS, USD [NEWS]");
    EXPECT_EQ(count(), before);
    Do(u"all type:MORE return");
    EXPECT_EQ(count(), before + 1);
    Do(u"all type:7 return");
    EXPECT_EQ(count(), before) << "another symbol ends the wait";
    Do(u"all type:MORE return remove");
    EXPECT_EQ(count(), before - 4) << "channel, group, language, exchange";
}

TEST_F(TSymbolEditorTest, DropsItsListDown) {
    Do(u"register:-");
    TcxPopupEdit& edit = *Edited();
    EXPECT_EQ(edit.Properties().PopupControl(), Current().List.get());
    EXPECT_EQ(edit.Properties().PopupWidth(), 450);
    Do(u"f4");
    EXPECT_TRUE(edit.DroppedDown());
    EXPECT_EQ(edit.PopupWindow().Width(), 450);
    EXPECT_EQ(edit.PopupWindow().Height(), 400);
    Do(u"pick:-");
    EXPECT_FALSE(edit.DroppedDown());
    edit.SetWidth(700);
    Do(u"press:0 release");
    EXPECT_EQ(edit.PopupWindow().Width(), 700);
    EXPECT_EQ(edit.Properties().PopupWidth(), 700);
    edit.ResizePopup(10, 10);
    EXPECT_EQ(edit.PopupWindow().Width(), 150);
    EXPECT_EQ(edit.PopupWindow().Height(), 100);
    Do(u"register:G");
    EXPECT_EQ(edit.Properties().PopupControl(), Current().List.get());
    EXPECT_EQ(Host().ChannelMessages().Count(), 1) << "one list for its life";
    Current().List = CreateComponent<TControl>();
    EXPECT_EQ(edit.Properties().PopupControl(), nullptr);
    Do(u"register:G pick:00005");
    EXPECT_EQ(edit.Properties().PopupControl(), Current().List.get()) << "the first has died";
    Do(u"remove pick:00700");
    EXPECT_EQ(State(), "|00005, HKD, HSBC [00005] heard 00005@G");
}

TEST_F(TSymbolEditorTest, PassesEventsOnToTheForm) {
    struct TCase {
        const char* Name;
        StringView Script;
        const char* Words;
    };
    const TCase cases[] = {
        {"confirmed", u"type:5 return",
         "down53 press5 change:5 up53 change:00005, HKD, HSBC down13 press#13 "
         "validate'00005, HKD, HSBC' up13"},
        {"left", u"type:5 leave",
         "down53 press5 change:5 up53 validate'5' change:00005, HKD, HSBC exit"},
        {"picked", u"pick:00005", "change:00005 change:00005, HKD, HSBC exit"},
        {"clicked", u"leave click:0", "exit enter mousedown click mouseup"},
        {"removed", u"remove type:5 leave", "down53 press5 change:5 up53 validate'5' exit"},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Name);
        Restart();
        Do(u"register:-");
        Current().Trace->Take();
        Do(row.Script);
        EXPECT_EQ(Current().Trace->Take(), row.Words);
    }
}

} // namespace
} // namespace quorin
