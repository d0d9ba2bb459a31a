#include "tests/viewdata/MarketFixture.h"
#include "viewdata/services/ResourceKeys.h"

namespace quorin {
namespace {

namespace R = ResourceKey;

struct TProductInfoTest : TMarketTest {
    using TLine = std::pair<StringView, StringView>; // key of the label, value

    static String Text(StringView tag, StringView key) {
        return TCustomLanguageManager::GetInstance()->GetResourceString(
            tag, key, TAppLanguage::None, 0, nullptr);
    }
    static String Lines(std::initializer_list<TLine> lines) {
        String text;
        for (const auto& [key, value] : lines) {
            if (!text.empty()) text += u"\r\n";
            text += Text(Const_ResourceStringTag, key) + u": " + String(value);
        }
        return text;
    }
};

TEST_F(TProductInfoTest, DescribesEachKindOfProduct) {
    Services().Market().AddSymbol({.Symbol = u"Z13P",
                                   .Exchange = u"QEX",
                                   .Series = u"ZERO",
                                   .Names = {.Name = u"Zed put"},
                                   .ProductType = ProductType::Options,
                                   .Currency = u"HKD",
                                   .ExpiryMonth = u"2027-01",
                                   .StrikePrice = u"350",
                                   .LastTradingDay = u"2027-01-28",
                                   .SettlementDay = u"2027-01-29",
                                   .TickSize = u"0.5",
                                   .ContractSize = 50.0});
    Load(u"QEX");
    ASSERT_EQ(Control->Rows(), u"Z12 Z13P");
    const String futures = Text(Const_ResourceStringTag, R::Res_Futures);
    const String options = Text(Const_ResourceStringTag, R::Res_Options);
    const String hongKongDollar = Text(ResourceTag::Currency, u"HKD");
    ASSERT_FALSE(futures.empty() || options.empty() || hongKongDollar.empty());
    // No name, no category 0, no translation; what has no value has no line.
    EXPECT_EQ(Control->GetProductInfo(0), Lines({{R::Res_SymbolName, u"Z12"},
                                                 {R::Res_Symbol, u"Z12"},
                                                 {R::Res_Exchange, u"QEX"},
                                                 {R::Res_ProdType, u"--"},
                                                 {R::Res_ExpiryDate, u"202612"},
                                                 {R::Res_Currency, u"ZZZ"},
                                                 {R::Res_TradingType, futures}}));
    Services().Market().AddCategory(
        {.CategoryID = 0, .Names = {.Name = u"Misc", .Language1 = u"L1", .Language2 = u"L2"}});
    EXPECT_EQ(Control->GetProductInfo(1), Lines({{R::Res_SymbolName, u"Zed put"},
                                                 {R::Res_Symbol, u"Z13P"},
                                                 {R::Res_Exchange, u"QEX"},
                                                 {R::Res_ProdType, u"Misc"},
                                                 {R::Res_ExpiryDate, u"2027-01"},
                                                 {R::Res_Currency, hongKongDollar},
                                                 {R::Res_TradingType, options},
                                                 {R::Res_StrikePrice, u"350.0"},
                                                 {R::Res_LastTradingDay, u"2027-01-28"},
                                                 {R::Res_SettlDay, u"2027-01-29"},
                                                 {R::Res_ContractSize, u"50"},
                                                 {R::Res_TickSize, u"0.5"}}));
    Load(u"SEHK");
    EXPECT_EQ(Control->GetProductInfo(0),
              Lines({{R::Res_SymbolName, u"HSBC"},
                     {R::Res_Symbol, u"00005"},
                     {R::Res_Exchange, Text(ResourceTag::Exchange, u"SEHK")},
                     {R::Res_Currency, hongKongDollar}}));
    EXPECT_EQ(Control->GetProductInfo(-1), u"");
    EXPECT_EQ(Control->GetProductInfo(2), u"");
}

TEST_F(TProductInfoTest, ARowWithoutARecordIsDescribedByItsItem) {
    LoadFavorites({u"GHOST"});
    EXPECT_EQ(Control->GetProductInfo(0), Lines({{R::Res_SymbolName, u"GHOST"},
                                                 {R::Res_Symbol, u"GHOST"},
                                                 {R::Res_Exchange, u""},
                                                 {R::Res_Currency, u""}}));
    SetField(u"GHOST", Field::ProductType, u"3");
    SetField(u"GHOST", Field::Exchange, u"QEX");
    SetField(u"GHOST", Field::StrikePrice, 12.5);
    SetField(u"GHOST", Field::Series, u"ZERO"); // the kind of product comes from records alone
    EXPECT_EQ(Control->GetProductInfo(0),
              Lines({{R::Res_SymbolName, u"GHOST"},
                     {R::Res_Symbol, u"GHOST"},
                     {R::Res_Exchange, u"QEX"},
                     {R::Res_ProdType, u"--"},
                     {R::Res_Currency, u""},
                     {R::Res_TradingType, Text(Const_ResourceStringTag, R::Res_Options)},
                     {R::Res_StrikePrice, u"12.50"}}));
}

} // namespace
} // namespace quorin
