#include "embedded/UniverseMaker.h"

#include "embedded/MarketUniverse.h"

#include <array>
#include <cstdint>
#include <string>

namespace quorin {

namespace {

constexpr int Stock = StockProductType;
using ProductType::Futures;
using ProductType::Options;
constexpr Int64 SymbolsPerFamily = 64; // a share, its futures and its options
constexpr Int64 FuturesPerFamily = 12;

class TRandom {
public:
    explicit TRandom(std::uint64_t seed) : FState(seed) {}
    // 0 to `end` - 1.
    std::size_t Below(std::size_t end) {
        FState += 0x9E3779B97F4A7C15u;
        std::uint64_t word = FState;
        word = (word ^ (word >> 30)) * 0xBF58476D1CE4E5B9u;
        word = (word ^ (word >> 27)) * 0x94D049BB133111EBu;
        return static_cast<std::size_t>((word ^ (word >> 31)) % end);
    }

private:
    std::uint64_t FState;
};

struct TExchange {
    const char* Code;
    const char* Currency;
    const char* DerivativesCode;
};
constexpr TExchange Exchanges[] = {{"XHKG", "HKD", "XHKF"}, {"XNYS", "USD", "XCBO"}};

constexpr const char* Ticks[] = {"0.01", "0.02", "0.05", "0.1", "0.2", "0.5", "1"};
constexpr int Lots[] = {1, 10, 50, 100, 200, 400, 500, 1000, 2000};
constexpr const char* FirstWords[] = {"Great Wall", "Pearl River", "Victoria Harbour",
                                      "North Star", "長城",        "珠江",
                                      "維港",       "北極星"};
constexpr const char* LastWords[] = {"Holdings", "Bank", "Energy", "Foods, Inc.", "集團", "控股"};
constexpr std::array<const char*, FuturesPerFamily> Months = {
    "2026-12", "2027-01", "2027-02", "2027-03", "2027-04", "2027-05",
    "2027-06", "2027-07", "2027-08", "2027-09", "2027-10", "2027-11"};
constexpr Int64 ExpiriesOfOptions = 3;

struct TFamily {
    std::string Code;
    std::string Name;
    TExchange Exchange;
    const char* Tick;
    int Lot;
    std::size_t LowestStrike;
};

struct TRow {
    std::string Symbol, Name, Exchange, Series;
    int Category;
    int Type;
    std::string Expiry = {}, Strike = {}, CallPut = {}, Underlyer = {};
    int Size = 1;
};

std::string Quoted(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == text.npos) return text;
    std::string quoted = "\"";
    for (const char byte : text) {
        quoted += byte;
        if (byte == '"') quoted += '"';
    }
    return quoted + '"';
}

void Write(std::ostream& target, const TFamily& family, const TRow& row) {
    const int lot = row.Type == Stock ? family.Lot : 1;
    target << Quoted(row.Symbol) << ',' << Quoted(row.Name) << ',' << row.Exchange << ','
           << row.Series << ',' << row.Category << ',' << row.Type << ','
           << family.Exchange.Currency << ',' << lot << ',' << family.Tick << ',' << row.Expiry
           << ',' << row.Strike << ',' << row.CallPut << ',' << row.Underlyer << ',' << row.Size
           << '\n';
}

TFamily MakeFamily(Int64 number, TRandom& random) {
    std::string digits = std::to_string(number + 1);
    if (digits.size() < 5) digits.insert(0, 5 - digits.size(), '0');
    TFamily family{};
    family.Code = digits;
    family.Name = std::string(FirstWords[random.Below(std::size(FirstWords))]) + ' ' +
                  LastWords[random.Below(std::size(LastWords))] + ' ' + std::to_string(number + 1);
    family.Exchange = Exchanges[random.Below(std::size(Exchanges))];
    family.Tick = Ticks[random.Below(std::size(Ticks))];
    family.Lot = Lots[random.Below(std::size(Lots))];
    family.LowestStrike = 10 + random.Below(500);
    return family;
}

void WriteMember(std::ostream& target, const TFamily& family, Int64 member) {
    const std::string product = "P" + family.Code;
    TRow row{};
    row.Symbol = family.Code;
    row.Name = family.Name;
    row.Exchange = family.Exchange.Code;
    row.Series = std::string(family.Exchange.Code) + ".MAIN";
    row.Category = row.Type = Stock;
    if (member > 0) {
        row.Exchange = family.Exchange.DerivativesCode;
        row.Series = row.Exchange + "." + product;
        row.Underlyer = family.Code;
        row.Size = family.Lot;
    }
    if (member > FuturesPerFamily) {
        const Int64 option = member - FuturesPerFamily - 1;
        const bool isCall = option % 2 == 0;
        const Int64 month = option / 2 % ExpiriesOfOptions;
        const auto step = static_cast<std::size_t>(option / 2 / ExpiriesOfOptions);
        row.Type = Options;
        row.Category = Futures; // one series holds the futures and options of a family
        row.Expiry = Months[static_cast<std::size_t>(month)];
        row.Strike = std::to_string(family.LowestStrike + 5 * step);
        row.CallPut = isCall ? "C" : "P";
        row.Symbol = product + " " + row.Expiry + " " + row.CallPut + row.Strike;
        row.Name += " " + row.Expiry + " " + row.Strike + " " + row.CallPut;
    } else if (member > 0) {
        row.Category = row.Type = Futures;
        row.Expiry = Months[static_cast<std::size_t>(member - 1)];
        row.Symbol = product + " " + row.Expiry;
        row.Name += " " + row.Expiry;
    }
    Write(target, family, row);
}

} // namespace

void WriteUniverseList(std::ostream& target, Int64 symbols, std::uint64_t seed) {
    TRandom random(seed);
    TFamily family{};
    target << "symbol,name,exchange,series,category,product_type,currency,lot,tick,expiry,strike,"
              "call_put,underlyer,contract_size\n";
    for (Int64 index = 0; index < symbols; ++index) {
        const Int64 member = index % SymbolsPerFamily;
        if (member == 0) family = MakeFamily(index / SymbolsPerFamily, random);
        WriteMember(target, family, member);
    }
}

} // namespace quorin
