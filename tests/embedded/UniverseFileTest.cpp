#include "embedded/UniverseFile.h"

#include "embedded/DataError.h"
#include "embedded/UniverseMaker.h"
#include "tests/support/TempFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

using namespace quorin;

namespace {

// A small universe in a folder of its own, of which a test replaces one file.
class UniverseFileTest : public testing::Test {
protected:
    UniverseFileTest() {
        Write("exchanges.csv", "code,currency\nE,HKD\n");
        Write("categories.csv", "id,name\n1,x\n");
        Write("series.csv", "exchange,code,category,name,remark\nE,S,1,x,\n");
        Write("tick-tables.csv", "code,from,to,step\nT,0,1,0.1\nT,1,2,0.5\n");
        Write("symbols.csv", "code,name,exchange,series\nA,x,E,S\n");
        Write("derivatives.csv", "code,name,exchange,series,underlyer\nF,x,E,S,G\nG,x,E,S,A\n");
        Write("sessions.csv", "exchange,from,to,state,status\nE,09:00,10:00,CT,1\n");
        Write("favorites.csv", "code\nA\n");
    }
    ~UniverseFileTest() override {
        EXPECT_EQ(Market.RegistrationCount(), 0);
        EXPECT_EQ(Items.RegistrationCount(), 0);
    }
    void Write(const std::string& file, std::string_view content) {
        OwnFolder.Write(file, content);
    }
    // The message of the fault without the folder; "loaded" without one. Faults leave nothing.
    template <class Load>
    std::string MessageOf(Load load) {
        TEmbeddedSubscribeAdapter items;
        TEmbeddedMarketAdapter market(items);
        std::string message = "loaded";
        try {
            load(market);
        } catch (const EDataError& error) {
            message = error.what();
            message.erase(0, (Folder / "").string().size());
            EXPECT_EQ(market.GetExchangeCount(), 0);
            EXPECT_EQ(market.Universe().SymbolCount(), 0);
            EXPECT_EQ(market.FindSeries(u"S"), nullptr);
            EXPECT_EQ(market.FindCategory(1), nullptr);
            EXPECT_EQ(market.GetFavoriteCount(), 0);
            EXPECT_FALSE(market.HasSpreadTable(u"T"));
            EXPECT_FALSE(market.HasSpreadTable(u"TICK 1"));
            EXPECT_TRUE(market.Sessions().IsEmpty());
        }
        return message;
    }
    std::string ListMessage(std::string_view rows, const char* header = Header) {
        Write("list.csv", header + std::string(rows));
        return MessageOf([&](auto& market) { LoadUniverseList(Folder / "list.csv", market); });
    }

