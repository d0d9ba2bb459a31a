#include "embedded/UniverseFile.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "platform/rtl/Utf.h"

#include <gtest/gtest.h>

#include <map>

using namespace quorin;

namespace {

constexpr Int64 Hour = 3600 * Int64{1'000'000'000};
constexpr Int64 Minute = Hour / 60;

class ShippedUniverseTest : public testing::Test {
protected:
    ShippedUniverseTest() {
        LoadUniverse(std::filesystem::path(QUORIN_DATA_DIR) / "universe", Market);
    }
    void TearDown() override {
        EXPECT_EQ(Market.RegistrationCount(), 0);
        EXPECT_EQ(Items.RegistrationCount(), 0);
    }

    TEmbeddedSubscribeAdapter Items;
    TEmbeddedMarketAdapter Market{Items};
};

TEST_F(ShippedUniverseTest, IsSound) {
    Market.SetSpreadTablesAtOnce(true);
    const struct {
        StringView exchange;
        Integer least;
    } exchanges[] = {{u"SEHK", 90}, {u"HKFE", 200}, {u"SHFE", 30}, {u"SSE", 25}};
    for (const auto& row : exchanges) {
        EXPECT_GE(Market.GetMarketDataCount(row.exchange, u""), row.least) << ToUtf8(row.exchange);
        for (Integer index = 0; index < Market.GetMarketDataCount(row.exchange, u""); ++index) {
            const TCustomMarketData* record = Market.GetMarketDataAt(row.exchange, u"", index);
            const String symbol = record->GetSymbol();
            SCOPED_TRACE(ToUtf8(symbol));
            const TCustomSubItem* item = Items.GetSubItem(symbol, LiveDataType, false);
            const Double close = item->GetFieldDouble(Field::PreviousClose);
            const auto* table = Market.FindSpreadTable(item->FieldText(Field::SpreadCode));
            ASSERT_NE(table, nullptr);
            EXPECT_NE(close, 0.0);
            EXPECT_EQ(table->MovePrice(table->MovePrice(close, 1), -1), close) << "off the ticks";
            EXPECT_GT(item->GetFieldDouble(Field::LotSize), 0.0);
            EXPECT_FALSE(record->GetCurrency().empty());
            for (const auto language : {TAppLanguage::English, TAppLanguage::TraditionalChinese,
                                        TAppLanguage::SimplifiedChinese}) {
                EXPECT_FALSE(Market.GetSymbolName(symbol, language).empty());
            }
            ASSERT_NE(Market.FindSeries(record->GetSeries()), nullptr);
            EXPECT_NE(Market.FindCategory(Market.FindSeries(record->GetSeries())->GetCategoryID()),
                      nullptr);
            EXPECT_EQ(record->GetSymbol(), UpperCase(record->GetSymbol())) << "as it is typed";
            const bool isDerivative = record->GetProductType() != StockProductType;
            EXPECT_EQ(item->HasField(Field::ContractSize), isDerivative);
            EXPECT_EQ(item->HasField(Field::LastTradingDay), isDerivative);
            EXPECT_EQ(item->HasField(Field::SettlementDay), isDerivative);
            EXPECT_EQ(!record->GetStrikePrice().empty(),
                      record->GetProductType() == ProductType::Options);
        }
    }
    EXPECT_EQ(Market.GetSymbolName(u"00700", TAppLanguage::English), u"Tencent Holdings");
    EXPECT_EQ(Market.GetSymbolName(u"00700", TAppLanguage::TraditionalChinese), u"騰訊控股");
    EXPECT_EQ(Market.GetSymbolName(u"CU2612", TAppLanguage::SimplifiedChinese), u"沪铜2612");
    EXPECT_NE(Market.GetFavoriteMarketData(0), nullptr);
    for (const TMarketExchange* exchange : Market.Universe().Exchanges()) {
        EXPECT_EQ(exchange->IsSided, exchange->Code == u"SHFE") << ToUtf8(exchange->Code);
    }
}

// The difference of a call and a put of one strike is that of their underlyer and the strike.
TEST_F(ShippedUniverseTest, OptionsAgreeWithTheirUnderlyers) {
    std::map<String, Double> differences;
    int options = 0;
    for (Integer index = 0; index < Market.GetMarketDataCount(u"HKFE", u""); ++index) {
        const auto* record =
            Market.Universe().FindSymbol(Market.GetMarketDataAt(u"HKFE", u"", index)->GetSymbol());
        if (record->GetProductType() != ProductType::Options) continue;
        ++options;
        const auto* underlyer = Market.Universe().FindSymbol(record->GetUnderlyer());
        ASSERT_NE(underlyer, nullptr);
        const bool isCall = record->GetCallPut() == u"C";
        const String pair =
            record->GetSeries() + record->GetExpiryMonth() + u" " + record->GetStrikePrice();
        Double& difference = differences.try_emplace(pair, 0.0).first->second;
        difference += isCall ? record->PreviousClose() : -record->PreviousClose();
        if (isCall) {
            difference -= underlyer->PreviousClose() - ToDoubleOr(record->GetStrikePrice(), 0.0);
        }
    }
    EXPECT_EQ(static_cast<std::size_t>(options), 2 * differences.size());
    for (const auto& [pair, difference] : differences) {
        EXPECT_NEAR(difference, 0.0,
                    pair.find(u"HSI") == pair.npos && pair.find(u"MHI") == pair.npos
                        ? 0.0101 // a tick
                        : 1.0001)
            << ToUtf8(pair);
    }
}

TEST_F(ShippedUniverseTest, SessionsTellTheDay) {
    const struct {
        const char* name;
        StringView exchange;
        Int64 time;
        StringView state;
        Integer status;
    } cases[] = {
        {"night", u"SEHK", 0, u"CL", 0},
        {"before the open", u"SEHK", 9 * Hour + 30 * Minute - 1, u"PO", 0},
        {"open", u"SEHK", 9 * Hour + 30 * Minute, u"CT", MarketOpen},
        {"lunch", u"SEHK", 12 * Hour, u"LB", 0},
        {"after lunch", u"SEHK", 13 * Hour, u"CT", MarketOpen},
        {"closing auction", u"SEHK", 16 * Hour, u"CA", 0},
        {"closed", u"SEHK", 16 * Hour + 10 * Minute, u"CL", 0},
        {"end of the day", u"SEHK", 24 * Hour - 1, u"CL", 0},
        {"futures are early", u"HKFE", 9 * Hour + 15 * Minute, u"CT", MarketOpen},
        {"futures are late", u"HKFE", 16 * Hour + 29 * Minute, u"CT", MarketOpen},
        {"break", u"SHFE", 10 * Hour + 15 * Minute, u"BR", 0},
        {"mainland lunch", u"SSE", 11 * Hour + 30 * Minute, u"LB", 0},
        {"without sessions", u"?", 3 * Hour, u"CT", MarketOpen},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const TMarketSession session = Market.Sessions().At(row.exchange, row.time);
        EXPECT_EQ(session.State, row.state);
        EXPECT_EQ(session.Status, row.status);
        EXPECT_LE(session.From, row.time);
        EXPECT_GT(session.To, row.time);
    }
}

} // namespace
