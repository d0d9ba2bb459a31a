#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "tests/viewdata/HollowMarket.h"
#include "tests/viewdata/MarketFixture.h"
#include "viewdata/market/UnderlyerPriceDataControl.h"
#include "viewdata/services/SeriesComparer.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

class TUnderlyerList : public TCustomUnderlyerPriceDataControl {
    QUORIN_CLASS(TUnderlyerList, TCustomUnderlyerPriceDataControl)

    explicit TUnderlyerList(TComponent* owner = nullptr)
        : TCustomUnderlyerPriceDataControl(owner) {}

    void InitData() override {
        ++Loads;
        Inherited::InitData();
    }
    String Rows() const {
        String text;
        for (const String& symbol : FDataList) text += (text.empty() ? u"" : u" ") + symbol;
        return text;
    }
    // "DEX OPT 202606 call 1": what is chosen, the display mode as a number.
    String Chosen() const {
        constexpr StringView sides[] = {u"all", u"call", u"put"};
        return FExchange + u' ' + FSeries + u' ' + FMonth + u' ' +
               String(sides[static_cast<std::size_t>(FCallPut)]) + u' ' +
               Variant(static_cast<Integer>(FDisplayMode)).ToText();
    }
    bool ShowsFavorites() const { return FIsFavoriteExchange; }

    Integer Loads = 0;
};

// Writes down what it is asked to sort.
class TSpyComparer : public TCustomSeriesComparer {
public:
    void SortSeries(StringView exchange, TList<String>& list) const override {
        Asked += String(exchange) + u':';
        for (const String& code : list) Asked += u' ' + code;
        list.Sort([](const String& left, const String& right) { return left > right; });
    }
    mutable String Asked;
};

// An exchange without a code before the others.
class TNamelessMarket : public THollowMarket {
public:
    using THollowMarket::THollowMarket;
    Integer GetExchangeCount() const override { return THollowMarket::GetExchangeCount() + 1; }
    const String& GetExchangeCode(Integer index) const override {
        static const String none;
        return index == 0 ? none : THollowMarket::GetExchangeCode(index - 1);
    }
};

// Futures and options of one underlyer in the series OPT of DEX, and an exchange that is called as
// the favourites are.
struct TUnderlyerPriceTest : TServicesFixture {
    TUnderlyerPriceTest() {
        TEmbeddedMarketAdapter& market = Services().Market();
        market.AddExchange({.Code = u"DEX"});
        market.AddExchange({.Code = FavoriteExchange});
        for (const StringView series : {u"S10", u"OPT", u"S2"}) {
            market.AddSeries({.Code = series, .Exchange = u"DEX"});
        }
        market.AddSeries({.Code = u"FAV", .Exchange = FavoriteExchange});
        // Symbol, product type, month and marker of each.
        constexpr StringView products =
            u"F6 2 202606|C9 3 202609 1|F9 2 202609|F6/9 2 202606|FC 2 202606 C|F 2 203012|"
            u"C6 3 202606 C|P6 3 202606 Put|P9 3 202609 2|C6/9 3 202606 6A|P6/9 3 202606 7|"
            u"N6 3 202606|X6 3 202606 XC1|c6 3 202606 c|N 3|STOCK 1 202606 C";
        for (const StringView product : Split(products, u'|')) {
            const auto words = Split(product, u' ');
            const auto word = [&](std::size_t at) {
                return at < words.size() ? StringView(words[at]) : StringView();
            };
            market.AddSymbol({.Symbol = word(0),
                              .Exchange = u"DEX",
                              .Series = u"OPT",
                              .ProductType = ToIntegerOr(word(1), 0),
                              .ExpiryMonth = word(2),
                              .CallPut = word(3)});
        }
        market.AddSymbol({.Symbol = u"FAVF",
                          .Exchange = FavoriteExchange,
                          .Series = u"FAV",
                          .ProductType = ProductType::Futures});
        Services().Deliver();
        List = CreateComponent<TUnderlyerList>();
        List->SetOnDataChanged(MakeEvent<&TUnderlyerPriceTest::Signalled>(this));
    }
    ~TUnderlyerPriceTest() override {
        List.reset();
        ServiceRegistry::Install(RealMarket);
        ServiceRegistry::Install(RealComparer);
    }
    // Nils, doubles and codes that are empty.
    void UseHollowMarket() { ServiceRegistry::Install(&Hollow); }