    static constexpr const char* Header =
        "symbol,name,exchange,series,category,product_type,currency,lot,tick,expiry,strike,"
        "call_put,underlyer,contract_size\n";
    const TTempFolder OwnFolder;
    const std::filesystem::path Folder = OwnFolder.Path();
    TEmbeddedSubscribeAdapter Items;
    TEmbeddedMarketAdapter Market{Items};
};

TEST_F(UniverseFileTest, TellsFileAndLineOfAFault) {
    const std::string symbols = "code,name,exchange,series,lot,tick-table,tick-size,type,strike,"
                                "call-put,contract-size,underlyer\n";
    const struct {
        const char* name;
        const char* file;
        std::string content; // "-": no file
        std::string message;
    } cases[] = {
        {"nothing", "favorites.csv", "-", "loaded"},
        {"missing", "exchanges.csv", "-", "exchanges.csv: cannot be read"},
        {"empty", "series.csv", "", "series.csv: the file is empty"},
        {"column", "symbols.csv", "code,name,exchange\n",
         "symbols.csv:1: the column \"series\" is missing"},
        {"column twice", "categories.csv", "id,id,name\n",
         "categories.csv:1: the column \"id\" is there twice"},
        {"fields", "categories.csv", "id,name\n1,x\n2\n",
         "categories.csv:3: 1 fields instead of 2"},
        {"truncated quote", "tick-tables.csv", "code,from,to,step\nA,0,\"1,2\n",
         "tick-tables.csv:2: a quote is not closed"},
        {"binary", "symbols.csv",
         std::string("\x7f"
                     "ELF\x02\x01\0\0\0",
                     9),
         "symbols.csv:1: a control character: this is no text file"},
        {"broken UTF-8", "series.csv", "code,exchange,category,name\nS,E,1,\xE9\xA8\n",
         "series.csv:2: not valid as UTF-8"},
        {"exchange twice", "exchanges.csv", "code\nE\nE\n",
         "exchanges.csv:3: \"E\" in column \"code\" is there already"},
        {"neither sided nor not", "exchanges.csv", "code,sided\nE,2\n",
         "exchanges.csv:2: \"2\" in column \"sided\" is neither 0 nor 1"},
        {"exchange without a code", "exchanges.csv", "code,state\n,CT\n",
         "exchanges.csv:2: \"code\" is empty"},
        {"category", "categories.csv", "id,name\n1.5,x\n",
         "categories.csv:2: \"1.5\" in column \"id\" is no whole number"},
        {"category twice", "categories.csv", "id,name\n1,x\n01,x\n",
         "categories.csv:3: \"01\" in column \"id\" is there already"},
        {"exchange of a series", "series.csv", "code,exchange,category,name\nS,?,1,x\n",
         "series.csv:2: \"?\" in column \"exchange\" is no exchange"},
        {"category of a series", "series.csv", "code,exchange,category,name\nS,E,2,x\n",
         "series.csv:2: \"2\" in column \"category\" is no category"},
        {"series twice", "series.csv", "code,exchange,category,name\nS,E,1,x\nS,E,1,x\n",
         "series.csv:3: \"S\" in column \"code\" is there already"},
        {"step of 0", "tick-tables.csv", "code,from,to,step\nT,0,1,0.1\nT,1,2,0\n",
         "tick-tables.csv:3: \"0\" in column \"step\" is not above 0"},
        {"no step", "tick-tables.csv", "code,from,to,step\nT,0,1,\n",
         "tick-tables.csv:2: a band without a step"},
        {"bands with a gap", "tick-tables.csv", "code,from,to,step\nT,0,1,1\nT,2,3,1\n",
         "tick-tables.csv:3: a gap between the band above and this one"},
        {"bands overlap", "tick-tables.csv", "code,from,to,step\nT,0,2,1\nT,1,3,1\n",
         "tick-tables.csv:3: the band overlaps the one above"},
        {"bands out of order", "tick-tables.csv", "code,from,to,step\nT,1,2,1\nT,0,1,1\n",
         "tick-tables.csv:3: the band overlaps the one above"},
        {"band backwards", "tick-tables.csv", "code,from,to,step\nT,1,1,1\n",
         "tick-tables.csv:2: the band ends before it begins"},
        {"fine step", "tick-tables.csv", "code,from,to,step\nT,0,1,0.0000000001\n",
         "tick-tables.csv:2: steps beyond 9 decimals"},
        {"tick table twice", "tick-tables.csv", "code,from,to,step\nT,0,1,1\nU,0,1,1\nT,0,1,1\n",
         "tick-tables.csv:4: \"T\" in column \"code\" is there already"},
        {"number", "symbols.csv", "code,name,exchange,series,lot\nA,\"x\ny\",E,S,5\nB,x,E,S,many\n",
         "symbols.csv:4: \"many\" in column \"lot\" is no number"},
        {"symbol twice", "symbols.csv", "code,name,exchange,series\nA,x,E,S\nA,y,E,S\n",
         "symbols.csv:3: \"A\" in column \"code\" is there already"},
        {"symbol in both files", "derivatives.csv", "code,name,exchange,series\nA,x,E,S\n",
         "derivatives.csv:2: \"A\" in column \"code\" is there already"},
        {"exchange of a symbol", "symbols.csv", symbols + "A,x,?,S,,,,,,,,\n",
         "symbols.csv:2: \"?\" in column \"exchange\" is no exchange"},
        {"series of a symbol", "symbols.csv", symbols + "A,x,E,?,,,,,,,,\n",
         "symbols.csv:2: \"?\" in column \"series\" is no series of the exchange"},
        {"tick table", "symbols.csv", symbols + "A,x,E,S,1,?,,,,,,\n",
         "symbols.csv:2: \"?\" in column \"tick-table\" is no tick table"},
        {"tick of 0", "symbols.csv", symbols + "A,x,E,S,1,T,0,,,,,\n",
         "symbols.csv:2: \"0\" in column \"tick-size\" is not above 0"},
        {"lot below 0", "symbols.csv", symbols + "A,x,E,S,-100,T,,,,,,\n",
         "symbols.csv:2: \"-100\" in column \"lot\" is below 0"},
        {"contract size", "symbols.csv", symbols + "A,x,E,S,1,T,,,,,-5,\n",
         "symbols.csv:2: \"-5\" in column \"contract-size\" is below 0"},
        {"type", "symbols.csv", symbols + "A,x,E,S,1,T,,future,,,,\n",
         "symbols.csv:2: \"future\" in column \"type\" is no whole number"},
        {"strike", "symbols.csv", symbols + "A,x,E,S,1,T,,3,high,C,,\n",
         "symbols.csv:2: \"high\" in column \"strike\" is no number"},
        {"call or put", "symbols.csv", symbols + "A,x,E,S,1,T,,3,5,call,,\n",
         "symbols.csv:2: \"call\" in column \"call-put\" is neither C nor P"},
        {"underlyer", "derivatives.csv",
         "code,name,exchange,series,underlyer\nF,x,E,S,A\nG,x,E,S,?\nH,x,E,S,?\n",
         "derivatives.csv:3: the underlyer \"?\" is no symbol"},
        {"session time", "sessions.csv", "exchange,from,to,state,status\nE,9:00,10:00,CT,1\n",
         "sessions.csv:2: \"9:00\" in column \"from\" is no time of a day"},
        {"session after midnight", "sessions.csv",
         "exchange,from,to,state,status\nE,23:00,24:01,CT,1\n",
         "sessions.csv:2: \"24:01\" in column \"to\" is no time of a day"},
        {"sessions overlap", "sessions.csv",
         "exchange,from,to,state,status\nE,09:00,10:00,CT,1\nE,09:59:59,11:00,CT,1\n",
         "sessions.csv:3: the session ends before it begins, or begins before the one above it "
         "ends"},
        {"exchange of a session", "sessions.csv",
         "exchange,from,to,state,status\n?,09:00,10:00,CT,1\n",
         "sessions.csv: \"?\" is no exchange"},
        {"favourite twice", "favorites.csv", "code\nA\n\nA\n",
         "favorites.csv:4: \"A\" in column \"code\" is there already"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        std::ifstream kept(Folder / row.file, std::ios::binary);
        const std::string before{std::istreambuf_iterator<char>(kept), {}};
        std::filesystem::remove(Folder / row.file);
        if (row.content != "-") Write(row.file, row.content);
        EXPECT_EQ(MessageOf([&](auto& market) { LoadUniverse(Folder, market); }), row.message);
        Write(row.file, before);
    }
}

TEST_F(UniverseFileTest, ListsMakeTheirSeries) {
    Write("list.csv",
          std::string("\xEF\xBB\xBF") + Header +
              "\"A,1\",\"Smith \"\"&\"\" Sons, Ltd\",NYSE,MAIN,1,1,USD,100,0.01,,,,,\r\n"
              "cu2612,沪铜 12月,SHFE,CU,5,2,CNY,1,10,2612,,,,5\r\n"
              "cu2612/cu2701,跨期,SHFE,CU,5,2,CNY,1,10.0,2612,,,,5\r\n"
              "cu C 70000,,SHFE,CU,5,3,,1,10,Dec 26,70000.5,C,cu,5\r\n"
              "B,\"two\r\nlines\",SSE,MAIN,1,9,CNY,,,,,,,");
    LoadUniverseList(Folder / "list.csv", Market);
    Market.SetSpreadTablesAtOnce(true);
    ASSERT_EQ(Market.GetExchangeCount(), 3);
    EXPECT_EQ(Market.GetExchangeCode(2), u"SSE");
    EXPECT_EQ(Market.GetMarketStatus(u"SSE"), MarketOpen);
    EXPECT_EQ(Market.GetMarketDataCount(u"NYSE", u"MAIN"), 1);
    EXPECT_EQ(Market.GetMarketDataCount(u"SSE", u"MAIN"), 1);
    EXPECT_EQ(Market.FindSeries(u"CU")->GetCategoryID(), 5);
    EXPECT_EQ(Market.FindCategory(5)->GetName(), u"5");
    EXPECT_EQ(Market.GetSymbolName(u"A,1", TAppLanguage::SimplifiedChinese),
              u"Smith \"&\" Sons, Ltd");
    const TCustomMarketData* option = Market.FindMarketData(u"cu C 70000");
    ASSERT_NE(option, nullptr);
    EXPECT_EQ(option->GetCurrency(), u"CNY") << "of the exchange";
    EXPECT_EQ(option->GetExpiryMonth(), u"Dec 26");
    EXPECT_EQ(option->GetStrikePrice(), u"70000.5");
    EXPECT_EQ(option->GetUnderlyer(), u"cu") << "need not be listed";
    EXPECT_EQ(option->GetProductType(), ProductType::Options);
    EXPECT_EQ(Market.FindMarketData(u"B")->GetProductType(), StockProductType);
    EXPECT_EQ(Market.GetSymbolName(u"B", TAppLanguage::English), u"two\r\nlines");

    const auto moved = [&](StringView symbol, Double price, Integer steps) {
        const String code = Items.Item(symbol).FieldText(Field::SpreadCode);
        const TCustomSpreadTable* table = Market.FindSpreadTable(code);
        return table != nullptr ? table->MovePrice(price, steps) : 0.0;
    };
    EXPECT_EQ(moved(u"A,1", 12.34, 1), 12.35);
    EXPECT_EQ(moved(u"A,1", 0.01, -3), 0.0);
    EXPECT_EQ(moved(u"cu2612", 86420.0, -1), 86410.0);
    EXPECT_EQ(moved(u"cu2612/cu2701", -30.0, -2), -50.0) << "a spread goes below 0";
    EXPECT_FALSE(Items.Item(u"B").HasField(Field::SpreadCode));
    EXPECT_FALSE(Items.Item(u"B").HasField(Field::LotSize));

    const std::string again = std::string(Header) + "C,,NYSE,MAIN,1,1,USD,1,0.01,,,,,\n";
    Write("list.csv", again);
    LoadUniverseList(Folder / "list.csv", Market);
    EXPECT_EQ(Market.GetMarketDataCount(u"NYSE", u"MAIN"), 2) << "adds to what is there";
    EXPECT_EQ(moved(u"C", 1.0, 1), 1.01);
}

TEST_F(UniverseFileTest, TellsTheLineOfAFaultInAList) {
    const std::string good = "A,x,E,S,1,1,HKD,1,1,,,,,\n";
    const struct {
        const char* name;
        std::string row;
        const char* message;
    } cases[] = {
        {"nothing", "B,x,E,S,1,1,HKD,1,1,,,,,\n", "loaded"},
        {"symbol twice", "A,y,F,T,1,1,HKD,1,1,,,,,\n",
         "list.csv:3: \"A\" in column \"symbol\" is there already"},
        {"no symbol", ",x,E,S,1,1,HKD,1,1,,,,,\n", "list.csv:3: \"symbol\" is empty"},
        {"no exchange", "B,x,,S,1,1,HKD,1,1,,,,,\n", "list.csv:3: \"exchange\" is empty"},
        {"no series", "B,x,E,,1,1,HKD,1,1,,,,,\n", "list.csv:3: \"series\" is empty"},
        {"no category", "B,x,E,S,,1,HKD,1,1,,,,,\n",
         "list.csv:3: \"\" in column \"category\" is no whole number"},
        {"another category", "B,x,E,S,2,1,HKD,1,1,,,,,\n",
         "list.csv:3: \"2\" in column \"category\" is not the category that the series had before"},
        {"product type", "B,x,E,S,1,fut,HKD,1,1,,,,,\n",
         "list.csv:3: \"fut\" in column \"product_type\" is no whole number"},
        {"tick of 0", "B,x,E,S,1,1,HKD,1,0,,,,,\n",
         "list.csv:3: \"0\" in column \"tick\" is not above 0"},
        {"fine tick", "B,x,E,S,1,1,HKD,1,0.00000000033,,,,,\n",
         "list.csv:3: \"0.00000000033\" in column \"tick\" has more than 9 decimals"},
        {"lot below 0", "B,x,E,S,1,1,HKD,-1,1,,,,,\n",
         "list.csv:3: \"-1\" in column \"lot\" is below 0"},
        {"lot", "B,x,E,S,1,1,HKD,0x10,1,,,,,\n",
         "list.csv:3: \"0x10\" in column \"lot\" is no number"},
        {"strike", "B,x,E,S,1,3,HKD,1,1,,\"1,000\",C,,\n",
         "list.csv:3: \"1,000\" in column \"strike\" is no number"},
        {"call or put", "B,x,E,S,1,3,HKD,1,1,,5,c,,\n",
         "list.csv:3: \"c\" in column \"call_put\" is neither C nor P"},
        {"contract size", "B,x,E,S,1,2,HKD,1,1,,,,,-1\n",
         "list.csv:3: \"-1\" in column \"contract_size\" is below 0"},
        {"quote inside", "B,x\"y\",E,S,1,1,HKD,1,1,,,,,\n",
         "list.csv:3: a quote inside a field that is not quoted"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(ListMessage(good + row.row), row.message);
    }
    EXPECT_EQ(ListMessage(""), "list.csv: the file lists no symbol");
    EXPECT_EQ(ListMessage("", ""), "list.csv: the file is empty");
    EXPECT_EQ(ListMessage("", "symbol,name\n"), "list.csv:1: the column \"exchange\" is missing");
    EXPECT_EQ(ListMessage(std::string("\0\x8F\x10", 3), ""),
              "list.csv:1: a control character: this is no text file");
}

TEST_F(UniverseFileTest, MadeListsLoad) {
    const auto made = [](Int64 symbols, std::uint64_t seed) {
        std::ostringstream text;
        WriteUniverseList(text, symbols, seed);
        return text.str();
    };
    EXPECT_EQ(made(1000, 7), made(1000, 7));
    EXPECT_NE(made(1000, 7), made(1000, 8));
    EXPECT_EQ(ListMessage(made(0, 7), ""), "list.csv: the file lists no symbol");
    for (const Integer symbols : {1, 2, 1000, 20'000}) {
        TEmbeddedSubscribeAdapter items;
        TEmbeddedMarketAdapter market(items);
        Write("list.csv", made(symbols, 7));
        LoadUniverseList(Folder / "list.csv", market);
        EXPECT_EQ(market.Universe().SymbolCount(), symbols);
        if (symbols >= 1000) {
            EXPECT_EQ(market.GetExchangeCount(), 4);
        }
    }
}

TEST_F(UniverseFileTest, LoadsAPipe) {
    const std::string pipe = (Folder / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const pid_t writer = fork();
    if (writer == 0) {
        std::ofstream(pipe) << Header << "A,x,E,S,1,1,HKD,1,1,,,,,\n";
        _exit(0);
    }
    LoadUniverseList(pipe, Market);
    EXPECT_EQ(Market.Universe().SymbolCount(), 1);
}

} // namespace
