#include "embedded/kit/ContractKit.h"

#include "embedded/kit/program/EmbeddedDrivers.h"
#include "tests/embedded/FaultyConfig.h"
#include "tests/embedded/FaultyMarket.h"
#include "tests/embedded/FaultyServices.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

// Each test hands the kit a service with one fault and sees the check fail that is there for it.
class ContractKitTest : public ::testing::Test {
protected:
    ContractKitTest() { EXPECT_TRUE(FeedKitUniverse(FServices.Market())); }

    template <class Fault>
    struct TCase {
        const char* Name;
        Fault Is;
        StringView Rule; // that fails; empty when all are kept
    };
    // `run(fault, report)` checks a service with that fault.
    template <class Fault, std::size_t Count, class Run>
    void ExpectCaught(StringView service, const TCase<Fault> (&cases)[Count], Run run) {
        for (const TCase<Fault>& row : cases) {
            TContractReport report;
            run(row.Is, report);
            if (row.Rule.empty()) {
                EXPECT_TRUE(report.IsKept()) << row.Name << '\n' << ToUtf8(report.Table());
                continue;
            }
            const TContractCheck* check = report.Find(service, row.Rule);
            ASSERT_NE(check, nullptr) << row.Name << ": no check " << ToUtf8(row.Rule);
            EXPECT_EQ(check->Result, TCheckResult::Failed) << row.Name;
            EXPECT_FALSE(check->Came.empty()) << row.Name;
        }
    }

    TKitHost FHost;
    TEmbeddedServices FServices{TEmbeddedOptions{.Host = FHost}};
    Integer FTables = 0; // runs that made tick tables
};

TEST_F(ContractKitTest, RegistrationsAndDeliveries) {
    using enum TConfigFault;
    const TCase<TConfigFault> cases[] = {
        {"none", None, u""},
        {"calls inside the call", CallsInside,
         u"RegisterConfigCallback: registering and removing call nobody"},
        {"twice per owner", CallsTwice, u"RegisterConfigCallback: one call for each delivery"},
        {"not replaced", KeepsReplaced,
         u"RegisterConfigCallback: registering again replaces the callback"},
        {"lost on replace", LosesReplaced,
         u"RegisterConfigCallback: registering again replaces the callback"},
        {"never removed", NeverRemoves, u"RegisterConfigCallback: a removed owner is not called"},
        {"a stranger ends all", RemovesAll,
         u"RegisterConfigCallback: removing twice, or a stranger, does no harm to others"},
        {"added inside is served", ServesAdded,
         u"RegisterConfigCallback: what was added inside a callback waits for the next delivery"},
        {"replaced inside is served", ServesReplaced,
         u"RegisterConfigCallback: a callback replaced inside another waits for the next delivery"},
        {"removed inside is called", CallsRemoved,
         u"RegisterConfigCallback: what was removed inside a callback is not called"},
        {"removal skips the next", SkipsNext,
         u"RegisterConfigCallback: a removal inside a callback skips nobody"},
        {"death skips the next", SkipsNext,
         u"RegisterConfigCallback: a death inside a callback skips nobody"},
        {"one owner only", CallsFirst, u"RegisterConfigCallback: every owner is called once"},
        {"nested delivery is lost", DropsNested,
         u"RegisterConfigCallback: a delivery inside a callback reaches everybody, and so does "
         u"the outer one"},
        {"other sender", SendsItself,
         u"RegisterConfigCallback: the sender is what the operation names"},
        {"with data", SendsData, u"RegisterConfigCallback: Data is nil"},
        {"absent key", AbsentReadsText, u"an absent key reads empty"},
        {"absent number", AbsentReadsOne, u"an absent key reads 0"},
    };
    ExpectCaught(u"ConfigManager", cases, [](TConfigFault fault, TContractReport& report) {
        TFaultyConfig service(fault);
        TEmbeddedConfigDriver driver(service);
        CheckConfigManager(driver, report);
    });
}

TEST_F(ContractKitTest, LiveItems) {
    using enum TSubscribeFault;
    const TCase<TSubscribeFault> cases[] = {
        {"none", None, u""},
        {"nil", GivesNil, u"GetSubItem always gives an item"},
        {"another object", GivesAnother, u"the same key gives the same object"},
        {"calls inside", CallsInside, u"Subscribe: registering and removing call nobody"},
        {"once per item", CallsPerItem, u"one event for many items is called once per batch"},
        {"answers at once", AnswersInside, u"a status never changes inside the call that asks"},
        {"never ends", NeverEnds, u"Subscribe: a removed owner is not called"},
        {"foreign key", OtherKey, u"an item tells the key it was asked for under"},
    };
    ExpectCaught(u"SubscribeAdapter", cases, [](TSubscribeFault fault, TContractReport& report) {
        TEmbeddedSubscribeAdapter feed;
        TFaultySubscribe service(feed, fault);
        TEmbeddedSubscribeDriver driver(feed, service);
        CheckSubscribeAdapter(driver, report);
    });
}

