#include "tests/embedded/VenueMarket.h"

namespace quorin {

TVenueMarket::TVenueMarket()
    : FServices({.Host = FHost, .DataDirectory = QUORIN_DATA_DIR, .SettingsPath = {}}) {
    static constexpr TSpreadBand shares[] = {
        {0.0, 0.25, 0.001},  {0.25, 0.5, 0.005},  {0.5, 10.0, 0.01},    {10.0, 20.0, 0.02},
        {20.0, 100.0, 0.05}, {100.0, 200.0, 0.1}, {200.0, 5000.0, 0.2},
    };
    static constexpr TSpreadBand index[] = {{0.0, 1e6, 1.0}};
    static constexpr TSpreadBand differences[] = {{-1e5, 1e5, 1.0}};
    static constexpr TSpreadBand copper[] = {{0.0, 1e7, 10.0}};
    static constexpr TSpreadBand cents[] = {{0.0, 1e5, 0.01}};
    Market().SetSpreadTablesAtOnce(true);
    Market().SetSessions(VenueSessions());
    bool added = Market().AddSpreadTable(u"HK", shares);
    added &= Market().AddSpreadTable(u"IX", index);
    added &= Market().AddSpreadTable(u"DF", differences);
    added &= Market().AddSpreadTable(u"CU", copper);
    added &= Market().AddSpreadTable(u"CT", cents);
    added &= Market().AddCategory({.CategoryID = 1, .Names = {.Name = u"All"}});
    for (const StringView code : {u"SEHK", u"HKFE", u"SHFE", u"SSE"}) {
        added &= Market().AddExchange({.Code = code, .Currency = u"HKD", .MarketState = u"CT"});
        added &= Market().AddSeries({.Code = String(code) + u".1",
                                     .Exchange = code,
                                     .CategoryID = 1,
                                     .Names = {.Name = code}});
    }
    added &= Market().AddSeries(
        {.Code = u"AU", .Exchange = u"SHFE", .CategoryID = 1, .Names = {.Name = u"Gold"}});
    added &= Market().AddSeries(
        {.Code = u"AL", .Exchange = u"SHFE", .CategoryID = 1, .Names = {.Name = u"Aluminium"}});
    EXPECT_TRUE(added);
    AddShares();
    AddDerivatives();
    FServices.Deliver();
}

TVenueMarket::~TVenueMarket() {
    EXPECT_EQ(FServices.RegistrationCount(), 0) << "registrations left behind";
    FHost.Verify();
}

void TVenueMarket::Add(const TSymbolRecord& record) {
    EXPECT_NE(Market().AddSymbol(record), nullptr);
    FSymbols.emplace_back(record.Symbol);
}

void TVenueMarket::AddShares() {
    const struct {
        StringView Symbol;
        StringView Exchange;
        Double Lot;
        Double Close;
    } shares[] = {
        {u"00700", u"SEHK", 100, 600.4},  {u"00005", u"SEHK", 400, 100.4},
        {u"00388", u"SEHK", 100, 399.8},  {u"00010", u"SEHK", 2000, 0.249},
        {u"00011", u"SEHK", 500, 19.98},  {u"00012", u"SEHK", 1000, 0.003},
        {u"600519", u"SSE", 100, 1440.0}, {u"600036", u"SSE", 100, 41.27},
        {u"601398", u"SSE", 100, 7.01},   {u"601988", u"SSE", 100, 5.66},
        {u"688981", u"SSE", 200, 121.36},
    };
    for (const auto& share : shares) {
        Add({.Symbol = share.Symbol,
             .Exchange = share.Exchange,
             .Series = String(share.Exchange) + u".1",
             .SpreadCode = share.Exchange == u"SSE" ? u"CT" : u"HK",
             .LotSize = share.Lot,
             .PreviousClose = share.Close});
    }
}

void TVenueMarket::AddDerivatives() {
    TSymbolRecord future{.Exchange = u"HKFE",
                         .Series = u"HKFE.1",
                         .ProductType = ProductType::Futures,
                         .SpreadCode = u"IX",
                         .LotSize = 1.0};
    const auto addFuture = [&](StringView symbol, Double close) {
        future.Symbol = symbol;
        future.PreviousClose = close;
        Add(future);
    };
    addFuture(u"HSIX6", 26012);
    addFuture(u"HSIZ6", 26034);
    future.SpreadCode = u"DF";
    addFuture(u"HSIX6/HSIZ6", -22);
    future.Exchange = u"SHFE";
    future.Series = u"SHFE.1";
    future.SpreadCode = u"CU";
    addFuture(u"cu2612", 86420);
    addFuture(u"cu2701", 86500);
    future.SpreadCode = u"";
    future.TickSize = u"0.02";
    future.Series = u"AU";
    addFuture(u"au2612", 936.48);
    future.TickSize = u"5";
    future.Series = u"AL";
    addFuture(u"al2612", 21500);

    TSymbolRecord option{.Exchange = u"HKFE",
                         .Series = u"HKFE.1",
                         .ProductType = ProductType::Options,
                         .LotSize = 1.0};
    const auto addOption = [&](StringView symbol, StringView strike, StringView marker,
                               Double close) {
        option.Symbol = symbol;
        option.StrikePrice = strike;
        option.CallPut = marker;
        option.PreviousClose = close;
        Add(option);
    };
    option.SpreadCode = u"IX";
    option.Underlyer = u"HSIX6";
    option.ExpiryMonth = u"2026-11";
    addOption(u"HSI25200K6", u"25200", u"C", 828);
    addOption(u"HSI26000K6", u"26000", u"C", 223);
    addOption(u"HSI26000W6", u"26000", u"P", 211);
    addOption(u"HSI27000W6", u"27000", u"P", 990);
    addOption(u"HSI29000K6", u"29000", u"C", 1);
    option.SpreadCode = u"";
    option.TickSize = u"0.01";
    option.Underlyer = u"00700";
    option.ExpiryMonth = u"2026-12";
    addOption(u"TCH600L6", u"600", u"C", 0);
    addOption(u"TCH600X6", u"600", u"P", 0);
}

std::string TVenueMarket::Fields(StringView symbol) {
    constexpr Integer afterLast = 160; // beyond every field that a venue writes
    std::string all;
    const TEmbeddedSubItem& item = Items().Item(symbol);
    for (Integer field = 1; field < afterLast; ++field) {
        if (!item.HasField(field)) continue;
        all += std::to_string(field) + "=" + ToUtf8(item.FieldText(field)) + " ";
    }
    return all;
}

} // namespace quorin