    void Choose(StringView month, TOptionsType callPut, TUnderlyerPriceDisplayMode mode) {
        List->SetExchange(u"DEX");
        List->SetSeries(u"OPT");
        List->SetDisplayMode(mode);
        List->SetMonth(month);
        List->SetCallPut(callPut);
        Signals = List->Loads = 0;
    }
    void Signalled(TObject*) {
        if (IsInFault()) return;
        ++Signals;
        RowsAtSignal = List->Rows();
    }
    // Signals and loads since the last time.
    void ExpectSignals(Integer signals, Integer loads, const char* name) {
        EXPECT_EQ(std::exchange(List->Loads, 0), loads) << name;
        EXPECT_EQ(std::exchange(Signals, 0), signals) << name;
    }

    TCustomMarketAdapter* RealMarket = TCustomMarketAdapter::GetInstance();
    TCustomSeriesComparer* RealComparer = TCustomSeriesComparer::GetInstance();
    TNamelessMarket Hollow{*RealMarket};
    std::unique_ptr<TUnderlyerList> List;
    String RowsAtSignal;
    Integer Signals = 0;
};

TEST_F(TUnderlyerPriceTest, RowsByModeMonthAndSide) {
    constexpr struct {
        const char* Name;
        TUnderlyerPriceDisplayMode Mode;
        StringView Month;
        TOptionsType CallPut;
        StringView Rows;
    } cases[] = {
        {"futures and spreads", udmFutures, u"", otAll, u"F6 F9 F6/9 FC F"},
        {"futures of a month", udmFutures, u"202606", otAll, u"F6 F6/9 FC"},
        {"month is no prefix", udmFutures, u"2026", otAll, u""},
        {"futures by a call marker", udmFutures, u"", otCall, u"FC"},
        {"futures by a put marker", udmFutures, u"", otPut, u""},
        {"spreads", udmSpreadFutures, u"", otAll, u"F6/9"},
        {"spreads of a month without", udmSpreadFutures, u"202609", otAll, u""},
        {"options without a month", udmOptions, u"", otAll, u""},
        {"options", udmOptions, u"202606", otAll, u"C6 P6 C6/9 P6/9 N6 X6 c6"},
        {"calls", udmOptions, u"202606", otCall, u"C6 C6/9"},
        {"puts", udmOptions, u"202606", otPut, u"P6 P6/9"},
        {"calls of another month", udmOptions, u"202609", otCall, u"C9"},
        {"puts of another month", udmOptions, u"202609", otPut, u"P9"},
        {"option spreads without a month", udmSpreadOptions, u"", otAll, u""},
        {"option spreads", udmSpreadOptions, u"202606", otAll, u"C6/9 P6/9"},
        {"call spreads", udmSpreadOptions, u"202606", otCall, u"C6/9"},
        {"put spreads", udmSpreadOptions, u"202606", otPut, u"P6/9"},
    };
    for (const bool hollow : {false, true}) {
        if (hollow) UseHollowMarket();
        for (const auto& row : cases) {
            Choose(row.Month, row.CallPut, row.Mode);
            EXPECT_EQ(List->Rows(), row.Rows) << row.Name;
            List->InitData();
            EXPECT_EQ(List->Rows(), row.Rows) << row.Name;
            ExpectSignals(0, 1, row.Name); // a bare reload is silent
        }
    }
}

TEST_F(TUnderlyerPriceTest, SettersClearWhatDependedOnThem) {
    using TStep = std::function<void(TUnderlyerList&)>;
    const struct {
        const char* Name;
        TUnderlyerPriceDisplayMode From;
        TStep Set;
        StringView Chosen;
    } cases[] = {
        {"exchange", udmOptions, [](auto& list) { list.SetExchange(u"SEHK"); }, u"SEHK   put 1"},
        {"no exchange", udmFutures, [](auto& list) { list.SetExchange({}); }, u"   put 0"},
        {"series", udmOptions, [](auto& list) { list.SetSeries(u"S2"); }, u"DEX S2  put 1"},
        {"no series", udmOptions, [](auto& list) { list.SetSeries({}); }, u"DEX   put 1"},
        {"month", udmOptions, [](auto& list) { list.SetMonth(u"202609"); },
         u"DEX OPT 202609 put 1"},
        {"no month", udmFutures, [](auto& list) { list.SetMonth({}); }, u"DEX OPT  put 0"},
        {"side", udmOptions, [](auto& list) { list.SetCallPut(otCall); }, u"DEX OPT 202606 call 1"},
        {"options", udmFutures, [](auto& list) { list.SetDisplayMode(udmOptions); },
         u"DEX OPT 202606 put 1"},
        {"option spreads", udmOptions, [](auto& list) { list.SetDisplayMode(udmSpreadOptions); },
         u"DEX OPT 202606 put 3"},
        {"futures", udmOptions, [](auto& list) { list.SetDisplayMode(udmFutures); },
         u"DEX OPT  all 0"},
        {"spreads", udmFutures, [](auto& list) { list.SetDisplayMode(udmSpreadFutures); },
         u"DEX OPT  all 2"},
    };
    for (const auto& row : cases) {
        Choose(u"202606", otPut, row.From);
        row.Set(*List);
        EXPECT_EQ(List->Chosen(), row.Chosen) << row.Name;
        EXPECT_EQ(RowsAtSignal, List->Rows()) << row.Name << ": loaded before the signal";
        ExpectSignals(1, 1, row.Name);
        const String rows = List->Rows();
        List->InitData();
        EXPECT_EQ(List->Rows(), rows) << row.Name << ": loaded with the new choice";
        ExpectSignals(0, 1, row.Name);
        row.Set(*List);
        EXPECT_EQ(List->Chosen(), row.Chosen) << row.Name;
        ExpectSignals(0, 0, row.Name);
    }
}

