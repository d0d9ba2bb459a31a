// Makes a universe of any size as a list of symbols for the console's option --universe: shares,
// futures and options on four exchanges, the same for the same seed on every machine.
//
//   quorin-make-universe --symbols 31000 --seed 1 > universe.csv

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

constexpr int Stock = 1;
constexpr int Futures = 2;
constexpr int Options = 3;
constexpr std::int64_t SymbolsPerFamily = 64; // a share, its futures and its options
constexpr std::int64_t FuturesPerFamily = 12;

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
constexpr std::int64_t ExpiriesOfOptions = 3;

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

void Print(const TFamily& family, const TRow& row) {
    std::printf("%s,%s,%s,%s,%d,%d,%s,%d,%s,%s,%s,%s,%s,%d\n", Quoted(row.Symbol).c_str(),
                Quoted(row.Name).c_str(), row.Exchange.c_str(), row.Series.c_str(), row.Category,
                row.Type, family.Exchange.Currency, row.Type == Stock ? family.Lot : 1, family.Tick,
                row.Expiry.c_str(), row.Strike.c_str(), row.CallPut.c_str(), row.Underlyer.c_str(),
                row.Size);
}

TFamily MakeFamily(std::int64_t number, TRandom& random) {
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

void PrintMember(const TFamily& family, std::int64_t member) {
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
        const std::int64_t option = member - FuturesPerFamily - 1;
        const bool isCall = option % 2 == 0;
        const std::int64_t month = option / 2 % ExpiriesOfOptions;
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
    Print(family, row);
}

bool TryNumber(const char* text, std::uint64_t& number) {
    char* end = nullptr;
    number = std::strtoull(text, &end, 10);
    return *text >= '0' && *text <= '9' && *end == '\0';
}

} // namespace

int main(int argc, char** argv) {
    std::uint64_t symbols = 1000;
    std::uint64_t seed = 1;
    for (int index = 1; index < argc; index += 2) {
        const bool isSymbols = std::strcmp(argv[index], "--symbols") == 0;
        const bool isSeed = std::strcmp(argv[index], "--seed") == 0;
        if ((!isSymbols && !isSeed) || index + 1 >= argc ||
            !TryNumber(argv[index + 1], isSymbols ? symbols : seed)) {
            std::fputs("quorin-make-universe [--symbols N] [--seed S] > universe.csv\n", stderr);
            return 2;
        }
    }
    TRandom random(seed);
    TFamily family{};
    std::puts("symbol,name,exchange,series,category,product_type,currency,lot,tick,expiry,strike,"
              "call_put,underlyer,contract_size");
    for (std::uint64_t index = 0; index < symbols; ++index) {
        const auto number = static_cast<std::int64_t>(index);
        const std::int64_t member = number % SymbolsPerFamily;
        if (member == 0) family = MakeFamily(number / SymbolsPerFamily, random);
        PrintMember(family, member);
    }
    return 0;
}
