#include "embedded/EmbeddedServices.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/ConsoleHost.h"
#include "terminal/forms/MarketWatchForm.h"
#include "terminal/forms/PositionForm.h"
#include "viewdata/services/ChannelMessages.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quorin {
namespace {

constexpr StringView Holder = u"A1";

// One share in lots of 400 with a quote, one without anything, and an account that is short of it.
struct TOrderDialogTest : testing::Test {
    TOrderDialogTest() {
        Services.Market().AddExchange({u"SEHK", u"HKD", u"", MarketOpen});
        Services.Market().AddCategory({1, {u"Shares"}});
        Services.Market().AddSeries({u"S", u"SEHK", 1, {u"S"}});
        AddSymbol(u"00005", u"HSBC Holdings", 400.0);
        AddSymbol(u"99999", {}, 0.0);
        Services.Accounts().FeedAccount(Holder);
        Services.Positions().FeedPosition(Holder, u"00005", {.Quantity = -1200.0});
        TEmbeddedSubItem& item = Services.Items().Item(u"00005");
        item.SetField(Field::BestBid, 100.5);
        item.SetField(Field::BestAsk, 100.6);
        item.SetField(Field::BestAskQuantity, 800.0);
        Services.Items().Touch(item);
        Services.Deliver();
        Watch = std::make_unique<TMarketWatchForm>();
        Watch->ShowMarket(u"SEHK");
        Watch->ShowAccount(Holder);
        Positions = std::make_unique<TPositionForm>();
        Positions->Control().SetAccount(Holder);
    }
    ~TOrderDialogTest() override {
        Watch.reset();
        Positions.reset();
        EXPECT_EQ(Services.RegistrationCount(), 0); // lists of a question among them
    }
    void AddSymbol(StringView code, StringView name, Double lot) {
        TSymbolRecord record;
        record.Symbol = code;
        record.Exchange = u"SEHK";
        record.Series = u"S";
        record.Names = {name};
        record.LotSize = lot;
        Services.Market().AddSymbol(record);
    }
    void AnswerBy(TAnswerBy answers, const char* typed = "") {
        Typed.str(typed);
        Typed.clear();
        Host.TalkOn(Said, answers, Typed);
    }
    void Confirm(StringView key) {
        Services.Config().Set(DefaultConfigSection, key, u"Y");
        Services.Config().Commit();
    }
    std::string TakeSaid() {
        std::string said = Said.str();
        Said.str("");
        return said;
    }
    Integer TakenCount() {
        Integer count = 0;
        for (const TDeskOrder& order : Services.Desk().Orders()) {
            if (order.State != TOrderState::Refused) ++count;
        }
        return count;
    }

