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
        {"padded", u"register:- type:700 return", "|00700, HKD, Tencent [00700] heard 00700"},
        {"left", u"register:- type:700 leave", "|00700, HKD, Tencent [00700] heard 00700"},
        {"five digits", u"register:- type:12345 return", "12345| [12345] heard 12345"},
        {"six digits", u"register:- type:123456 return", "123456| [123456] heard 123456"},
        {"zero", u"register:- type:0 return", "00000| [00000] heard 00000"},
        {"no number", u"register:- type:7A return", "7A| [7A] heard 7A"},
        {"capitals", u"register:- type:hsif leave",
         "|HSIF, HKD, Hang Seng future [HSIF] heard HSIF"},
        {"blanks", u"register:- typed:__700_ leave", "|00700, HKD, Tencent [00700] heard 00700"},
        {"unknown, left", u"register:- type:abc leave", "|ABC [ABC] heard ABC"},
        {"display typed", u"register:- typed:700,_USD,_ANY return",
         "|00700, HKD, Tencent [00700] heard 00700"},
        {"comma alone", u"register:- type:, return", "| [] heard -"},
        {"confirmed twice", u"register:- type:700 return return leave",
         "|00700, HKD, Tencent [00700] heard 00700"},
        {"other case", u"register:- type:abc return type:x back all type:abc leave",
         "|ABC [ABC] heard ABC ABC"},
        {"cleared", u"register:- type:700 return all back leave", "| [] heard 00700 -"},
        {"not yet confirmed", u"register:- type:700", "700| []"},
        {"without names", u"bare:- type:700 return", "00700| [00700] heard 00700"},
        {"names off", u"set:DisplaySymbolName=no register:- type:700 return",
         "00700| [00700] heard 00700"},
        {"names off afterwards", u"register:- set:DisplaySymbolName=N type:700 return",
         "|00700, HKD, Tencent [00700] heard 00700"},
        {"names off and bound again",
         u"register:- type:700 return set:DisplaySymbolName=N register:-",
         "00700| [00700] heard 00700"},
        {"picked", u"register:- f4 pick:00005", "|00005, HKD, HSBC [00005] heard 00005"},
        {"picked twice", u"register:- pick:00005 pick:00005",
         "|00005, HKD, HSBC [00005] heard 00005"},
        {"nothing picked", u"register:- type:700 return f4 pick:-",
         "|00700, HKD, Tencent [00700] heard 00700"},
        {"pasted", u"register:- paste:_700_ return", "|00700, HKD, Tencent [00700] heard 00700"},
    });
}

TEST_F(TSymbolEditorTest, LinkedFieldsFollowAndNeverEcho) {
    ExpectStates({
        {"group", u"register:G on:2 register:G type:700 return",
         "|00700, HKD, Tencent [00700] / |00700, HKD, Tencent [00700] heard 00700@G"},
        {"back and forth", u"register:G on:2 register:G type:700 leave on:1 all type:5 leave",
         "|00005, HKD, HSBC [00005] / |00005, HKD, HSBC [00005] heard 00700@G 00005@G"},
        {"other group, no mode", u"register:H on:2 register:G type:700 return",
         "|00700, HKD, Tencent [00700] / |00700, HKD, Tencent [00700] heard 00700@G"},
        {"other group, mode", u"mode:0 register:H on:2 register:G type:700 return",
         "| [] / |00700, HKD, Tencent [00700] heard 00700@G"},
        {"own group, mode", u"mode:0 register:G on:2 register:G type:700 return",
         "|00700, HKD, Tencent [00700] / |00700, HKD, Tencent [00700] heard 00700@G"},
        {"no group follows a group, no mode", u"register:- on:2 register:G type:700 return",
         "|00700, HKD, Tencent [00700] / |00700, HKD, Tencent [00700] heard 00700@G"},
        {"no group, mode 0", u"mode:0 register:- offer:00700", "| [] heard 00700"},
        {"no group, mode 1", u"mode:1 register:- offer:00700",
         "|00700, HKD, Tencent [00700] heard 00700"},
        {"no group, mode 2", u"mode:2 register:- offer:00700", "| [] heard 00700"},
        {"no group, mode in words", u"mode:one register:- offer:00700",
         "|00700, HKD, Tencent [00700] heard 00700"},
        {"group and an offer, mode 1", u"mode:1 register:G offer:00700", "| [] heard 00700"},
        {"group and an offer, no mode", u"register:G offer:00700",
         "|00700, HKD, Tencent [00700] heard 00700"},
        {"alone", u"alone:G on:2 register:G type:700 return",
         "| [] / |00700, HKD, Tencent [00700] heard 00700@G"},
        {"alone publishes", u"register:G on:2 alone:G type:700 return",
         "|00700, HKD, Tencent [00700] / |00700, HKD, Tencent [00700] heard 00700@G"},
        {"alone takes over", u"group:00005@G alone:G", "|00005, HKD, HSBC [00005]"},
        {"disabled", u"register:G disable offer:00700@G enable", "| [] heard 00700@G"},
        {"nothing offered", u"register:G type:700 return offer:-@G",
         "|00700, HKD, Tencent [00700] heard 00700@G -@G"},
        {"unknown offered", u"register:G offer:XYZ@G", "|XYZ [XYZ] heard XYZ@G"},
        {"moved to another group", u"mode:0 register:G register:H offer:00700@G",
         "| [] heard 00700@G"},
        {"removed", u"register:G remove offer:00700@G", "| [] heard 00700@G"},
    });
}

