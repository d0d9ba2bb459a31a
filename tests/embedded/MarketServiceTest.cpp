#include "embedded/MarketService.h"
#include "embedded/LanguageService.h"
#include "embedded/SeriesComparer.h"
#include "platform/rtl/Numbers.h"

#include <gtest/gtest.h>

using namespace quorin;

namespace {

class TListener : public TObject {
public:
    explicit TListener(TEmbeddedMarketAdapter& market) : FMarket(market) {
        market.AddExchangeListener(MakeEvent<&TListener::Exchange>(this), this);
        market.AddFavoriteListener(MakeEvent<&TListener::Favorite>(this), this);
        market.AddSpreadListener(MakeEvent<&TListener::Spread>(this), this);
    }
    ~TListener() override {
        FMarket.RemoveExchangeListener(this);
        FMarket.RemoveFavoriteListener(this);
        FMarket.RemoveSpreadListener(this);
    }
    std::string Heard;

private:
    void Exchange(Pointer, Pointer) { Heard += "exchange "; }
    void Favorite(Pointer, Pointer) { Heard += "favorite "; }
    void Spread(Pointer sender, Pointer) {
        for (const auto& table : *static_cast<TSpreadDictionary*>(sender)) {
            EXPECT_EQ(table.Value->GetStatus(), SpreadTableLoaded);
            Heard.append(table.Key.begin(), table.Key.end()).append(" ");
        }
    }
    TEmbeddedMarketAdapter& FMarket;
};

constexpr TSpreadBand Bands[] = {{0.0, 10.0, 0.01}};

class MarketServiceTest : public testing::Test {
protected:
    MarketServiceTest() {
        Market.AddExchange({u"HKFE", u"HKD", u"CT", MarketOpen});
        Market.AddExchange({u"SEHK", u"HKD", u"CL", 0});
        Market.AddCategory({7, {u"Index options", u"指數期權", u""}});
        Market.AddSeries({u"HSI", u"HKFE", 7, {u"Hang Seng", u"恒生", u"恒生指数"}});
        Market.AddSeries({u"FIN", u"SEHK", 7, {u"Finance"}});
        Option.Symbol = u"HSI25000L5";
        Option.Exchange = u"HKFE";
        Option.Series = u"HSI";
        Option.Names = {u"HSI 25000 C", u"恒指購", u""};
        Option.ProductType = ProductType::Options;
        Option.SpreadCode = u"IDX";
        Option.Underlyer = u"HSIZ5";
        Option.ExpiryMonth = u"202512";
        Option.StrikePrice = u"25000";
        Option.CallPut = u"C";
        Option.LotSize = 1.0;
        Option.ContractSize = 50.0;
    }
    void TearDown() override {
        EXPECT_EQ(Market.RegistrationCount(), 0);
        EXPECT_EQ(Items.RegistrationCount(), 0);
    }
    std::string Deliver(TListener& listener) {
        Market.Deliver();
        return std::exchange(listener.Heard, {});
    }

