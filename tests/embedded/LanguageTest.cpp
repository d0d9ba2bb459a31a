#include "embedded/LanguageService.h"

#include "embedded/DataError.h"
#include "tests/support/ServicesFixture.h"
#include "tests/support/TempFile.h"
#include "viewdata/services/ResourceKeys.h"

#include <fstream>
#include <iterator>
#include <regex>
#include <string>

namespace quorin {
namespace {

String Text(const TCustomLanguageManager& language, StringView tag, StringView key,
            TAppLanguage wanted = TAppLanguage::None) {
    return language.GetResourceString(tag, key, wanted, 0, nullptr);
}

class LanguageServiceTest : public TServicesFixture {};

// The keys are read from the header that declares them, so that a new key needs a text.
TEST_F(LanguageServiceTest, EnglishHasATextForEveryKeyOfTheProduct) {
    std::ifstream header(QUORIN_DATA_DIR "/../viewdata/services/ResourceKeys.h");
    ASSERT_TRUE(header.good());
    const std::string source{std::istreambuf_iterator<char>(header), {}};
    const std::regex key("= u\"([Rr]es_[A-Za-z_]+)\"");
    int count = 0;
    for (std::sregex_iterator hit(source.begin(), source.end(), key), end; hit != end; ++hit) {
        const std::string name = (*hit)[1];
        EXPECT_NE(Text(Services().Language(), Const_ResourceStringTag, FromUtf8(name)), u"")
            << name;
        ++count;
    }
    EXPECT_GT(count, 80);
}

TEST_F(LanguageServiceTest, TextsThatTheViewsFillIn) {
    const TEmbeddedLanguageManager& language = Services().Language();
    const String question = Text(language, Const_ResourceStringTag, ResourceKey::Res_MaxOrdQty);
    EXPECT_NE(question.find(u"%1s"), String::npos);
    EXPECT_NE(question.find(u"%2s"), String::npos);
    EXPECT_NE(Text(language, ResourceTag::Exchange, u"SEHK"), u"");
    EXPECT_NE(Text(language, ResourceTag::Currency, u"HKD"), u"");
    EXPECT_NE(Text(language, ResourceTag::MarketState, u"CT"), u"");
}

TEST_F(LanguageServiceTest, MessageCodesShowTheirTextOrThemselves) {
    TCustomMessageBoxCtrl& box = *TCustomMessageBoxCtrl::GetInstance();
    Host().ExpectMessage(u"This account is not known.");
    box.ShowMessageCode(nullptr, Variant(UnknownAccountCode), u"", nullptr, nullptr);
    Host().ExpectMessage(u"XX1");
    box.ShowMessageCode(nullptr, Variant(u"XX1"), u"", nullptr, nullptr);
}

TEST(LanguageTest, LookUps) {
    TEmbeddedLanguageManager language;
    const TTempFile english("table,key,text,type\r\n"
                            "T,a,\"one, two\",qty\r\n"
                            "T,b,only here,\r\n");
    const TTempFile chinese("\xEF\xBB\xBFtable,key,text,type\n"
                            "T,a,\xE4\xB8\x80,price\n");
    language.Load(TAppLanguage::English, english.Path());
    language.Load(TAppLanguage::TraditionalChinese, chinese.Path());

    struct TCase {
        const char* Name;
        StringView Tag;
        StringView Key;
        TAppLanguage Language;
        StringView Text;
    };
    const TCase cases[] = {
        {"language in force", u"T", u"a", TAppLanguage::None, u"one, two"},
        {"another language", u"T", u"a", TAppLanguage::TraditionalChinese, u"一"},
        {"English instead", u"T", u"b", TAppLanguage::TraditionalChinese, u"only here"},
        {"language without texts", u"T", u"a", TAppLanguage::SimplifiedChinese, u"one, two"},
        {"unknown key", u"T", u"c", TAppLanguage::None, u""},
        {"case counts", u"T", u"A", TAppLanguage::None, u""},
        {"empty key", u"T", u"", TAppLanguage::None, u""},
        {"unknown table", u"U", u"a", TAppLanguage::None, u""},
    };
    for (const TCase& row : cases) {
        EXPECT_EQ(Text(language, row.Tag, row.Key, row.Language), row.Text) << row.Name;
    }
    language.SetLanguage(TAppLanguage::TraditionalChinese);
    EXPECT_EQ(Text(language, u"T", u"a"), u"一");
    EXPECT_EQ(language.GetResourceAttribute(u"T", u"a", u"type"), u"qty") << "in every language";
    EXPECT_EQ(language.GetResourceAttribute(u"T", u"b", u"type"), u"");
    EXPECT_EQ(language.GetResourceAttribute(u"T", u"a", u"width"), u"");
}

TEST(LanguageTest, CallbackOnlyForAnotherLanguage) {
    TEmbeddedLanguageManager language;
    TCountingReceiver receiver;
    language.RegisterLanguageCallback(receiver.Event(), &receiver);
    language.SetLanguage(TAppLanguage::English);
    language.SetLanguage(TAppLanguage::None);
    EXPECT_EQ(receiver.Count(), 0);
    language.SetLanguage(TAppLanguage::SimplifiedChinese);
    EXPECT_EQ(receiver.Count(), 1);
    EXPECT_EQ(language.GetCurrentLanguage(), TAppLanguage::SimplifiedChinese);
}

TEST(LanguageTest, DamagedFileIsRefusedWithItsLine) {
    struct TCase {
        const char* Name;
        const char* Content;
        const char* Line;
    };
    const TCase cases[] = {
        {"empty", "", ":1: "},
        {"another head", "table,key,text\nT,a,x\n", ":1: "},
        {"a field too few", "table,key,text,type\nT,a,x,\nT,b\n", ":3: "},
        {"no key", "table,key,text,type\nT,,x,\n", ":2: "},
        {"no table", "table,key,text,type\n,a,x,\n", ":2: "},
        {"a key twice", "table,key,text,type\nT,a,x,\nT,a,y,\n", ":3: "},
        {"an open quote", "table,key,text,type\nT,a,\"x,\n", ":2: "},
        {"no UTF-8", "table,key,text,type\nT,a,\xFF,\n", ":2: "},
    };
    for (const TCase& row : cases) {
        const TTempFile file(row.Content);
        TEmbeddedLanguageManager language;
        language.SetText(TAppLanguage::English, u"T", u"a", u"before");
        try {
            language.Load(TAppLanguage::English, file.Path());
            ADD_FAILURE() << row.Name;
        } catch (const EDataError& error) {
            const std::string message = error.what();
            EXPECT_EQ(message.find(file.Path().string() + row.Line), 0u)
                << row.Name << ": " << message;
        }
        EXPECT_EQ(Text(language, u"T", u"a"), u"before") << row.Name;
    }
}

} // namespace
} // namespace quorin