TEST_F(TSymbolEditorTest, TakesOverWhatIsShared) {
    ExpectStates({
        {"channel", u"offer:00700 register:-", "|00700, HKD, Tencent [00700] heard 00700"},
        {"group", u"group:00005@G register:G", "|00005, HKD, HSBC [00005]"},
        {"group, not the channel", u"offer:00700 register:G", "| [] heard 00700"},
        {"gives its own", u"hint:00700 register:G on:2 register:G",
         "|00700, HKD, Tencent [00700] / |00700, HKD, Tencent [00700]"},
        {"group before its own", u"group:00005@G hint:00700 register:G",
         "|00005, HKD, HSBC [00005]"},
        {"no group, own", u"offer:00005 hint:00700 bare:-", "00700| [00700] heard 00005"},
    });
}

TEST_F(TSymbolEditorTest, RebuildsTheDisplay) {
    ExpectStates({
        {"half typed, exchange", u"register:- type:700 return type:x exchange:A",
         "|00700, HKD, Tencent [00700] heard 00700"},
        {"half typed, language", u"register:- type:700 return all type:5 language",
         "|00700, HKD, Tencent [00700] heard 00700"},
        {"nothing confirmed", u"register:- type:5 exchange:B language", "5| []"},
        {"bare code", u"bare:- type:700 return exchange:C", "00700| [00700] heard 00700"},
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
    Do(u"all type:700 return");
    EXPECT_EQ(count(), before) << "another symbol ends the wait";
    Do(u"all type:MORE return remove");
    EXPECT_EQ(count(), before - 4) << "channel, group, language, exchange";
}

TEST_F(TSymbolEditorTest, DropsItsListDown) {
    Do(u"register:-");
    TcxPopupEdit& edit = *Edited();
    EXPECT_EQ(edit.Properties().PopupControl(), &Current().List);
    Do(u"f4");
    EXPECT_TRUE(edit.DroppedDown());
    EXPECT_EQ(edit.PopupWindow().Width(), 450);
    EXPECT_EQ(edit.PopupWindow().Height(), 400);
    Do(u"pick:-");
    EXPECT_FALSE(edit.DroppedDown());
    edit.SetWidth(700);
    Do(u"press:0 release");
    EXPECT_EQ(edit.PopupWindow().Width(), 700);
    edit.ResizePopup(10, 10);
    EXPECT_EQ(edit.PopupWindow().Width(), 150);
    EXPECT_EQ(edit.PopupWindow().Height(), 100);
    Do(u"register:G");
    EXPECT_EQ(edit.Properties().PopupControl(), &Current().List);
    EXPECT_EQ(Host().ChannelMessages().Count(), 1) << "one list for its life";
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