    TEmbeddedSubscribeAdapter Items;
    TEmbeddedMarketAdapter Market{Items};
    TSymbolRecord Option;
};

TEST_F(MarketServiceTest, ASymbolListedLaterWaitsForItsData) {
    const struct {
        const char* name;
        StringView symbol;
        Integer before, listed, fed;
    } cases[] = {
        {"without data", u"A", ItemStatus::NoData, ItemStatus::Waiting, ItemStatus::Ready},
        {"waiting", u"B", ItemStatus::Waiting, ItemStatus::Waiting, ItemStatus::Ready},
        {"ready", u"C", ItemStatus::Ready, ItemStatus::Ready, ItemStatus::Ready},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        Option.Symbol = row.symbol;
        TEmbeddedSubItem& item = Items.Item(Option.Symbol);
        item.SetStatus(row.before);
        if (row.before != ItemStatus::Waiting) Items.Touch(item);
        Items.Deliver();
        ASSERT_EQ(item.GetStatus(), row.before);
        ASSERT_NE(Market.AddSymbol(Option), nullptr);
        Items.Deliver();
        EXPECT_EQ(item.GetStatus(), row.listed);
        item.SetField(Field::LastPrice, 7.0);
        Items.Touch(item);
        Items.Deliver();
        EXPECT_EQ(item.GetStatus(), row.fed);
    }
}

TEST_F(MarketServiceTest, ListsTheUniverse) {
    ASSERT_NE(Market.AddSymbol(Option), nullptr);
    EXPECT_EQ(Market.GetExchangeCount(), 2);
    EXPECT_EQ(Market.GetExchangeCode(1), u"SEHK");
    EXPECT_EQ(Market.GetMarketStatus(u"HKFE"), MarketOpen);
    EXPECT_NE(Market.GetMarketStatus(u"SEHK"), MarketOpen);
    EXPECT_EQ(Market.GetSeriesCount(u"HKFE"), 1);
    EXPECT_EQ(Market.GetSeriesCode(u"HKFE", 0), u"HSI");
    EXPECT_EQ(Market.GetMarketDataCount(u"HKFE", u""), 1);
    EXPECT_EQ(Market.GetMarketDataCount(u"HKFE", u"HSI"), 1);
    EXPECT_EQ(Market.GetMarketDataCount(u"SEHK", u"HSI"), 0) << "a series of another exchange";

    const TCustomMarketData* record = Market.FindMarketData(u"HSI25000L5");
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(Market.GetMarketDataAt(u"HKFE", u"HSI", 0), record);
    EXPECT_EQ(record->GetExchange(), u"HKFE");
    EXPECT_EQ(record->GetProductType(), ProductType::Options);
    EXPECT_EQ(record->GetSeries(), u"HSI");
    EXPECT_EQ(record->GetExpiryMonth(), u"202512");
    EXPECT_EQ(record->GetStrikePrice(), u"25000");
    EXPECT_EQ(record->GetCallPut(), u"C");
    EXPECT_EQ(record->GetUnderlyer(), u"HSIZ5");
    EXPECT_EQ(record->GetCurrency(), u"HKD") << "the currency of the exchange";
    const TCustomSeriesData* series = Market.FindSeries(u"HSI");
    EXPECT_EQ(series->GetNameLanguage2(), u"恒生指数");
    EXPECT_EQ(Market.FindCategory(series->GetCategoryID())->GetNameLanguage1(), u"指數期權");
    EXPECT_EQ(Market.FindCategory(7)->GetNameLanguage2(), u"Index options");
}

TEST_F(MarketServiceTest, RefusesBadRecords) {
    EXPECT_FALSE(Market.AddExchange({u"SEHK"}));
    EXPECT_FALSE(Market.AddExchange({u""}));
    EXPECT_FALSE(Market.AddCategory({7}));
    EXPECT_FALSE(Market.AddSeries({u"HSI", u"HKFE", 7}));
    Market.AddCategory({8});
    EXPECT_FALSE(Market.AddSeries({u"HSI", u"SEHK", 8})) << "of one code, of two categories";
    EXPECT_FALSE(Market.AddSeries({u"NEW", u"?", 7}));
    EXPECT_FALSE(Market.AddSpreadTable(u"", Bands));
    EXPECT_FALSE(Market.AddSpreadTable(u"T", {}));
    ASSERT_NE(Market.AddSymbol(Option), nullptr);
    EXPECT_EQ(Market.AddSymbol(Option), nullptr) << "known";
    Option.Symbol = u"OTHER";
    Option.Exchange = u"SEHK";
    EXPECT_EQ(Market.AddSymbol(Option), nullptr) << "the series is of another exchange";
    EXPECT_EQ(Market.Universe().SymbolCount(), 1);
}

TEST_F(MarketServiceTest, ExchangesMayShareASeriesCode) {
    ASSERT_TRUE(Market.AddSeries({u"HSI", u"SEHK", 7}));
    ASSERT_NE(Market.AddSymbol(Option), nullptr);
    Option.Symbol = u"OTHER";
    Option.Exchange = u"SEHK";
    ASSERT_NE(Market.AddSymbol(Option), nullptr);
    EXPECT_EQ(Market.GetMarketDataAt(u"SEHK", u"HSI", 0)->GetSymbol(), u"OTHER");
    EXPECT_EQ(Market.GetMarketDataAt(u"HKFE", u"HSI", 0)->GetSymbol(), u"HSI25000L5");
    EXPECT_EQ(Market.GetMarketDataCount(u"HKFE", u"HSI"), 1);
    EXPECT_EQ(Market.FindSeries(u"HSI")->GetNameLanguage1(), u"恒生") << "the first one";
}

TEST_F(MarketServiceTest, NothingStaysOfWhatFails) {
    Market.AddSymbol(Option);
    TEmbeddedSubItem& item = Items.Item(u"NEW");
    TListener listener(Market);
    Deliver(listener);
    const auto fill = [](TMarketUniverse& universe) {
        universe.AddExchange({.Code = u"SSE"});
        universe.AddCategory({.CategoryID = 9});
        universe.AddSeries({.Code = u"HSI", .Exchange = u"SSE", .CategoryID = 7});
        universe.AddSeries({.Code = u"MAIN", .Exchange = u"SSE", .CategoryID = 9});
        for (const StringView series : {u"HSI", u"MAIN"}) {
            universe.AddSymbol({.Symbol = series, .Exchange = u"SSE", .Series = series});
        }
        universe.AddSymbol({.Symbol = u"NEW", .Exchange = u"HKFE", .Series = u"HSI"});
    };
    for (int round = 0; round < 2; ++round) {
        EXPECT_THROW(Market.AddAll([&](TMarketUniverse& universe) {
            fill(universe);
            throw std::runtime_error("a fault");
        }),
                     std::runtime_error);
        EXPECT_EQ(Market.GetExchangeCount(), 2);
        EXPECT_EQ(Market.FindCategory(9), nullptr);
        EXPECT_EQ(Market.FindSeries(u"MAIN"), nullptr);
        EXPECT_EQ(Market.GetSeriesCount(u"HKFE"), 1);
        EXPECT_EQ(Market.GetMarketDataCount(u"HKFE", u"HSI"), 1);
        EXPECT_EQ(Market.GetMarketDataCount(u"HKFE", u""), 1);
        EXPECT_EQ(Market.FindMarketData(u"NEW"), nullptr);
        EXPECT_FALSE(item.HasField(Field::Exchange));
        EXPECT_EQ(Deliver(listener), "");
    }
    Market.AddAll(fill);
    EXPECT_EQ(item.FieldText(Field::Exchange), u"HKFE");
    EXPECT_EQ(Market.GetMarketDataCount(u"SSE", u"HSI"), 1);
    EXPECT_EQ(Market.GetMarketDataCount(u"SSE", u""), 2);
    EXPECT_EQ(Deliver(listener), "exchange ");
}

TEST_F(MarketServiceTest, NamesFollowTheLanguage) {
    Market.AddSymbol(Option);
    EXPECT_EQ(Market.GetSymbolName(Option.Symbol, TAppLanguage::None), u"HSI 25000 C");
    EXPECT_EQ(Market.GetSymbolName(Option.Symbol, TAppLanguage::TraditionalChinese), u"恒指購");
    EXPECT_EQ(Market.GetSymbolName(Option.Symbol, TAppLanguage::SimplifiedChinese), u"HSI 25000 C");
    TEmbeddedLanguageManager language;
    language.SetLanguage(TAppLanguage::TraditionalChinese);
    ServiceRegistry::Install<TCustomLanguageManager>(&language);
    EXPECT_EQ(Market.GetSymbolName(Option.Symbol, TAppLanguage::None), u"恒指購");
    EXPECT_EQ(Market.GetSymbolName(Option.Symbol, TAppLanguage::English), u"HSI 25000 C");
    ServiceRegistry::Remove<TCustomLanguageManager>();
}

TEST_F(MarketServiceTest, ItemsKnowTheirRecord) {
    Market.AddSymbol(Option);
    const struct {
        Integer field;
        StringView text;
    } cases[] = {
        {Field::Exchange, u"HKFE"}, {Field::ProductType, u"3"},   {Field::Currency, u"HKD"},
        {Field::LotSize, u"1"},     {Field::Underlyer, u"HSIZ5"}, {Field::StrikePrice, u"25000"},
        {Field::CallPut, u"C"},     {Field::Expiry, u"202512"},   {Field::SpreadCode, u"IDX"},
        {Field::Series, u"HSI"},    {Field::MarketState, u"CT"},  {Field::ContractSize, u"50"},
    };
    const TCustomSubItem* item = Items.GetSubItem(Option.Symbol, LiveDataType, false);
    for (const auto& row : cases) EXPECT_EQ(item->FieldText(row.field), row.text) << row.field;
    EXPECT_EQ(item->GetStatus(), ItemStatus::Waiting);
    EXPECT_FALSE(item->HasField(Field::PreviousClose)) << "not known";
    EXPECT_FALSE(item->HasField(Field::DisplayRatio));

    TEmbeddedSubItem& fed = Items.Item(Option.Symbol);
    fed.SetField(Field::StrikePrice, 1.5);
    EXPECT_EQ(item->FieldText(Field::StrikePrice), u"1.5") << "what is fed goes first";
    fed.ClearField(Field::StrikePrice);
    EXPECT_FALSE(item->HasField(Field::StrikePrice));
    EXPECT_EQ(item->GetFieldDouble(Field::StrikePrice), 0.0);
    EXPECT_EQ(item->FieldText(Field::StrikePrice), u"");
    fed.TakeRecordField(Field::StrikePrice);
    EXPECT_EQ(item->GetFieldDouble(Field::StrikePrice), 25000.0);
    EXPECT_EQ(item->GetFieldDouble(Field::Underlyer), 0.0) << "a text that is no number";
    EXPECT_EQ(item->GetFieldDouble(Field::ProductType), 3.0);

    const TCustomSubItem* early = Items.GetSubItem(u"LATE", LiveDataType, false);
    EXPECT_FALSE(early->HasField(Field::Exchange));
    Option.Symbol = u"LATE";
    Market.AddSymbol(Option);
    EXPECT_EQ(early->FieldText(Field::Exchange), u"HKFE");

    EXPECT_TRUE(Market.SetMarketState(u"HKFE", u"CL", 0));
    EXPECT_FALSE(Market.SetMarketState(u"?", u"CL", 0));
    EXPECT_EQ(item->FieldText(Field::MarketState), u"CL");
    EXPECT_NE(Market.GetMarketStatus(u"HKFE"), MarketOpen);
}

TEST_F(MarketServiceTest, AFavoriteHasItsRecordOnceThatIsLoaded) {
    EXPECT_TRUE(Market.AddFavorite(u"B"));
    EXPECT_TRUE(Market.AddFavorite(Option.Symbol));
    EXPECT_EQ(Market.GetFavoriteMarketData(1), nullptr);
    Market.AddSymbol(Option);
    EXPECT_EQ(Market.GetFavoriteMarketData(0), nullptr);
    EXPECT_EQ(Market.GetFavoriteMarketData(1), Market.FindMarketData(Option.Symbol));
}

TEST_F(MarketServiceTest, TickTablesArriveLater) {
    TListener listener(Market);
    Deliver(listener);
    ASSERT_TRUE(Market.AddSpreadTable(u"IDX", Bands));
    EXPECT_EQ(Deliver(listener), "") << "nobody has asked";
    TCustomSpreadTable* table = Market.FindSpreadTable(u"IDX");
    ASSERT_NE(table, nullptr);
    EXPECT_NE(table->GetStatus(), SpreadTableLoaded);
    EXPECT_EQ(Market.FindSpreadTable(u"IDX"), table);
    EXPECT_EQ(listener.Heard, "");
    EXPECT_EQ(Deliver(listener), "IDX ");
    EXPECT_EQ(table->MovePrice(1.0, 1), 1.01);
    Market.FindSpreadTable(u"IDX");
    EXPECT_EQ(Deliver(listener), "") << "it is there";

    EXPECT_EQ(Market.FindSpreadTable(u"LATE"), nullptr);
    EXPECT_TRUE(Market.AddSpreadTable(u"LATE", Bands));
    EXPECT_FALSE(Market.AddSpreadTable(u"LATE", Bands));
    EXPECT_EQ(Deliver(listener), "LATE ") << "asked for before it was there";

    Market.SetSpreadTablesAtOnce(true);
    Market.AddSpreadTable(u"NOW", Bands);
    EXPECT_EQ(Market.FindSpreadTable(u"NOW")->GetStatus(), SpreadTableLoaded);
    EXPECT_EQ(Deliver(listener), "");
}

TEST(SeriesComparer, SortsNaturally) {
    TList<String> list;
    for (const Char* code : {u"B1", u"a10", u"A9", u"", u"A09"}) list.Add(code);
    TEmbeddedSeriesComparer().SortSeries(u"SEHK", list);
    TList<String> sorted;
    for (const Char* code : {u"", u"A09", u"A9", u"a10", u"B1"}) sorted.Add(code);
    EXPECT_EQ(list, sorted);
}

} // namespace