    std::ostringstream Said;
    std::istringstream Typed;
    TConsoleHost Host{Said};
    TEmbeddedServices Services{TEmbeddedOptions{Host, QUORIN_DATA_DIR, {}}};
    std::unique_ptr<TMarketWatchForm> Watch;
    std::unique_ptr<TPositionForm> Positions;
};

TEST_F(TOrderDialogTest, QuickOrderIsAskedForInOneLot) {
    Confirm(u"ConfirmationPlaceOrd");
    EXPECT_FALSE(Watch->List().BuyBestAskOrder(0));
    EXPECT_EQ(TakeSaid(),
              "  question Account A1: Buy 400 (one lot) of 00005 HSBC Holdings at 100.60?\n"
              "  answer   no\n");
    EXPECT_EQ(TakenCount(), 0);

    AnswerBy(TAnswerBy::Yes);
    EXPECT_TRUE(Watch->List().SellMarketOrder(0));
    EXPECT_EQ(TakeSaid(),
              "  question Account A1: Sell 400 (one lot) of 00005 HSBC Holdings at market?\n"
              "  answer   yes\n");
    ASSERT_EQ(TakenCount(), 1);
    EXPECT_EQ(Services.Desk().Orders()[0].Values.Quantity, 400.0);

    Services.Language().SetLanguage(TAppLanguage::TraditionalChinese);
    Watch->List().BuyMarketOrder(1); // without a lot size, and without a name of its own
    EXPECT_EQ(TakeSaid(), "  question 戶口 A1：買入 1（一手） 99999，價格 市價，是否落盤？\n"
                          "  answer   yes\n");
}

TEST_F(TOrderDialogTest, CloseIsAskedForWithItsOwnQuantity) {
    Confirm(u"ConfirmationClosePosition");
    AnswerBy(TAnswerBy::Yes);
    EXPECT_TRUE(Positions->Control().CloseToBest(0));
    EXPECT_EQ(TakeSaid(), "  question Close this position?\n"
                          "  question Account A1: Buy 1,200 of 00005 HSBC Holdings at 100.60?\n"
                          "  answer   yes\n");
    EXPECT_EQ(TakenCount(), 1);
}

TEST_F(TOrderDialogTest, CloseAllShowsTheListAndFreesIt) {
    Confirm(u"ConfirmationClosePosition");
    for (const TAnswerBy answer : {TAnswerBy::No, TAnswerBy::Yes}) {
        AnswerBy(answer);
        const bool isYes = answer == TAnswerBy::Yes;
        EXPECT_EQ(Positions->Control().CloseAllPositions(), isYes);
        EXPECT_EQ(TakeSaid(),
                  std::string("  question Account    Name                   Long    Short Symbol\n"
                              "  question A1         HSBC Holdings                  1,200 00005\n"
                              "  question Close all of these positions at the market?\n"
                              "  answer   ") +
                      (isYes ? "yes\n" : "no\n"));
        EXPECT_EQ(TakenCount(), isYes ? 1 : 0);
    }
}

TEST_F(TOrderDialogTest, UserIsAskedUntilHeAnswers) {
    const struct {
        const char* Name;
        const char* Typed;
        bool IsYes;
        int Asked;
    } cases[] = {
        {"yes", "yes\n", true, 1},
        {"no", "N\n", false, 1},
        {"blank, then yes", "\nY\n", true, 2},
        {"nothing", "", false, 1},
        {"noise to the end", "x\n?\n", false, 3},
    };
    for (const auto& row : cases) {
        AnswerBy(TAnswerBy::User, row.Typed);
        EXPECT_EQ(Host.Confirm(u"Go on?", ConfirmYes) == ConfirmYes, row.IsYes) << row.Name;
        const std::string said = TakeSaid();
        EXPECT_EQ(said.find("  question Go on?\n"), 0u) << row.Name;
        int asked = 0;
        for (auto at = said.find("yes or no?"); at != said.npos;
             at = said.find("yes or no?", at + 1))
            ++asked;
        EXPECT_EQ(asked, row.Asked) << row.Name;
    }
}

TEST_F(TOrderDialogTest, ListsCopyIntoOrderEntry) {
    const auto text = [this] { return ToUtf8(Host.Orders().Entry().Text()); };
    EXPECT_EQ(text(), "");
    Watch->List().CopyPrice(0, Field::BestAsk);
    EXPECT_EQ(text(), "Account -, -, quantity -, 00005 HSBC Holdings, price 100.60");
    Watch->List().CopyPrice(0, Field::BestAskQuantity); // beside the price of the same symbol
    EXPECT_EQ(text(), "Account -, -, quantity 800, 00005 HSBC Holdings, price 100.60");
    Watch->List().CopyPrice(1, Field::Remark);
    EXPECT_EQ(text(), "Account -, -, quantity -, 99999, price -");
    EXPECT_TRUE(Positions->Control().CopyOrder(0));
    EXPECT_EQ(text(), "Account A1, Buy, quantity 1,200, 00005 HSBC Holdings, price -");
    EXPECT_EQ(TakenCount(), 0);
}

TEST_F(TOrderDialogTest, FavouriteIsTheSymbolOfOrderEntry) {
    AnswerBy(TAnswerBy::Yes);
    Watch->List().AddFavoritePrice();
    EXPECT_EQ(TakeSaid(),
              "  message  There is no symbol in order entry to add to the favourites.\n");
    Watch->List().CopyPrice(0, Field::BestAsk);
    AnswerBy(TAnswerBy::No);
    Watch->List().AddFavoritePrice();
    EXPECT_FALSE(Services.Market().IsFavorite(u"00005"));
    TakeSaid();
    AnswerBy(TAnswerBy::Yes);
    Watch->List().AddFavoritePrice();
    EXPECT_EQ(TakeSaid(), "  question Add 00005 HSBC Holdings to the favourites?\n"
                          "  answer   yes\n");
    EXPECT_TRUE(Services.Market().IsFavorite(u"00005"));
}

TEST_F(TOrderDialogTest, OtherMessagesAreNotTakenIn) {
    TOrderTakeActionRecord record;
    EXPECT_FALSE(Host.ChannelMessage(ChannelMessage::CustomColumn, Pointer(&record)));
    EXPECT_FALSE(Host.ChannelMessage(ChannelMessage::TakeOrderAction, Pointer()));
    EXPECT_TRUE(Host.ChannelMessage(ChannelMessage::TakeOrderAction, Pointer(&record)));
    EXPECT_TRUE(Host.ChannelMessage(ChannelMessage::CloseAllPositions, Pointer(&record)));
    EXPECT_FALSE(record.Result);
    EXPECT_EQ(Said.str(), "");
}

} // namespace
} // namespace quorin
