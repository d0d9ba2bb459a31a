// Makes the futures, calendar spreads and options of the shipped universe: rows like those of
// symbols.csv for products and contract months. What an exchange publishes (sizes, steps, months,
// last trading days) stands in the tables below; closing prices of options follow from those of
// their underlyers, so that a call and a put of one strike never contradict each other.
//
//   quorin-make-derivatives > data/universe/derivatives.csv

#include <array>
#include <cmath>
#include <cstdio>
#include <string>

namespace {

constexpr int Futures = 2;
constexpr int Options = 3;
constexpr double DaysPerYear = 365.0;

struct TName {
    std::string English, Traditional, Simplified;
};

struct TMonth {
    const char* Expiry;  // also of GetExpiryMonth
    const char* Digits;  // as in names and in mainland codes
    const char* English; // as in names
    char Letter;         // of futures
    char CallLetter;
    char PutLetter;
    char YearDigit;
    const char* LastTradingDay;
    const char* SettlementDay;
    const char* StockSettlementDay;
    int DaysLeft; // from the day before the first one of the market
};

// The last trading day in Hong Kong is the business day before the last one of the month.
constexpr TMonth Months[] = {
    {"2026-11", "2611", "Nov26", 'X', 'K', 'W', '6', "2026-11-27", "2026-11-30", "2026-12-01", 4},
    {"2026-12", "2612", "Dec26", 'Z', 'L', 'X', '6', "2026-12-30", "2026-12-31", "2027-01-04", 37},
    {"2027-03", "2703", "Mar27", 'H', 'C', 'O', '7', "2027-03-30", "2027-03-31", "2027-04-01", 127},
    {"2027-06", "2706", "Jun27", 'M', 'F', 'R', '7', "2027-06-29", "2027-06-30", "2027-07-02", 218},
};
constexpr std::size_t OptionMonths = 2;
constexpr std::size_t SpreadMonths = 3;

struct TIndex {
    const char* Code;
    TName Name;
    int ContractSize;
    std::array<int, std::size(Months)> Close;
    int LowestStrike; // 0 without options
    int StrikeStep;
    double Volatility; // a year's
};

const TIndex Indexes[] = {
    {"HSI", {"HSI", "恒指", "恒指"}, 50, {26012, 26034, 26088, 25941}, 25200, 200, 0.20},
    {"MHI",
     {"Mini-HSI", "小型恒指", "小型恒指"},
     10,
     {26013, 26036, 26087, 25940},
     25200,
     200,
     0.20},
    {"HHI", {"HSCEI", "國指", "国指"}, 50, {9224, 9231, 9250, 9120}, 0, 0, 0.0},
    {"HTI", {"HSTECH", "科指", "科指"}, 50, {5684, 5692, 5721, 5745}, 0, 0, 0.0},
};

struct TStock {
    const char* Code;
    TName Name;
    const char* Underlyer;
    int ContractSize;
    double Close;
    double LowestStrike;
    double StrikeStep;
    double Volatility;
};

const TStock Stocks[] = {
    {"TCH", {"Tencent", "騰訊", "腾讯"}, "00700", 100, 601.5, 560.0, 10.0, 0.32},
    {"HKB", {"HSBC", "滙豐", "汇丰"}, "00005", 400, 100.4, 90.0, 2.5, 0.20},
    {"ALB", {"Alibaba", "阿里巴巴", "阿里巴巴"}, "09988", 500, 118.3, 107.5, 2.5, 0.42},
};
constexpr int StrikeCount = 9;

// In Shanghai the last trading day is the 15th, or the business day after it.
struct TDelivery {
    const char* Digits;
    const char* Expiry;
    const char* LastTradingDay;
    const char* SettlementDay;
};
constexpr TDelivery Dec26{"2612", "2026-12", "2026-12-15", "2026-12-18"};
constexpr TDelivery Jan27{"2701", "2027-01", "2027-01-15", "2027-01-20"};
constexpr TDelivery Feb27{"2702", "2027-02", "2027-02-15", "2027-02-18"};
constexpr TDelivery Mar27{"2703", "2027-03", "2027-03-15", "2027-03-18"};
constexpr TDelivery Apr27{"2704", "2027-04", "2027-04-15", "2027-04-20"};
constexpr TDelivery May27{"2705", "2027-05", "2027-05-17", "2027-05-20"};

struct TMetalMonth {
    TDelivery Delivery;
    double Close;
};

struct TMetal {
    const char* Code;
    TName Name;
    int ContractSize;
    const char* Tick;
    std::array<TMetalMonth, 3> Months;
};

const TMetal Metals[] = {
    {"CU", {"Copper", "滬銅", "沪铜"}, 5, "10", {{{Dec26, 86420}, {Jan27, 86450}, {Feb27, 86480}}}},
    {"AL",
     {"Aluminium", "滬鋁", "沪铝"},
     5,
     "5",
     {{{Dec26, 21540}, {Jan27, 21565}, {Feb27, 21590}}}},
    {"ZN", {"Zinc", "滬鋅", "沪锌"}, 5, "5", {{{Dec26, 22385}, {Jan27, 22410}, {Feb27, 22435}}}},
    {"PB", {"Lead", "滬鉛", "沪铅"}, 5, "5", {{{Dec26, 17180}, {Jan27, 17205}, {Feb27, 17220}}}},
    {"NI",
     {"Nickel", "滬鎳", "沪镍"},
     1,
     "10",
     {{{Dec26, 117240}, {Jan27, 117480}, {Feb27, 117700}}}},
    {"SN", {"Tin", "滬錫", "沪锡"}, 1, "10", {{{Dec26, 292350}, {Jan27, 292700}, {Feb27, 293010}}}},
    {"AU",
     {"Gold", "滬金", "沪金"},
     1000,
     "0.02",
     {{{Dec26, 936.48}, {Feb27, 939.62}, {Apr27, 942.30}}}},
    {"AG", {"Silver", "滬銀", "沪银"}, 15, "1", {{{Dec26, 11872}, {Feb27, 11915}, {Apr27, 11958}}}},
    {"RB", {"Rebar", "螺紋", "螺纹"}, 10, "1", {{{Dec26, 3046}, {Jan27, 3072}, {May27, 3118}}}},
    {"HC", {"Hot coil", "熱卷", "热卷"}, 10, "1", {{{Dec26, 3261}, {Jan27, 3274}, {May27, 3289}}}},
    {"RU", {"Rubber", "橡膠", "橡胶"}, 10, "5", {{{Jan27, 15320}, {Mar27, 15345}, {May27, 15410}}}},
};

struct TRow {
    std::string Code;
    TName Name;
    std::string Exchange;
    std::string Series;
    int Type;
    std::string Currency;
    std::string TickTable;
    std::string Tick;
    int ContractSize;
    std::string Expiry;
    std::string LastTradingDay;
    std::string SettlementDay;
    std::string Strike = {};
    std::string CallPut = {};
    std::string Underlyer = {};
    double Close;
};

std::string NumberText(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.10g", value);
    return text;
}

void Print(const TRow& row) {
    const std::string fields[] = {row.Code,
                                  row.Name.English,
                                  row.Name.Traditional,
                                  row.Name.Simplified,
                                  row.Exchange,
                                  row.Series,
                                  std::to_string(row.Type),
                                  row.Currency,
                                  "1",
                                  row.TickTable,
                                  row.Tick,
                                  std::to_string(row.ContractSize),
                                  row.Expiry,
                                  row.LastTradingDay,
                                  row.SettlementDay,
                                  row.Strike,
                                  row.CallPut,
                                  row.Underlyer,
                                  NumberText(row.Close)};
    std::string line;
    for (const std::string& field : fields) {
        if (!line.empty()) line += ',';
        line += field;
    }
    std::puts(line.c_str());
}

// By normally distributed moves of the underlyer, on the step.
double OptionClose(double underlyer, double strike, double volatility, int days, bool isCall,
                   double step) {
    const double deviation = underlyer * volatility * std::sqrt(days / DaysPerYear);
    const double inside = isCall ? underlyer - strike : strike - underlyer;
    const double ratio = inside / deviation;
    const double density = std::exp(-ratio * ratio / 2.0) / std::sqrt(2.0 * std::acos(-1.0));
    const double weight = std::erfc(-ratio / std::sqrt(2.0)) / 2.0;
    const double price = inside * weight + deviation * density;
    return std::fmax(std::round(price / step), 1.0) * step;
}

TRow IndexRow(const TIndex& index, const TMonth& month) {
    TRow row{};
    row.Exchange = "HKFE";
    row.Series = std::string("HKFE.") + index.Code;
    row.Currency = "HKD";
    row.TickTable = "HKFE-INDEX";
    row.Tick = "1";
    row.ContractSize = index.ContractSize;
    row.Expiry = month.Expiry;
    row.LastTradingDay = month.LastTradingDay;
    row.SettlementDay = month.SettlementDay;
    return row;
}

std::string FutureCode(const TIndex& index, const TMonth& month) {
    return std::string(index.Code) + month.Letter + month.YearDigit;
}

void PrintFutures(const TIndex& index) {
    for (std::size_t place = 0; place < std::size(Months); ++place) {
        const TMonth& month = Months[place];
        TRow row = IndexRow(index, month);
        row.Code = FutureCode(index, month);
        row.Name = {index.Name.English + " Futures " + month.English,
                    index.Name.Traditional + "期貨" + month.Digits,
                    index.Name.Simplified + "期货" + month.Digits};
        row.Type = Futures;
        row.Close = index.Close[place];
        Print(row);
    }
}

// A spread buys its first leg and sells its second one; its price is the difference.
void PrintSpreads(const TIndex& index) {
    for (std::size_t first = 0; first < SpreadMonths; ++first) {
        for (std::size_t second = first + 1; second < SpreadMonths; ++second) {
            const TMonth& near = Months[first];
            const TMonth& far = Months[second];
            TRow row = IndexRow(index, near);
            row.Code = FutureCode(index, near) + "/" + FutureCode(index, far);
            const std::string digits = std::string(near.Digits) + "/" + far.Digits;
            row.Name = {index.Name.English + " Spread " + near.English + "/" + far.English,
                        index.Name.Traditional + "跨期" + digits,
                        index.Name.Simplified + "跨期" + digits};
            row.Type = Futures;
            row.TickTable = "HKFE-SPREAD";
            row.Close = index.Close[first] - index.Close[second];
            Print(row);
        }
    }
}

void PrintOption(TRow row, const std::string& product, const TName& name, const TMonth& month,
                 double strike, bool isCall) {
    row.Strike = NumberText(strike);
    row.CallPut = isCall ? "C" : "P";
    row.Code =
        product + row.Strike + (isCall ? month.CallLetter : month.PutLetter) + month.YearDigit;
    const std::string tail = std::string(" ") + row.Strike + " ";
    row.Name = {name.English + " " + month.English + tail + row.CallPut,
                name.Traditional + month.Digits + tail + (isCall ? "購" : "沽"),
                name.Simplified + month.Digits + tail + (isCall ? "购" : "沽")};
    row.Type = Options;
    Print(row);
}

void PrintIndexOptions(const TIndex& index) {
    if (index.LowestStrike == 0) return;
    for (std::size_t place = 0; place < OptionMonths; ++place) {
        const TMonth& month = Months[place];
        TRow row = IndexRow(index, month);
        row.Underlyer = FutureCode(index, month);
        for (int count = 0; count < StrikeCount; ++count) {
            const int strike = index.LowestStrike + count * index.StrikeStep;
            for (const bool isCall : {true, false}) {
                row.Close = OptionClose(index.Close[place], strike, index.Volatility,
                                        month.DaysLeft, isCall, 1.0);
                PrintOption(row, index.Code, index.Name, month, strike, isCall);
            }
        }
    }
}

void PrintStockOptions(const TStock& stock) {
    for (std::size_t place = 0; place < OptionMonths; ++place) {
        const TMonth& month = Months[place];
        TRow row{};
        row.Exchange = "HKFE";
        row.Series = std::string("HKFE.") + stock.Code;
        row.Currency = "HKD";
        row.TickTable = "HKFE-STOCK";
        row.Tick = "0.01";
        row.ContractSize = stock.ContractSize;
        row.Expiry = month.Expiry;
        row.LastTradingDay = month.LastTradingDay;
        row.SettlementDay = month.StockSettlementDay;
        row.Underlyer = stock.Underlyer;
        for (int count = 0; count < StrikeCount; ++count) {
            const double strike = stock.LowestStrike + count * stock.StrikeStep;
            for (const bool isCall : {true, false}) {
                row.Close = OptionClose(stock.Close, strike, stock.Volatility, month.DaysLeft,
                                        isCall, 0.01);
                PrintOption(row, stock.Code, stock.Name, month, strike, isCall);
            }
        }
    }
}

void PrintMetal(const TMetal& metal) {
    for (const TMetalMonth& traded : metal.Months) {
        const TDelivery& month = traded.Delivery;
        TRow row{};
        row.Code = std::string(metal.Code) + month.Digits;
        row.Name = {metal.Name.English + " " + month.Digits, metal.Name.Traditional + month.Digits,
                    metal.Name.Simplified + month.Digits};
        row.Exchange = "SHFE";
        row.Series = std::string("SHFE.") + metal.Code;
        row.Type = Futures;
        row.Currency = "CNY";
        row.TickTable = std::string("SHFE-") + metal.Tick;
        row.Tick = metal.Tick;
        row.ContractSize = metal.ContractSize;
        row.Expiry = month.Expiry;
        row.LastTradingDay = month.LastTradingDay;
        row.SettlementDay = month.SettlementDay;
        row.Close = traded.Close;
        Print(row);
    }
}

} // namespace

int main() {
    std::puts("code,name,name-zh-Hant,name-zh-Hans,exchange,series,type,currency,lot,tick-table,"
              "tick-size,contract-size,expiry,last-trading-day,settlement-day,strike,call-put,"
              "underlyer,previous-close");
    for (const TIndex& index : Indexes) {
        PrintFutures(index);
        PrintSpreads(index);
        PrintIndexOptions(index);
    }
    for (const TStock& stock : Stocks) PrintStockOptions(stock);
    for (const TMetal& metal : Metals) PrintMetal(metal);
    return 0;
}
