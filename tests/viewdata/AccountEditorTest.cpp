#include "tests/viewdata/EditorFixture.h"

namespace quorin {
namespace {

constexpr StringView Refused = u"This account is not known.";

struct TAccountEditorTest
    : TPopupFixture<&TEditorManager::RegisterAccountEditor, &TEditorManager::RemoveAccountEditor,
                    Channel::CurrentAccount, ChannelMessage::CreateAccountListView> {
    TAccountEditorTest() {
        Accounts().FeedAccount(u"A1", {.Tag = u"T1", .Name = u"Ann"});
        Accounts().FeedAccount(u"A2", {.Tag = u"T2"});
        Services().Deliver();
    }
    TEmbeddedAccountAdapter& Accounts() { return Services().Accounts(); }
    Pointer Chosen(StringView code) override {
        return AsPointer(TCustomAccountAdapter::GetInstance()->GetAccount(code, false));
    }
    bool DoWord(StringView name, StringView argument) override {
        if (name == u"refused") return Host().ExpectMessage(Refused), true;
        if (name == u"ready") {
            Accounts().SetReady(argument != u"no");
            return Services().Deliver(), true;
        }
        if (name == u"layout") {
            return Manager().SetAccountLayoutAccount(Edited(), Unfold(argument)), true;
        }
        return TPopupFixture::DoWord(name, argument);
    }
};

TEST_F(TAccountEditorTest, FindsTheAccount) {
    ExpectStates({
        {"code", u"register:- type:A1 return", "|A1, [T1]Ann [A1] heard A1"},
        {"small letters", u"register:- type:a1 leave", "|A1, [T1]Ann [A1] heard A1"},
        {"capitals at once", u"register:- type:a1", "A1| []"},
        {"blanks", u"register:- typed:_a1_ leave", "|A1, [T1]Ann [A1] heard A1"},
        {"without a name", u"register:- type:a2 return", "|A2 [A2] heard A2"},
        {"tag", u"register:- type:t1 leave", "|A1, [T1]Ann [A1] heard A1"},
        {"names off", u"bare:- type:a1 leave", "|A1 [A1] heard A1"},
        {"names on again", u"bare:- type:a1 leave register:-", "|A1, [T1]Ann [A1] heard A1"},
        {"names off again", u"register:- type:a1 leave bare:-", "|A1 [A1] heard A1"},
        {"confirmed twice", u"register:- type:a1 return return leave",
         "|A1, [T1]Ann [A1] heard A1"},
        {"cleared", u"register:- type:a1 leave enter all back leave", "| [] heard A1 -"},
        {"picked", u"register:- f4 pick:A1", "|A1, [T1]Ann [A1] heard A1"},
        {"picked twice", u"register:- pick:A1 pick:A1", "|A1, [T1]Ann [A1] heard A1"},
        {"nothing picked", u"register:- type:a1 leave pick:-", "|A1, [T1]Ann [A1] heard A1"},
    });
}

TEST_F(TAccountEditorTest, RefusesAnUnknownAccount) {
    ExpectStates({
        {"confirmed", u"register:- type:zz refused return", "ZZ| []"},
        {"confirmed twice", u"register:- type:zz refused return return", "ZZ| []"},
        {"corrected", u"register:- type:zz refused return all type:a1 return",
         "|A1, [T1]Ann [A1] heard A1"},
        {"after a known one", u"register:- type:a1 return all type:zz refused return",
         "ZZ| [] heard A1"},
        {"dropped silently", u"runstate register:- type:zz leave", "| []"},
        {"pasted", u"register:- paste:A1,A2 refused return", "A1,A2| []"},
    });
    Restart();
    Do(u"register:- type:zz");
    Current().Trace->Take();
    Do(u"refused leave");
    EXPECT_TRUE(Edited()->Focused());
    EXPECT_EQ(Current().Trace->Take(), "validate'ZZ'");
    Do(u"leave");
    EXPECT_FALSE(Edited()->Focused()) << "the same text is not checked again";
    EXPECT_EQ(Current().Trace->Take(), "exit");
}

TEST_F(TAccountEditorTest, LinkedFieldsFollowAndNeverEcho) {
    ExpectStates({
        {"group", u"register:G on:2 register:G type:a1 return",
         "both |A1, [T1]Ann [A1] heard A1@G"},
        {"other group, no mode", u"register:H on:2 register:G type:a1 return",
         "both |A1, [T1]Ann [A1] heard A1@G"},
        {"other group, mode", u"mode:0 register:H on:2 register:G type:a1 return",
         "| [] / |A1, [T1]Ann [A1] heard A1@G"},
        {"no group, mode 1", u"mode:1 register:- offer:A1", "| [] heard A1"},
        {"no group, mode 2", u"mode:2 register:- offer:A1", "|A1, [T1]Ann [A1] heard A1"},
        {"group and an offer, mode 2", u"mode:2 register:G offer:A1", "| [] heard A1"},
        {"alone", u"alone:G on:2 register:G type:a1 return", "| [] / |A1, [T1]Ann [A1] heard A1@G"},
        {"disabled", u"register:G disable offer:A1@G enable", "| [] heard A1@G"},
        {"unknown offered", u"register:G offer:ZZ@G", "| [] heard ZZ@G"},
        {"cleared", u"register:G on:2 register:G type:a1 leave enter all back leave",
         "|A1, [T1]Ann [A1] / | [] heard A1@G -@G"},
        {"takes over", u"group:A1@G register:G", "|A1, [T1]Ann [A1]"},
        {"takes over the channel", u"offer:A1 register:-", "|A1, [T1]Ann [A1] heard A1"},
        {"takes over an unknown one", u"group:ZZ@G register:G", "| []"},
        {"gives its own", u"hint:A1 register:G on:2 register:G", "|A1 [A1] / |A1, [T1]Ann [A1]"},
        {"group before its own", u"group:A2@G hint:A1 register:G", "|A2 [A2]"},
        {"no group, own", u"offer:A2 hint:A1 register:-", "A1| [A1] heard A2"},
        {"moved to another group", u"mode:0 register:G register:H offer:A1@G", "| [] heard A1@G"},
    });
}

TEST_F(TAccountEditorTest, WaitsForTheAccountOfALayout) {
    ExpectStates({
        {"ready", u"register:- layout:A1", "|A1, [T1]Ann [A1] heard A1"},
        {"unknown", u"register:- layout:ZZ", "| []"},
        {"unknown over a known one", u"register:- type:a1 leave layout:ZZ", "| [] heard A1"},
        {"waits", u"register:- ready:no layout:A1", "| []"},
        {"comes", u"register:- ready:no layout:A1 ready:yes", "|A1, [T1]Ann [A1] heard A1"},
        {"typing cancels", u"register:- ready:no layout:A1 type:x ready:yes", "X| []"},
        {"bound again", u"register:- ready:no layout:A1 register:- ready:yes", "| []"},
        {"disabled", u"register:- ready:no layout:A1 disable register:- ready:yes enable",
         "|A1, [T1]Ann [A1] heard A1"},
        {"never registered", u"layout:A1", "| []"},
    });
    Restart();
    Do(u"ready:yes");
}

TEST_F(TAccountEditorTest, ShowsANameThatArrivesLate) {
    Accounts().SetDetailsLate(true);
    Accounts().FeedAccount(u"A3", {.Tag = u"T3"});
    Do(u"register:- type:a3 leave on:2 bare:- leave");
    EXPECT_EQ(State(), "both |A3 [A3] heard A3");
    Accounts().FeedAccount(u"A3", {.Tag = u"T3", .Name = u"Cho"});
    TCustomAccountAdapter::GetInstance()->GetAccount(u"A3", true);
    Services().Deliver();
    EXPECT_EQ(State(), "|A3, [T3]Cho [A3] / |A3 [A3]");
}

// Counts how often the list is asked for.
struct TCountingAccounts : TEmbeddedAccountAdapter {
    using TEmbeddedAccountAdapter::TEmbeddedAccountAdapter;
    void RequestAccountList(String& filter, Boolean flag) override {
        Asked += filter.empty() && flag ? 1 : 100;
    }
    Integer Asked = 0;
};

TEST_F(TAccountEditorTest, DropsItsListDown) {
    TEditorManager::ReleaseInstance();
    TCountingAccounts accounts(Services().Currencies());
    TCustomAccountAdapter* installed = TCustomAccountAdapter::GetInstance();
    ServiceRegistry::Install(static_cast<TCustomAccountAdapter*>(&accounts));
    Do(u"register:- f4");
    TcxPopupEdit& edit = *Edited();
    EXPECT_TRUE(edit.DroppedDown());
    EXPECT_EQ(edit.PopupWindow().Width(), 600);
    EXPECT_EQ(edit.PopupWindow().Height(), 400);
    Do(u"pick:-");
    EXPECT_FALSE(edit.DroppedDown());
    edit.SetWidth(700);
    Do(u"press:0 release on:2 register:- f4");
    EXPECT_EQ(edit.PopupWindow().Width(), 700);
    EXPECT_EQ(edit.Properties().PopupWidth(), 700);
    EXPECT_EQ(accounts.Asked, 1);
    TcxImage person;
    ASSERT_TRUE(TIImageResourceList::GetInstance()->DefaultImageList().GetImage(0, person));
    EXPECT_EQ(edit.Properties().ButtonImage().Pixels, person.Pixels);
    TEditorManager::ReleaseInstance();
    ServiceRegistry::Install(installed);
}

} // namespace
} // namespace quorin
