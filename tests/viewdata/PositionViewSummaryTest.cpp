#include "tests/viewdata/PositionViewFixture.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

struct TPositionViewSummaryTest : TPositionViewTest {
    TPositionViewSummaryTest() {
        Services().Language().SetText(TAppLanguage::English, u"ResourceString",
                                      u"res_ProfessionalInvestor", u"Professional investor");
        Services().Accounts().SetCustomAccountValue(CustomAccountInfoSection,
                                                    ProfessionalInvestorKey, u"PRO");
    }
    // The details of A1, "|" for a line's end, as somebody sees them who chooses the account.
    String InfoOf(const TAccountDetails& details) {
        Services().Accounts().FeedAccount(u"A1", details);
        View->SetAccount({});
        View->SetAccount(u"A1");
        Status = u"left over";
        String info = View->GetAccountInfo(Status);
        for (std::size_t end; (end = info.find(u"\r\n")) != String::npos;)
            info.replace(end, 2, u"|");
        return info;
    }
    void FollowStatus() {
        SetConfig(ConfigKey::LoadAcctStatus, u"1");
        MakeView();
    }

    String Status;
};

TEST_F(TPositionViewSummaryTest, Details) {
    TAccountDetails gross{.MarginType = 0};
    gross.Fields.Add(ClientFeatureKey, u"2");
    TAccountDetails grossOther{.MarginType = 3, .NationalID = u"X1"};
    grossOther.Fields.Add(ClientFeatureKey, u"2");
    TAccountDetails feature{.MarginType = 3};
    feature.Fields.Add(ClientFeatureKey, u"22");
    const struct {
        const char* Name;
        TAccountDetails Details;
        StringView Info;
    } cases[] = {
        {"nothing", {.MarginType = 3}, u""},
        {"name", {.Name = u"Chan", .MarginType = 3}, u"Name: Chan"},
        {"title", {.Name = u"Chan", .MarginType = 3, .Title = u"Ms"}, u"Name: Ms Chan"},
        {"title na", {.Name = u"Chan", .MarginType = 3, .Title = u"Na"}, u"Name: Chan"},
        {"title n/a", {.Name = u"Chan", .MarginType = 3, .Title = u"N/A"}, u"Name: Chan"},
        {"title nab", {.Name = u"Chan", .MarginType = 3, .Title = u"nab"}, u"Name: nab Chan"},
        {"title without name", {.MarginType = 3, .Title = u"Ms"}, u""},
        {"patterns in texts", {.Name = u"%s", .MarginType = 3, .Title = u"%s"}, u"Name: %s %s"},
        {"telephone alone", {.MarginType = 3, .Tel = u"1"}, u"|Tel: 1"},
        {"mobile alone", {.MarginType = 3, .Mobile = u"3"}, u"|Mobile: 3"},
        {"all numbers",
         {.MarginType = 3, .Tel = u"1", .HomeTel = u"2", .Mobile = u"3"},
         u"|Tel: 1   Home: 2   Mobile: 3"},
        {"cash", {.MarginType = 0}, u"|Cash"},
        {"margin with group", {.MarginType = 1, .GroupID = u"G7"}, u"|Margin(G7)"},
        {"custodian", {.MarginType = 2}, u"|Custodian"},
        {"DVP", {.MarginType = 5, .GroupID = u"G7"}, u"|DVP(G7)"},
        {"another type", {.MarginType = 3, .GroupID = u"G7"}, u""},
        {"below 0", {.MarginType = -1, .GroupID = u"G7"}, u""},
        {"gross", gross, u"|Gross margining/Cash"},
        {"gross, another type", grossOther, u"|Gross margining   ID: X1"},
        {"another feature", feature, u""},
        {"holder", {.MarginType = 3, .NationalID = u"X1", .Gender = u"F"}, u"|ID: X1   Gender: F"},
        {"gender", {.MarginType = 1, .Gender = u"F"}, u"|Margin   Gender: F"},
        {"three lines",
         {.Name = u"Chan", .MarginType = 0, .Mobile = u"3"},
         u"Name: Chan|Mobile: 3|Cash"},
        {"investor alone", {.MarginType = 3, .InvestorClass = u"PRO"}, u"|Professional investor"},
        {"another investor", {.MarginType = 0, .InvestorClass = u"RETAIL"}, u"|Cash"},
        {"investor", {.MarginType = 0, .InvestorClass = u"PRO"}, u"|(Professional investor)Cash"},
        // The mark in brackets has 23 units, "ID: " has 4.
        {"50 units",
         {.MarginType = 3, .NationalID = String(23, u'x'), .InvestorClass = u"PRO"},
         u"|(Professional investor)ID: xxxxxxxxxxxxxxxxxxxxxxx"},
        {"51 units",
         {.MarginType = 3, .NationalID = String(24, u'x'), .InvestorClass = u"PRO"},
         u"|(P.I.)ID: xxxxxxxxxxxxxxxxxxxxxxxx"},
        {"51 units of 50 characters",
         {.MarginType = 3, .NationalID = String(22, u'x') + u"\U00020000", .InvestorClass = u"PRO"},
         u"|(P.I.)ID: xxxxxxxxxxxxxxxxxxxxxx\U00020000"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(InfoOf(row.Details), row.Info) << row.Name;
        EXPECT_EQ(Status, u"Status: Active") << row.Name;
    }
}

TEST_F(TPositionViewSummaryTest, NoAccount) {
    Status = u"left over";
    EXPECT_EQ(View->GetAccountInfo(Status), u"");
    EXPECT_EQ(Status, u"");
    View->SetAccount(u"NOBODY");
    Status = u"left over";
    EXPECT_EQ(View->GetAccountInfo(Status), u"");
    EXPECT_EQ(Status, u"");
}

TEST_F(TPositionViewSummaryTest, StatusWords) {
    constexpr struct {
        const char* Name;
        Integer Status;
        StringView Word;
    } cases[] = {
        {"normal", 0, u"Normal"},          {"other bits", 0x7FFFF3FF, u"Normal"},
        {"suspended", 1024, u"Suspended"}, {"sell only", 2048, u"Sell only"},
        {"both", 3072, u"Suspended"},      {"both and others", -1, u"Suspended"},
    };
    for (const auto& row : cases) {
        InfoOf({.Status = row.Status});
        EXPECT_EQ(Status, u"Status: Active") << row.Name << ", not followed";
    }
    FollowStatus();
    for (const auto& row : cases) {
        InfoOf({.Status = row.Status});
        EXPECT_EQ(Status, u"Status: " + String(row.Word)) << row.Name;
    }
}

TEST_F(TPositionViewSummaryTest, FollowsStatusOnlyBySetting) {
    const auto change = [this](StringView account, Integer status) {
        Services().Accounts().FeedAccount(account, {.Status = status});
        Deliver();
    };
    const auto status = [this] {
        View->GetAccountInfo(Status);
        return Status;
    };
    Show(u"A1");
    const Integer before = Services().Accounts().RegistrationCount();
    change(u"A1", 1024);
    ExpectSignals(u"");

    change(u"A1", 0);
    FollowStatus();
    Show(u"A1");
    EXPECT_EQ(Services().Accounts().RegistrationCount(), before + 1);
    change(u"A1", 1024);
    ExpectSignals(u"I");
    EXPECT_EQ(status(), u"Status: Suspended");
    change(u"A1", 1024); // told again, nothing new
    ExpectSignals(u"");
    change(u"A2", 2048);
    ExpectSignals(u"");
    Show(u"A2");
    EXPECT_EQ(status(), u"Status: Sell only") << "taken over with the account";
    change(u"A1", 0);
    ExpectSignals(u"");
    change(u"A2", 0);
    ExpectSignals(u"I");
    EXPECT_EQ(status(), u"Status: Normal");
    Show(u"");
    EXPECT_EQ(Services().Accounts().RegistrationCount(), before);
    View->AccountUpdate(nullptr, nullptr);
    ExpectSignals(u"");
    Show(u"NOBODY");
    View->AccountUpdate(nullptr, nullptr);
    ExpectSignals(u"");
}

TEST_F(TPositionViewSummaryTest, DetailsLoaded) {
    constexpr struct {
        const char* Name;
        Integer MarginType;
        StringView Group; // G1 before
        StringView Signals, Info;
    } cases[] = {
        {"margin, same group", 1, u"G1", u"I", u"|Margin(G1)"},
        {"margin, another group", 1, u"G2", u"RI", u"|Margin(G2)"},
        {"margin, no group", 1, u"", u"RI", u"|Margin"},
        {"cash, another group", 0, u"G2", u"I", u"|Cash(G1)"},
    };
    for (const auto& row : cases) {
        InfoOf({.MarginType = row.MarginType, .GroupID = u"G1"});
        Deliver();
        Signals.clear();
        Services().Accounts().FeedAccount(
            u"A1", {.MarginType = row.MarginType, .GroupID = String(row.Group)});
        TAccountDictionary loaded;
        loaded.Add(u"A1", TCustomAccountAdapter::GetInstance()->GetAccount(u"A1", false));
        View->AccountInfoLoadUpdate(&loaded, nullptr);
        ExpectSignals(row.Signals);
        EXPECT_EQ(View->GetAccountInfo(Status), u"\r\n" + String(row.Info.substr(1))) << row.Name;
        View->AccountInfoLoadUpdate(&loaded, nullptr);
        ExpectSignals(u"I"); // the new group is known by now
    }
    TAccountDictionary others;
    others.Add(u"A2", TCustomAccountAdapter::GetInstance()->GetAccount(u"A2", false));
    View->AccountInfoLoadUpdate(&others, nullptr);
    View->AccountInfoLoadUpdate(nullptr, nullptr);
    ExpectSignals(u"");
    Services().Accounts().SetDetailsLate(true);
    Services().Accounts().FeedAccount(u"LATE", {.MarginType = 1, .GroupID = u"G9"});
    Show(u"LATE");
    Deliver();
    ExpectSignals(u"RI");
    EXPECT_EQ(View->GetAccountInfo(Status), u"\r\nMargin(G9)");
}

TEST_F(TPositionViewSummaryTest, PrincipalType) {
    constexpr struct {
        StringView Type, Text;
    } cases[] = {{u"A", u"Arbitrage"}, {u"S", u"Speculation"},
                 {u"G", u"Hedge"},     {u"a", u""},
                 {u"", u""},           {u"AG", u""}};
    TEmbeddedPositionData record(u"HSIF", u"A2"); // the view's account counts
    for (const auto& row : cases) {
        InfoOf({.PrincipalType = String(row.Type)});
        for (const TPositionSide side :
             {TPositionSide::Net, TPositionSide::Long, TPositionSide::Short}) {
            record.SetFigures({.Side = side});
            const bool isNet = side == TPositionSide::Net;
            EXPECT_EQ(View->GetPrincipalType(&record), isNet ? u"" : row.Text) << ToUtf8(row.Type);
        }
    }
    View->SetAccount(u"NOBODY");
    EXPECT_EQ(View->GetPrincipalType(&record), u"");
}

} // namespace
} // namespace quorin