TEST_F(ContractKitTest, Universe) {
    using enum TMarketFault;
    const TCase<TMarketFault> cases[] = {
        {"none", None, u""},
        {"any symbol known", KnowsAll, u"a Find operation gives nil for an unknown code"},
        {"twice a favourite", AddsTwice,
         u"AddFavorite is true once for a symbol, false for the empty code"},
        {"index outside", AnswersOutside, u"an index outside the exchanges gives empty text"},
        {"High left out", RemovesAllFavorites, u"RemoveFavorites removes the entries up to High"},
        {"unknown exchange open", AlwaysOpen, u"an unknown exchange is not open"},
    };
    ExpectCaught(u"MarketAdapter", cases, [this](TMarketFault fault, TContractReport& report) {
        TFaultyMarket service(FServices.Market(), fault);
        TEmbeddedMarketDriver driver(FServices.Market(), service);
        driver.FirstTable(++FTables * 1000);
        CheckMarketAdapter(driver, report);
    });
}

TEST_F(ContractKitTest, TickTables) {
    using enum TMarketFault;
    const TCase<TMarketFault> cases[] = {
        {"none", None, u""},
        {"upper step at a border", BorderStep, u"MovePrice by -1 gives the next price down"},
        {"step of the wrong band", BorderStep, u"MovePrice up and down again comes back"},
        {"bounds swapped", SwapsBounds, u"the bounds of the band hold the price and the next one"},
        {"one step for many", MovesOnce, u"MovePrice by many steps is that many single steps"},
    };
    ExpectCaught(u"SpreadTable", cases, [this](TMarketFault fault, TContractReport& report) {
        TFaultyMarket service(FServices.Market(), fault);
        TEmbeddedMarketDriver driver(FServices.Market(), service);
        driver.FirstTable(++FTables * 1000);
        CheckSpreadTables(driver, report);
    });
}

TEST_F(ContractKitTest, Languages) {
    using enum TLanguageFault;
    const TCase<TLanguageFault> cases[] = {
        {"none", None, u""},
        {"key for text", ReadsKey, u"an absent table, entry or empty key gives empty text"},
        {"the language in force for all", IgnoresLanguage,
         u"a particular language gives its own text"},
    };
    ExpectCaught(u"LanguageManager", cases, [](TLanguageFault fault, TContractReport& report) {
        TFaultyLanguage service(fault);
        TEmbeddedLanguageDriver driver(service);
        CheckLanguageManager(driver, report);
    });
}

TEST_F(ContractKitTest, Channels) {
    using enum TChannelFault;
    const TCase<TChannelFault> cases[] = {
        {"none", None, u""},
        {"leaks out of the group", Leaks,
         u"one value per channel and group, and one outside any group"},
        {"heard twice", Leaks, u"a value in a group reaches its group and the channel"},
        {"drops a message without record", DropsNil,
         u"a message without a record reaches the application"},
        {"the value too late", StoresLate, u"a value is stored before it is told of"},
        {"seed is told of", TellsOfSeeds, u"SetGroupValue notifies nobody"},
    };
    ExpectCaught(u"GlobalChannelManager", cases,
                 [this](TChannelFault fault, TContractReport& report) {
                     TFaultyChannels service(FHost, fault);
                     TEmbeddedChannelDriver driver(service, FHost);
                     CheckChannelManager(driver, report);
                 });
}

TEST_F(ContractKitTest, Accounts) {
    using enum TAccountFault;
    const TCase<TAccountFault> cases[] = {
        {"none", None, u""},
        {"the empty code", EmptyIsFirst,
         u"GetAccount gives nil for an unknown code and for the empty one"},
        {"stays with the previous", KeepsPrevious, u"ChangeAccountCallback moves the registration"},
        {"clears the caller's list", ClearsList,
         u"GetSubAccountList leaves other entries of the caller's list"},
        {"index wraps", WrapsIndex, u"an index outside the list gives nil"},
    };
    ExpectCaught(u"AccountAdapter", cases, [this](TAccountFault fault, TContractReport& report) {
        TFaultyAccounts service(FServices.Currencies(), fault);
        TEmbeddedAccountDriver driver(service);
        CheckAccountAdapter(driver, report);
    });
}