TEST_F(TUnderlyerPriceTest, FillsFromTheTopDown) {
    EXPECT_EQ(List->Chosen(), u"   all 0");
    Services().Market().SetMarketDataReady(false); // is not asked
    List->SetExchangeAndCategory(u"DEX", 77);      // of which no part counts
    EXPECT_EQ(List->Rows(), u"");
    ExpectSignals(1, 2, "another exchange");
    List->SetExchangeAndCategory(u"DEX", 78);
    ExpectSignals(0, 1, "the same exchange");
    List->SetSeries(u"OPT");
    EXPECT_EQ(List->Rows(), u"F6 F9 F6/9 FC F");
    List->SetDisplayMode(udmOptions);
    EXPECT_EQ(List->Rows(), u"");
    List->SetMonth(u"202609");
    EXPECT_EQ(List->Rows(), u"C9 P9");
    List->SetExchange(u"HKFE");
    EXPECT_EQ(List->Rows(), u"");
    List->SetSeries(u"OPT"); // a series of another exchange
    List->SetMonth(u"202609");
    EXPECT_EQ(List->Rows(), u"");
}

TEST_F(TUnderlyerPriceTest, FavouritesAreAnExchangeLikeAnyOther) {
    Services().Market().AddFavorite(u"F6");
    Services().Deliver();
    Signals = 0;
    List->SetExchange(FavoriteExchange);
    EXPECT_FALSE(List->ShowsFavorites());
    EXPECT_EQ(List->Rows(), u"");
    List->SetSeries(u"FAV");
    EXPECT_EQ(List->Rows(), u"FAVF");
    ExpectSignals(2, 2, "chosen");
    Services().Market().AddFavorite(u"F9");
    Services().Deliver();
    EXPECT_EQ(List->Rows(), u"FAVF");
    ExpectSignals(0, 0, "favourites");
}

TEST_F(TUnderlyerPriceTest, Choosers) {
    const auto text = [](const TList<String>& list) {
        String all;
        for (const String& entry : list) all += (all.empty() ? u"" : u" ") + entry;
        return all;
    };
    TSpyComparer comparer;
    ServiceRegistry::Install(&comparer);
    UseHollowMarket();
    TList<String> months, series;
    List->GetSeriesList(&series);
    List->GetMonthList(&months);
    EXPECT_TRUE(series.IsEmpty() && comparer.Asked.empty()) << "without an exchange";

    List->SetExchange(u"DEX");
    List->GetMonthList(&months);
    EXPECT_TRUE(months.IsEmpty()) << "without a series";
    TList<String> exchanges;
    exchanges.Add(u"KEPT");
    List->GetExchangeList(&exchanges);
    EXPECT_EQ(text(exchanges), u"KEPT SEHK HKFE DEX FAVORITEEXCHANGE");
    List->GetSeriesList(&series);
    EXPECT_EQ(comparer.Asked, u"DEX: NORECORD S10 OPT S2");
    EXPECT_EQ(text(series), u"S2 S10 OPT NORECORD") << "as sorted";

    List->SetSeries(u"OPT");
    for (const auto mode : {udmOptions, udmFutures}) {
        List->SetDisplayMode(mode);
        List->SetMonth(u"202606"); // narrows the rows alone
        months.Clear();
        months.Add(u"202612");
        List->GetMonthList(&months);
        EXPECT_EQ(text(months), u"202612 202609 202606") << "as they come, each once";
    }
    List->GetExchangeList(nullptr);
    List->GetSeriesList(nullptr);
    List->GetMonthList(nullptr);
    EXPECT_EQ(comparer.Asked, u"DEX: NORECORD S10 OPT S2") << "sorted nil";

    List->SetExchange(FavoriteExchange);
    List->SetSeries(u"FAV");
    months.Clear();
    List->GetMonthList(&months);
    EXPECT_TRUE(months.IsEmpty()) << "futures give no months";
    ServiceRegistry::Install(RealComparer);
}

} // namespace
} // namespace quorin
