#include "embedded/LanguageService.h"

#include "embedded/DataError.h"
#include "tests/support/ServicesFixture.h"
#include "tests/support/TempFile.h"
#include "viewdata/services/ResourceKeys.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace quorin {
namespace {

using namespace std::string_view_literals;

String Text(const TCustomLanguageManager& language, StringView tag, StringView key,
            TAppLanguage wanted = TAppLanguage::None) {
    return language.GetResourceString(tag, key, wanted, 0, nullptr);
}

class LanguageServiceTest : public TServicesFixture {};

TEST(LanguageBoundsTest, ALanguageThatDoesNotExistReadsEnglish) {
    TEmbeddedLanguageManager manager;
    manager.SetText(TAppLanguage::English, u"T", u"K", u"text");
    EXPECT_EQ(manager.GetResourceString(u"T", u"K", static_cast<TAppLanguage>(200), 0, nullptr),
              u"text");
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

TEST(LanguageTest, FolderIsLoadedAsAWholeOrNotAtAll) {
    const TTempFolder folder;
    folder.Write("en.csv", "table,key,text,type\nT,a,new,\n");
    folder.Write("zh-Hant.csv", "table,key,text,type\nT,a,\xE6\x96\xB0,\n");
    folder.Write("zh-Hans.csv", "table,key,text,type\nT,a\n");
    TEmbeddedLanguageManager language;
    language.SetText(TAppLanguage::English, u"T", u"a", u"before");
    EXPECT_THROW(language.LoadFolder(folder.Path()), EDataError);
    EXPECT_EQ(Text(language, u"T", u"a", TAppLanguage::English), u"before");
    EXPECT_EQ(Text(language, u"T", u"a", TAppLanguage::TraditionalChinese), u"before");

    std::filesystem::remove(folder.Path() / "zh-Hans.csv");
    language.LoadFolder(folder.Path());
    EXPECT_EQ(Text(language, u"T", u"a", TAppLanguage::English), u"new");
    EXPECT_EQ(Text(language, u"T", u"a", TAppLanguage::TraditionalChinese), u"新");

    std::filesystem::remove(folder.Path() / "en.csv");
    EXPECT_THROW(language.LoadFolder(folder.Path()), EDataError) << "English must be there";
}

TEST(LanguageTest, DamagedFileIsRefusedWithItsLine) {
    struct TCase {
        const char* Name;
        std::string_view Content;
        const char* Line;
    };
    const TCase cases[] = {
        {"empty", "", ":1: "},
        {"a field too few", "table,key,text,type\nT,a,x,\nT,b\n", ":3: "},
        {"no key", "table,key,text,type\nT,,x,\n", ":2: "},
        {"no table", "table,key,text,type\n,a,x,\n", ":2: "},
        {"an open quote", "table,key,text,type\nT,a,\"x,\n", ":2: "},
        {"nothing but the head", "table,key,text,type\n", ":2: "},
        {"a head in another order", "key,table,text,type\nT,a,x,\n", ":1: "},
        {"a key twice, other fields between", "table,key,text,type\nT,a,x,\nU,a,x,\nT,a,x,\n",
         ":4: "},
        {"cut off in a character", "table,key,text,type\nT,a,\xE8\xB2", ":2: "},
        {"zero bytes", "table,key,text,type\nT,a,x\0y,\n"sv, ":2: "},
        {"control characters", "table,key,text,type\nT,a,x\x1By,\n", ":2: "},
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
            EXPECT_EQ(message.find('\n'), std::string::npos) << row.Name;
        }
        EXPECT_EQ(Text(language, u"T", u"a"), u"before") << row.Name;
    }
}

} // namespace
} // namespace quorin