TEST_F(ContractKitTest, Positions) {
    using enum TPositionFault;
    const TCase<TPositionFault> cases[] = {
        {"none", None, u""},
        {"stays with the previous", KeepsPrevious, u"ChangePositionAccount moves the registration"},
        {"an empty previous ends others", AlwaysMoves, u"an empty previous account only adds"},
        {"clears the caller's list", ClearsList,
         u"GetPositionList leaves other entries of the caller's list"},
        {"value without price", AlwaysValues, u"GetMarketValue is false without a price"},
        {"calls inside", CallsInside, u"ChangePositionAccount calls nobody inside"},
    };
    TEmbeddedAccountDriver masters(FServices.Accounts()); // the service looks masters up
    ExpectCaught(u"PositionAdapter", cases, [this](TPositionFault fault, TContractReport& report) {
        TFaultyPositions service(FServices.Items(), fault);
        TEmbeddedPositionDriver driver(service, FServices.Items());
        CheckPositionAdapter(driver, report);
    });
}

TEST_F(ContractKitTest, CurrenciesAndProducts) {
    const TCase<bool> currencies[] = {
        {"none", false, u""},
        {"unknown is worth 1", true, u"an unknown currency has the ratio 0.0"}};
    ExpectCaught(u"CurrencyAdapter", currencies, [](bool isFaulty, TContractReport& report) {
        TFaultyCurrencies service(isFaulty);
        TEmbeddedCurrencyDriver driver(service);
        CheckCurrencyAdapter(driver, report);
    });
    const TCase<bool> products[] = {
        {"none", false, u""},
        {"a record for all", true, u"GetProductData gives nil where nothing particular is known"}};
    ExpectCaught(u"ProductAdapter", products, [](bool isFaulty, TContractReport& report) {
        TFaultyProducts service(isFaulty);
        TEmbeddedProductDriver driver(service);
        CheckProductAdapter(driver, report);
    });
}

TEST_F(ContractKitTest, Orders) {
    using enum TOrderFault;
    const TCase<TOrderFault> cases[] = {
        {"none", None, u""},
        {"Clear keeps the quantity", ClearKeepsQuantity, u"Clear brings the quantity to 0.0"},
        {"flags cut to one bit", CutsFlags, u"every bit of the order flags is kept"},
        {"takes all", TakesAll, u"an order that lacks something is refused"},
        {"takes none", TakesNone, u"a complete order is taken"},
    };
    TEmbeddedAccountDriver accounts(FServices.Accounts()); // the service looks accounts up
    ExpectCaught(u"Orders", cases, [this](TOrderFault fault, TContractReport& report) {
        TFaultyOrders orders(fault);
        TFaultyActions actions(FServices.Desk(), fault);
        TEmbeddedOrderDriver driver(orders, actions, FServices.Login());
        CheckOrders(driver, report);
    });
}

TEST_F(ContractKitTest, Formatters) {
    using enum TFormatterFault;
    const TCase<TFormatterFault> cases[] = {
        {"none", None, u""},
        {"sign lost", DropsSign, u"FormatValue shows the sign of a negative number"},
        {"nothing for an unknown symbol", EmptyForUnknown,
         u"FormatValue gives a text for any symbol and type"},
        {"groups by apostrophe", OtherGroups, u"an amount without its commas parses back"},
        {"nothing for 0", EmptyForZero, u"FormatValue gives a text for 0"},
        {"cut to 16 bits", CutsIntegers, u"FormatInteger gives a text that says the number"},
    };
    ExpectCaught(u"Formatter", cases, [this](TFormatterFault fault, TContractReport& report) {
        TFaultyFormatter formatter(FServices.Config(), fault);
        TFaultyMarketFormatter market(false);
        TEmbeddedFormatterDriver driver(formatter, market, FServices.Items());
        CheckFormatter(driver, report);
    });
    const TCase<bool> market[] = {
        {"none", false, u""},
        {"text wiped", true, u"with nothing to show the answer is false and the text stays"}};
    ExpectCaught(u"MarketDataFormatter", market, [this](bool isFaulty, TContractReport& report) {
        TFaultyMarketFormatter service(isFaulty);
        TEmbeddedFormatterDriver driver(*TCustomFormatter::GetInstance(), service,
                                        FServices.Items());
        CheckMarketDataFormatter(driver, report);
    });
}

TEST(ContractReportTest, TheFirstFailureOfARuleStays) {
    TContractReport report;
    EXPECT_FALSE(report.IsKept()) << "no check at all";
    report.Pass(u"S", u"rule");
    EXPECT_TRUE(report.IsKept());
    report.Fail(u"S", u"rule", u"1", u"2");
    report.Fail(u"S", u"rule", u"3", u"4");
    report.Pass(u"S", u"rule");
    report.Pass(u"Other", u"rule");
    report.Skip(u"Other", u"left out", u"why");
    EXPECT_FALSE(report.IsKept());
    EXPECT_EQ(report.Table(), u"FAILED   S     rule\n"
                              u"               expected 1\n"
                              u"               came     2\n"
                              u"passed   Other rule\n"
                              u"skipped  Other left out (why)\n"
                              u"3 checks: 1 passed, 1 failed, 1 skipped\n");
}

} // namespace
} // namespace quorin
